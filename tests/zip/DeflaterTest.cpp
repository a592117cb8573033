// Streams of every level, read back by an independent reader that also checks the limits of matches and that no block
// would have been smaller in another form; and what the streams are made of: codes and checksums.
#include "FixedTexts.h"
#include "Inflater.h"
#include "zip/Crc32.h"
#include "zip/HuffmanCode.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using support::RandomBytes;
using zip_test::Deflated;
using zip_test::TextSink;
using zip_test::TextSource;

std::string Worksheet(std::size_t size) {
    std::mt19937 random(11);
    std::string text = "<sheetData>";
    for (int row = 1; text.size() < size; ++row) {
        text += "<row r=\"" + std::to_string(row) + "\">";
        for (char column = 'A'; column < 'J'; ++column)
            text += std::string("<c r=\"") + column + std::to_string(row) + "\"><v>" +
                    std::to_string(static_cast<double>(random() % 1000000) / 1e3) + "</v></c>";
        text += "</row>";
    }
    return text + "</sheetData>";
}

/// Two letters in passages that come again, each with a letter changed: the longest match is one of very many.
std::string ManyMatches(std::size_t size) {
    std::mt19937 random(50);
    std::string text = RandomBytes(2000, 50, 2);
    while (text.size() < size) {
        const std::size_t length = 30 + random() % 260;
        const std::size_t reach = std::min<std::size_t>(text.size(), 30000);
        std::string passage = text.substr(text.size() - reach + random() % (reach - 300), length);
        passage[random() % length] ^= 1;
        text += passage;
    }
    return text;
}

// Compressible and incompressible parts in turn, so that blocks of all forms meet and start within a byte.
std::string Mixture() {
    std::string bytes;
    for (std::size_t part = 0; part < 12; ++part)
        bytes.append(Worksheet(1 + 9000 * part))
            .append(RandomBytes(30000 + 7001 * part, static_cast<unsigned>(part)))
            .append(400 * part, 'r');
    return bytes;
}

std::string AllBytes() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

struct Input {
    const char* name;
    std::string bytes;
    std::size_t mostBytes =
        std::string::npos; ///< at level 8; a search that gives up earlier or takes the first needs more
};

std::vector<Input> Inputs() {
    const std::string worksheet = Worksheet(40000), matches = ManyMatches(40000), passages = zip_test::Passages(250);
    return {{"empty", "", 2},
            {"one byte", "x", 3},
            {"two bytes", "xx"},
            {"three equal bytes", "xxx"},
            {"all bytes", AllBytes()},
            {"all bytes twice", AllBytes() + AllBytes()},
            {"longest match", std::string(259, 'q')},
            {"one more than the longest match", std::string(260, 'q')},
            {"long run", std::string(5'000'000, 'z')},
            {"two letters", RandomBytes(300'000, 3, 2)},
            {"random", RandomBytes(700'001, 4), 700'001 + 5 * 2 * 11}, // two stored parts for each 65,536 literals
            {"window of random bytes repeated", RandomBytes(32'506, 5) + RandomBytes(32'506, 5)},
            {"mixture", Mixture()},
            {"worksheet", worksheet, 8850},
            {"many matches", matches, 2487},
            {"passages", passages, 7326},
            {"all, with random bytes", worksheet + matches + passages + RandomBytes(60000, 41), 79402}};
}

void ExpectSound(const std::string& input, int level, std::size_t mostBytes) {
    SCOPED_TRACE(testing::Message() << input.size() << " bytes, level " << level);
    const std::string stream = Deflated(input, level);
    const std::optional<inflate::Inflated> read = inflate::Inflate(stream);
    ASSERT_TRUE(read.has_value());
    EXPECT_TRUE(read->bytes == input);
    EXPECT_LE(stream.size(), mostBytes);
    EXPECT_LE(read->farthestMatch, 32506U);
    EXPECT_LE(read->farthestShortestMatch, 4096U);
    for (const inflate::BlockWeight& block : read->blocks) {
        if (block.form == 0) continue; // a long one is several on reading, each with a head of its own
        EXPECT_LE(block.bits, block.fixedBits);
        EXPECT_LE(block.bits, block.storedBits);
    }
}

TEST(DeflaterTest, WritesSmallStreamsThatReadBackEqual) {
    for (const Input& input : Inputs()) {
        SCOPED_TRACE(input.name);
        for (int level = 1; level <= 9; ++level)
            ExpectSound(input.bytes, level, level == 8 ? input.mostBytes : std::string::npos);
    }
    for (const unsigned kinds : {8, 20, 60, 120, 256}) { // somewhere two forms take nearly the same
        for (std::size_t size = 1; size < 400; ++size)
            ExpectSound(RandomBytes(size, kinds, kinds), 8, std::string::npos);
    }
}

TEST(DeflaterTest, FindsMatchesUpToTheWindowsEdge) {
    const std::string needle = RandomBytes(200, 21);
    for (std::size_t distance = 32505; distance <= 32768; ++distance) {
        std::string input = needle;
        input.append(RandomBytes(distance - needle.size(), 22)).append(needle).append("tail");
        const std::optional<inflate::Inflated> read = inflate::Inflate(Deflated(input, 8));
        ASSERT_TRUE(read && read->bytes == input) << distance;
        EXPECT_EQ(read->farthestMatch == distance, distance <= 32506) << distance;
    }
}

TEST(DeflaterTest, RefusesOtherLevelsAndAFullSink) {
    const std::string input = RandomBytes(600'000, 30);
    const std::size_t whole = Deflated(input, 8).size();
    const auto compress = [&](int level, std::size_t room) {
        TextSource source(input);
        TextSink sink;
        sink.room = room;
        return zip::Deflater().Compress(source, sink, level);
    };
    for (const int level : {-1, 0, 10})
        EXPECT_EQ(compress(level, whole), zip::DeflateResult::BadPackLevel) << level;
    for (const std::size_t room : {std::size_t{0}, whole / 2, whole - 1})
        EXPECT_EQ(compress(8, room), zip::DeflateResult::WriteFailed) << room;
}

TEST(HuffmanCodeTest, FindsTheCheapestCompleteCodes) {
    std::vector<std::uint32_t> fibonacci = {1, 1};
    while (fibonacci.size() < 40)
        fibonacci.push_back(fibonacci.back() + fibonacci[fibonacci.size() - 2]);
    const struct {
        const char* name;
        std::vector<std::uint32_t> frequencies;
        unsigned longest;
        std::optional<unsigned> cost; // sum of frequency times length, by hand
    } cases[] = {
        {"nothing", {0, 0, 0}, 15, 0},
        {"one symbol", {0, 7, 0}, 15, 7},
        {"two symbols", {1, 0, 1000}, 15, 1001},
        {"four equal ones", {5, 5, 5, 5}, 15, 40},
        {"a chain", {1, 1, 2, 4, 8}, 15, 30},                     // 1*4 + 1*4 + 2*3 + 4*2 + 8*1
        {"the chain cut to three", {1, 1, 2, 4, 8}, 3, 32},       // 3, 3, 3, 3, 1: 3 + 3 + 6 + 12 + 8
        {"the chain cut to its least", {1, 1, 1, 1, 96}, 3, 108}, // 3, 3, 3, 3, 1
        {"a long chain cut to its least", fibonacci, 6, {}},
        {"a long chain cut to the longest", fibonacci, 15, {}},
    };
    for (const auto& row : cases) {
        std::vector<std::uint8_t> lengths(row.frequencies.size());
        zip::ShortestCodeLengths(row.frequencies.data(), lengths.size(), row.longest, lengths.data());
        const unsigned cost = std::inner_product(lengths.begin(), lengths.end(), row.frequencies.begin(), 0U);
        EXPECT_EQ(cost, row.cost.value_or(cost)) << row.name;
        unsigned used = 0; // of the room for codes
        for (const unsigned length : lengths) {
            ASSERT_LE(length, row.longest) << row.name;
            used += length > 0 ? 1U << (row.longest - length) : 0;
        }
        EXPECT_TRUE(used == 1U << row.longest || cost <= 7) << row.name;
    }
}

// The example of RFC 1951, section 3.2.2, with the bits of each code turned round.
TEST(HuffmanCodeTest, AssignsTheCodesOfTheStandard) {
    const std::vector<std::uint8_t> lengths = {3, 3, 3, 3, 3, 2, 4, 4};
    const std::vector<std::uint16_t> expected = {0b010, 0b110, 0b001, 0b101, 0b011, 0b00, 0b0111, 0b1111};
    std::vector<std::uint16_t> codes(lengths.size());
    zip::CanonicalCodes(lengths.data(), lengths.size(), codes.data());
    EXPECT_EQ(codes, expected);
}

// Check values published for this polynomial.
TEST(Crc32Test, MatchesPublishedValues) {
    const std::pair<std::string, std::uint32_t> cases[] = {{"", 0},
                                                           {"a", 0xE8B7BE43},
                                                           {"123456789", 0xCBF43926},
                                                           {"The quick brown fox jumps over the lazy dog", 0x414FA339},
                                                           {std::string(32, '\0'), 0x190A55AD},
                                                           {std::string(32, '\xFF'), 0xFF6CAB0B}};
    for (const auto& [text, crc] : cases) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
        for (std::size_t cut = 0; cut <= text.size(); ++cut) {
            const std::uint32_t before = zip::Crc32(0, bytes, cut);
            EXPECT_EQ(zip::Crc32(before, bytes + cut, text.size() - cut), crc) << text << " at " << cut;
        }
    }
}

} // namespace
