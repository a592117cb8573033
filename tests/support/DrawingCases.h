// What every host's drawing calls leave in a picture, how its small font measures, and what becomes of a picture's
// file.
#pragma once

#include "host/Drawing.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>

namespace support {

inline constexpr host::Colour White{255, 255, 255}, Black{0, 0, 0}, Red{255, 0, 0}, Blue{0, 0, 255};

/// Where a picture is not white; none where it is.
struct Ink {
    int left = 0, top = 0, right = 0, bottom = 0; ///< of the outermost pixels
    double centreX = 0.0, centreY = 0.0;
};

template <class Context>
std::optional<Ink> FindInk(Context& context, int width, int height) {
    std::optional<Ink> ink;
    double weight = 0.0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const host::Colour colour = context.GetPixel(x, y);
            const double dark = 255.0 - (colour.red + colour.green + colour.blue) / 3.0;
            if (dark < 32.0) continue;
            if (!ink) ink = Ink{x, y, x, y, 0.0, 0.0};
            ink->left = std::min(ink->left, x);
            ink->right = std::max(ink->right, x);
            ink->bottom = y;
            ink->centreX += x * dark;
            ink->centreY += y * dark;
            weight += dark;
        }
    if (ink) {
        ink->centreX /= weight;
        ink->centreY /= weight;
    }
    return ink;
}

struct Probe {
    int x, y; ///< pixels of the picture, two to a drawing pixel
    host::Colour colour;
};

template <class Context>
void ExpectShapes() {
    constexpr double Pi = 3.14159265358979323846;
    const auto sector = [](double start, double sweep) {
        return [=](host::NativeContext& context) { context.FillSector(10, 10, 8, start, sweep, Red); };
    };
    // In the middle of each quarter of that disc, clockwise from the lower right one, and outside of it.
    const auto quarters = [](bool a, bool b, bool c, bool d) {
        const auto colour = [](bool isFilled) { return isFilled ? Red : White; };
        return std::vector<Probe>{{27, 27, colour(a)}, {12, 27, colour(b)}, {12, 12, colour(c)},
                                  {27, 12, colour(d)}, {34, 34, White},     {5, 5, White}};
    };
    const struct {
        const char* name;
        std::function<void(host::NativeContext&)> draw;
        std::vector<Probe> probes;
    } cases[] = {
        {"rectangle",
         [](host::NativeContext& context) { context.FillRectangle(2, 1, 4, 2, Red); },
         {{4, 2, Red}, {7, 3, Red}, {3, 2, White}, {8, 2, White}, {4, 1, White}, {4, 4, White}}},
        {"rectangle from its other corner",
         [](host::NativeContext& context) { context.FillRectangle(4, 2, 2, 1, Red); },
         {{4, 2, Red}, {7, 3, Red}, {3, 2, White}, {8, 2, White}}},
        {"rectangle beyond the picture",
         [](host::NativeContext& context) { context.FillRectangle(-5, 18, 100, 100, Red); },
         {{0, 36, Red}, {39, 39, Red}, {0, 35, White}}},
        {"nothing of no colour",
         [](host::NativeContext& context) {
             context.FillRectangle(0, 0, 9, 9, host::Colour{9, 9, 9, 0});
         },
         {{4, 4, White}}},
        {"frame",
         [](host::NativeContext& context) { context.FrameRectangle(4, 4, 8, 8, Blue); },
         {{8, 8, Blue},
          {17, 17, Blue},
          {8, 17, Blue},
          {10, 10, White},
          {15, 15, White},
          {7, 7, White},
          {18, 18, White}}},
        {"picture with a transparent pixel",
         [](host::NativeContext& context) {
             context.FillRectangle(0, 0, 20, 20, Red);
             host::NativeImage image(2, 2, 72);
             image.SetPixel(1, 0, Blue);
             context.DrawImage(image, 1, 1);
         },
         {{4, 2, Blue}, {5, 3, Blue}, {2, 2, Red}, {4, 4, Red}, {6, 2, Red}}},
        {"first quarter", sector(0, Pi / 2), quarters(true, false, false, false)},
        {"right half from the top", sector(-Pi / 2, Pi), quarters(true, false, false, true)},
        {"backwards", sector(Pi / 2, -Pi / 2), quarters(true, false, false, false)},
        {"three quarters", sector(Pi / 2, 1.5 * Pi), quarters(false, true, true, true)},
        {"across the start of the turn", sector(1.9 * Pi, 0.7 * Pi), quarters(true, false, false, false)},
        {"disc", sector(-Pi / 2, 2 * Pi), quarters(true, true, true, true)},
        {"more than a disc", sector(-Pi / 2, 2 * Pi + 0.03), quarters(true, true, true, true)},
        {"nothing", sector(0, 0), quarters(false, false, false, false)},
    };
    for (const auto& one : cases) {
        Context context(20, 20, 2);
        one.draw(context);
        for (const Probe& probe : one.probes)
            EXPECT_EQ(context.GetPixel(probe.x, probe.y), probe.colour) << one.name << " " << probe.x << "," << probe.y;
    }
}

template <class Context>
void ExpectTexts(host::TextMeasuring& font) {
    constexpr int Width = 120, Height = 80, Scale = 2;
    const double capital = font.ReadCapitalHeight() * Scale, width = font.MeasureWidth("HHHH") * Scale;
    const auto draw = [&](const auto& text) {
        Context context(Width, Height, Scale);
        if constexpr (std::is_same_v<decltype(text), const host::BoxedText&>)
            context.DrawBoxedText(text, Black);
        else
            context.DrawSlantedText(text, Black);
        return FindInk(context, Width * Scale, Height * Scale);
    };
    EXPECT_FALSE(draw(host::BoxedText{"", 0, 0, 50, 50}));
    // In the middle of its box, whether that is large or small; the line's middle need not be that of its capitals.
    for (const host::BoxedText& text :
         {host::BoxedText{"HHHH", 30, 20, 90, 60}, host::BoxedText{"HHHH", 59, 39, 61, 41}}) {
        const std::optional<Ink> ink = draw(text);
        ASSERT_TRUE(ink);
        EXPECT_NEAR(ink->centreX, 60 * Scale, 2);
        EXPECT_NEAR(ink->centreY, 40 * Scale, capital / 3);
        EXPECT_NEAR(ink->right - ink->left + 1, width, width / 5);
        EXPECT_NEAR(ink->bottom - ink->top + 1, capital, 3);
    }
    // Begins at its place and runs down to the right.
    const std::optional<Ink> slanted = draw(host::SlantedText{"HHHHHHHHHH", 20, 20, 3.14159265358979 / 6, 200});
    ASSERT_TRUE(slanted);
    const double length = font.MeasureWidth("HHHHHHHHHH") * Scale;
    EXPECT_NEAR(slanted->left, 20 * Scale, capital + 3);
    EXPECT_GE(slanted->top, 20 * Scale - 2);
    EXPECT_NEAR(slanted->right - 20 * Scale, length * std::cos(3.14159265358979 / 6), length / 8);
    EXPECT_NEAR(slanted->bottom - slanted->top, length / 2 + capital, length / 8 + 3);
    // What is too long goes on below, between words or inside of one.
    for (const char* text : {"HHHH HHHH", "HHHHHHHH"}) {
        const std::optional<Ink> ink = draw(host::SlantedText{text, 10, 10, 0, font.MeasureWidth("HHHH") + 0.5});
        ASSERT_TRUE(ink);
        EXPECT_NEAR(ink->right - ink->left + 1, width, width / 5) << text;
        EXPECT_GT(ink->bottom - ink->top + 1, 2 * capital) << text;
        EXPECT_LT(ink->bottom - ink->top + 1, 4 * capital) << text;
    }
}

inline void ExpectMeasuring(host::TextMeasuring& font) {
    EXPECT_EQ(font.MeasureWidth(""), 0);
    EXPECT_GT(font.ReadCapitalHeight(), 5);
    EXPECT_LT(font.ReadCapitalHeight(), 11);
    const double letter = font.MeasureWidth("H");
    EXPECT_GT(letter, 4);
    EXPECT_LT(letter, 12);
    EXPECT_NEAR(font.MeasureWidth("HHHHHHHHHH"), 10 * letter, letter / 2);
    EXPECT_LT(font.MeasureWidth("iiii"), font.MeasureWidth("WWWW") / 2);
    EXPECT_NEAR(font.MeasureWidth("Ä"), font.MeasureWidth("A"), 0.5); // one letter of two bytes
    EXPECT_GT(font.MeasureWidth("A A"), font.MeasureWidth("AA"));
}

/// In pictures that are made of width, height and scale, have GetPixel, and write in the font that measures.
template <class Context>
void ExpectDrawing(host::TextMeasuring& font) {
    ExpectShapes<Context>();
    ExpectMeasuring(font);
    ExpectTexts<Context>(font);
}

/// Width and height as a JPEG file's own frame header tells them; none where it is no JPEG file from start to end.
inline std::optional<std::array<int, 2>> FindJpegSize(const std::string& path) {
    const std::string bytes = ContentOf(path);
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    if (bytes.size() < 4 || bytes.substr(0, 2) != "\xFF\xD8" || bytes.substr(bytes.size() - 2) != "\xFF\xD9") return {};
    for (std::size_t at = 2; at + 9 < bytes.size() && byte(at) == 0xFF; at += 2U + byte(at + 2) * 256U + byte(at + 3))
        if (byte(at + 1) >= 0xC0 && byte(at + 1) <= 0xC2)
            return std::array{byte(at + 7) * 256 + byte(at + 8), byte(at + 5) * 256 + byte(at + 6)};
    return {};
}

using WriteJpeg = std::function<bool(const std::string& path, int width, int height, double scale,
                                     const std::function<void(host::NativeContext&)>& draw)>;

/// read  decodes a picture and answers its colour at a pixel
inline void ExpectJpegFiles(const WriteJpeg& write,
                            const std::function<host::Colour(const std::string& path, int x, int y)>& read) {
    const TestFolder folder;
    const auto halves = [](host::NativeContext& context) {
        context.FillRectangle(0, 0, 15, 20, Red);
        context.FillRectangle(15, 0, 30, 20, Blue);
    };
    const auto isLike = [](const host::Colour& a, const host::Colour& b) {
        return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue) < 30;
    };
    folder.Write("there.jpg", std::string(100'000, 'x'));
    for (const char* name : {"new.jpg", "there.jpg", "Größe 日本.jpg"}) {
        const std::string path = folder / name;
        ASSERT_TRUE(write(path, 30, 20, 2, halves)) << name;
        const std::filesystem::path renamed = folder / "read.jpg"; // in letters that every reader can name
        std::filesystem::rename(std::filesystem::path(std::u8string(path.begin(), path.end())), renamed);
        EXPECT_EQ(FindJpegSize(folder / "read.jpg"), (std::array{60, 40})) << name;
        EXPECT_TRUE(isLike(read(folder / "read.jpg", 10, 20), Red)) << name;
        EXPECT_TRUE(isLike(read(folder / "read.jpg", 50, 20), Blue)) << name;
        std::filesystem::remove(renamed);
    }
    EXPECT_FALSE(write(folder / "none/new.jpg", 30, 20, 2, halves));
    EXPECT_FALSE(write(folder.GetPath(), 30, 20, 2, halves));
    EXPECT_TRUE(std::filesystem::is_empty(folder.GetPath()));
}

} // namespace support
