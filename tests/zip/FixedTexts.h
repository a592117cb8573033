// Streams from and to memory, and a text on which levels differ.
#pragma once

#include "support/Noise.h"
#include "zip/Deflater.h"

#include <gtest/gtest.h>

#include <cstring>

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

/// Passages of one text that come again, with a shorter match nearer by than the longest, and with one that begins a
/// letter before it.
inline std::string Passages(unsigned count) {
    std::mt19937 random(60);
    const std::string source = support::RandomBytes(3000, 61, 26);
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

} // namespace zip_test
