// Streams of every level, read back by an independent reader that also checks the limits of matches and that no block
// would have been smaller in another form.
#include "zip/Deflater.h"
#include "FixedTexts.h"
#include "Inflater.h"

#include <gtest/gtest.h>

namespace {

using zip_test::Deflated;
using zip_test::RandomBytes;
using zip_test::TextSink;
using zip_test::TextSource;
using zip_test::Worksheet;

std::string AllBytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

// Compressible and incompressible parts in turn, so that blocks of all forms meet and start within a byte.
std::string Mixture() {
    std::string bytes;
    for (unsigned part = 0; part < 12; ++part) {
        bytes += Worksheet(1 + 9000 * part) + RandomBytes(30000 + 7001 * part, part) + std::string(400 * part, 'r');
    }
    return bytes;
}

struct Input {
    const char* name;
    std::string bytes;
};

std::vector<Input> Inputs() {
    return {{"empty", ""},
            {"one byte", "x"},
            {"two bytes", "xx"},
            {"three equal bytes", "xxx"},
            {"all bytes", AllBytes()},
            {"all bytes twice", AllBytes() + AllBytes()},
            {"longest match", std::string(259, 'q')},
            {"one more than the longest match", std::string(260, 'q')},
            {"long run", std::string(5'000'000, 'z')},
            {"two letters", RandomBytes(300'000, 3, 2)},
            {"random", RandomBytes(700'001, 4)},
            {"window of random bytes repeated", RandomBytes(32'506, 5) + RandomBytes(32'506, 5)},
            {"text", Worksheet(400'000)},
            {"mixture", Mixture()}};
}

class DeflaterLevels : public testing::TestWithParam<int> {};

TEST_P(DeflaterLevels, ReadsBackEqualWithinTheLimits) {
    for (const Input& input : Inputs()) {
        SCOPED_TRACE(input.name);
        const std::optional<inflate::Inflated> read = inflate::Inflate(Deflated(input.bytes, GetParam()));
        ASSERT_TRUE(read.has_value());
        EXPECT_TRUE(read->bytes == input.bytes);
        EXPECT_LE(read->farthestMatch, 32506U);
        EXPECT_LE(read->farthestShortestMatch, 4096U);
    }
}

TEST_P(DeflaterLevels, WritesNoBlockInAFormThatIsNotTheSmallest) {
    for (const Input& input : Inputs()) {
        SCOPED_TRACE(input.name);
        const std::optional<inflate::Inflated> read = inflate::Inflate(Deflated(input.bytes, GetParam()));
        ASSERT_TRUE(read.has_value());
        for (const inflate::BlockWeight& block : read->blocks) {
            // A long stored block is several on reading, each with a head of its own.
            if (block.form == 0) continue;
            EXPECT_LE(block.bits, block.fixedBits);
            EXPECT_LE(block.bits, block.storedBits);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllLevels, DeflaterLevels, testing::Range(1, 10));

TEST(DeflaterTest, ChoosesAmongTheThreeForms) {
    struct Case {
        const char* name;
        std::string input;
        unsigned form;
    };
    const Case cases[] = {{"empty", "", 1},
                          {"a few letters", "abc", 1},
                          {"random", RandomBytes(2000, 9), 0},
                          {"text", Worksheet(20000), 2}};
    for (const Case& row : cases) {
        const std::optional<inflate::Inflated> read = inflate::Inflate(Deflated(row.input, 8));
        ASSERT_TRUE(read && !read->blocks.empty()) << row.name;
        EXPECT_EQ(read->blocks.front().form, row.form) << row.name;
    }
}

// RFC 1951 by hand: last block, fixed codes, end of block; and the literal 'a' (0x91 in 8 bits) before it.
TEST(DeflaterTest, WritesTheSmallestStreams) {
    EXPECT_EQ(Deflated("", 8), std::string("\x03\x00", 2));
    EXPECT_EQ(Deflated("a", 8), std::string("\x4B\x04\x00", 3));
}

// What level 8 needs; a search that gives up earlier, takes the first match or cuts blocks elsewhere needs more.
TEST(DeflaterTest, PacksFixedTextsAsTightlyAsLevel8Does) {
    for (const zip_test::FixedText& text : zip_test::FixedTexts()) {
        EXPECT_LE(Deflated(text.bytes, 8).size(), text.mostBytes) << text.name;
    }
}

TEST(DeflaterTest, GrowsRandomBytesByHeadsOnly) {
    const std::string input = RandomBytes(1'000'000, 12);
    // A head of five bytes for every block; blocks of this kind hold 65,536 literals or fewer.
    EXPECT_LE(Deflated(input, 8).size(), input.size() + 5 * 2 * 17);
}

TEST(DeflaterTest, FindsMatchesUpToTheWindowsEdge) {
    const std::string needle = RandomBytes(200, 21);
    for (std::size_t distance = 32505; distance <= 32768; ++distance) {
        const std::string input = needle + RandomBytes(distance - needle.size(), 22) + needle + "tail";
        const std::optional<inflate::Inflated> read = inflate::Inflate(Deflated(input, 8));
        ASSERT_TRUE(read && read->bytes == input) << distance;
        EXPECT_EQ(read->farthestMatch == distance, distance <= 32506) << distance;
    }
}

TEST(DeflaterTest, ReadsBackALargePart) {
    const std::string input = Worksheet(25'000'000);
    const std::string stream = Deflated(input, 8);
    const std::optional<inflate::Inflated> read = inflate::Inflate(stream);
    ASSERT_TRUE(read.has_value());
    EXPECT_TRUE(read->bytes == input);
}

TEST(DeflaterTest, RefusesOtherLevels) {
    for (const int level : {-1, 0, 10}) {
        zip::Deflater deflater;
        const std::string input = "abc";
        TextSource source(input);
        TextSink sink;
        EXPECT_EQ(deflater.Compress(source, sink, level), zip::DeflateResult::BadPackLevel) << level;
        EXPECT_TRUE(sink.text.empty());
    }
}

TEST(DeflaterTest, TellsOfAFullSink) {
    const std::string input = RandomBytes(600'000, 30);
    const std::size_t whole = Deflated(input, 8).size();
    for (const std::size_t room : {std::size_t{0}, whole / 2, whole - 1}) {
        zip::Deflater deflater;
        TextSource source(input);
        TextSink sink;
        sink.room = room;
        EXPECT_EQ(deflater.Compress(source, sink, 8), zip::DeflateResult::WriteFailed) << room;
    }
}

} // namespace
