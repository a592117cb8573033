#include "zip/HuffmanCode.h"
#include "zip/Crc32.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

std::vector<unsigned> Lengths(const std::vector<std::uint32_t>& frequencies, unsigned longest) {
    std::vector<std::uint8_t> lengths(frequencies.size());
    zip::ShortestCodeLengths(frequencies.data(), frequencies.size(), longest, lengths.data());
    return {lengths.begin(), lengths.end()};
}

TEST(HuffmanCodeTest, FindsTheCheapestLengths) {
    struct Case {
        const char* name;
        std::vector<std::uint32_t> frequencies;
        unsigned longest;
        unsigned cost; // sum of frequency times length, by hand
    };
    const Case cases[] = {
        {"nothing", {0, 0, 0}, 15, 0},
        {"one symbol", {0, 7, 0}, 15, 7},
        {"two symbols", {1, 0, 1000}, 15, 1001},
        {"four equal ones", {5, 5, 5, 5}, 15, 40},
        {"a chain", {1, 1, 2, 4, 8}, 15, 30},                     // 1*4 + 1*4 + 2*3 + 4*2 + 8*1
        {"the chain cut to three", {1, 1, 2, 4, 8}, 3, 32},       // 3, 3, 3, 3, 1: 3 + 3 + 6 + 12 + 8
        {"the chain cut to its least", {1, 1, 1, 1, 96}, 3, 108}, // 3, 3, 3, 3, 1
    };
    for (const Case& row : cases) {
        const std::vector<unsigned> lengths = Lengths(row.frequencies, row.longest);
        EXPECT_EQ(std::inner_product(lengths.begin(), lengths.end(), row.frequencies.begin(), 0U), row.cost)
            << row.name;
    }
}

TEST(HuffmanCodeTest, KeepsTheLimitWithACompleteCode) {
    std::vector<std::uint32_t> fibonacci = {1, 1};
    while (fibonacci.size() < 40) {
        fibonacci.push_back(fibonacci.back() + fibonacci[fibonacci.size() - 2]);
    }
    for (const unsigned longest : {6U, 7U, 15U}) {
        unsigned used = 0;
        for (const unsigned length : Lengths(fibonacci, longest)) {
            ASSERT_TRUE(length >= 1 && length <= longest);
            used += 1U << (longest - length);
        }
        EXPECT_EQ(used, 1U << longest) << longest;
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
    struct Case {
        std::string text;
        std::uint32_t crc;
    };
    const Case cases[] = {{"", 0},
                          {"a", 0xE8B7BE43},
                          {"123456789", 0xCBF43926},
                          {"The quick brown fox jumps over the lazy dog", 0x414FA339},
                          {std::string(32, '\0'), 0x190A55AD},
                          {std::string(32, '\xFF'), 0xFF6CAB0B}};
    for (const Case& row : cases) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(row.text.data());
        EXPECT_EQ(zip::Crc32(0, bytes, row.text.size()), row.crc) << row.text;
        for (std::size_t cut = 0; cut <= row.text.size(); ++cut) {
            const std::uint32_t before = zip::Crc32(0, bytes, cut);
            EXPECT_EQ(zip::Crc32(before, bytes + cut, row.text.size() - cut), row.crc) << row.text << " at " << cut;
        }
    }
}

} // namespace
