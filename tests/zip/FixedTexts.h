// Texts that are the same everywhere, and what they take when they are packed.
#pragma once

#include "zip/Deflater.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace zip_test {

class TextSource final : public zip::ByteSource {
public:
    explicit TextSource(const std::string& text) : text(text) {}
    std::optional<std::size_t> Read(std::uint8_t* data, std::size_t sizeBytes) override {
        const std::size_t now = std::min(sizeBytes, text.size() - at);
        std::memcpy(data, text.data() + at, now);
        at += now;
        return now;
    }

private:
    const std::string& text;
    std::size_t at = 0;
};

class TextSink final : public zip::ByteSink {
public:
    std::string text;
    std::size_t room = std::string::npos;
    bool Write(const std::uint8_t* data, std::size_t sizeBytes) override {
        if (sizeBytes > room - text.size()) return false;
        text.append(reinterpret_cast<const char*>(data), sizeBytes);
        return true;
    }
};

inline std::string Deflated(const std::string& input, int level) {
    static zip::Deflater deflater; // one for all: what an earlier stream leaves behind must not show
    TextSource source(input);
    TextSink sink;
    EXPECT_EQ(deflater.Compress(source, sink, level), zip::DeflateResult::Success);
    return sink.text;
}

inline std::string RandomBytes(std::size_t size, unsigned seed, unsigned kinds = 256) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() % kinds);
    }
    return bytes;
}

inline std::string Worksheet(std::size_t size) {
    std::mt19937 random(11);
    std::string text = "<sheetData>";
    for (int row = 1; text.size() < size; ++row) {
        text += "<row r=\"" + std::to_string(row) + "\">";
        for (char column = 'A'; column < 'J'; ++column) {
            text += std::string("<c r=\"") + column + std::to_string(row) + "\"><v>" +
                    std::to_string(random() % 1000000 / 1e3) + "</v></c>";
        }
        text += "</row>";
    }
    return text + "</sheetData>";
}

/// Two letters in passages that come again, each with a letter changed: the longest match is one of very many.
inline std::string ManyMatches(std::size_t size) {
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

/// Passages of one text that come again, with a shorter match nearer by than the longest, and with one that begins a
/// letter before it.
inline std::string Passages(unsigned count) {
    std::mt19937 random(60);
    const std::string source = RandomBytes(3000, 61, 26);
    std::string text = source;
    for (unsigned i = 0; i < count; ++i) {
        const std::size_t start = random() % 2700;
        text += source.substr(start, 193 + random() % 60) + "." + source.substr(start, 258) + ".";
        const std::size_t other = random() % 2700;
        const char before = static_cast<char>(random() % 26);
        text += before + source.substr(other, 50 + random() % 60) + "." + before + source.substr(other, 200) + ".";
    }
    return text;
}

struct FixedText {
    const char* name;
    std::string bytes;
    std::size_t mostBytes; ///< at level 8
};

inline std::vector<FixedText> FixedTexts() {
    const std::string worksheet = Worksheet(40000), matches = ManyMatches(40000), passages = Passages(250);
    return {{"worksheet", worksheet, 8850},
            {"many matches", matches, 2487},
            {"passages", passages, 7326},
            {"all, with random bytes", worksheet + matches + passages + RandomBytes(60000, 41), 79402}};
}

} // namespace zip_test
