#include "gallery/TinyPictures.h"

#include "zip/Crc32.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>

namespace gallery {

namespace {

constexpr unsigned Width = 32;
constexpr unsigned Height = 24;
constexpr unsigned Field = 8;
constexpr unsigned FieldsAcross = Width / Field;
constexpr unsigned FieldCount = FieldsAcross * (Height / Field);

using Colour = std::array<std::uint8_t, 3>;
constexpr Colour Colours[FieldCount] = {{200, 40, 40},  {240, 140, 20}, {240, 220, 60},  {120, 190, 60},
                                        {30, 140, 80},  {40, 170, 190}, {50, 110, 200},  {90, 70, 170},
                                        {170, 60, 150}, {90, 60, 40},   {150, 150, 150}, {30, 30, 30}};

unsigned FieldAt(unsigned x, unsigned y) {
    return y / Field * FieldsAcross + x / Field;
}

enum class ByteOrder { LittleEndian, BigEndian };

void Append(std::string& bytes, std::initializer_list<unsigned> values) {
    for (const unsigned value : values) {
        bytes += static_cast<char>(value);
    }
}

void AppendNumber(std::string& bytes, unsigned value, unsigned size, ByteOrder order) {
    for (unsigned i = 0; i < size; ++i) {
        const unsigned shift = 8 * (order == ByteOrder::LittleEndian ? i : size - 1 - i);
        bytes += static_cast<char>(value >> shift);
    }
}

void AppendBig(std::string& bytes, unsigned value, unsigned size) {
    AppendNumber(bytes, value, size, ByteOrder::BigEndian);
}
void AppendLittle(std::string& bytes, unsigned value, unsigned size) {
    AppendNumber(bytes, value, size, ByteOrder::LittleEndian);
}

void AppendColour(std::string& bytes, const Colour& colour) {
    Append(bytes, {colour[0], colour[1], colour[2]});
}

// Rows of red, green and blue, each row after `lead`.
std::string Pixels(const std::string& lead) {
    std::string bytes;
    for (unsigned y = 0; y < Height; ++y) {
        bytes += lead;
        for (unsigned x = 0; x < Width; ++x) {
            AppendColour(bytes, Colours[FieldAt(x, y)]);
        }
    }
    return bytes;
}

std::uint32_t Adler(const std::string& bytes) {
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<std::uint8_t>(byte)) % 65521;
        high = (high + low) % 65521;
    }
    return (high << 16) | low;
}

void AppendChunk(std::string& png, const std::string& kind, const std::string& content) {
    const std::string summed = kind + content;
    AppendBig(png, static_cast<unsigned>(content.size()), 4);
    png += summed;
    AppendBig(png, zip::Crc32(0, reinterpret_cast<const std::uint8_t*>(summed.data()), summed.size()), 4);
}

// Bits with the highest first; a byte of ones is followed by a zero byte, as a JPEG scan wants it.
class ScanBits {
public:
    void Add(unsigned value, unsigned count) {
        while (count-- > 0) {
            current = (current << 1) | ((value >> count) & 1);
            if (++filled == 8) Finish();
        }
    }
    std::string Take() {
        while (filled > 0) {
            Add(1, 1);
        }
        return bytes;
    }

private:
    void Finish() {
        bytes += static_cast<char>(current);
        if (current == 0xFF) bytes += '\0';
        current = 0;
        filled = 0;
    }
    std::string bytes;
    unsigned current = 0;
    unsigned filled = 0;
};

// Brightness and the two colour differences.
std::array<int, 3> Differences(const Colour& colour) {
    const double red = colour[0];
    const double green = colour[1];
    const double blue = colour[2];
    return {static_cast<int>(0.299 * red + 0.587 * green + 0.114 * blue) - 128,
            static_cast<int>(-0.1687 * red - 0.3313 * green + 0.5 * blue),
            static_cast<int>(0.5 * red - 0.4187 * green - 0.0813 * blue)};
}

// A field of one colour is its mean alone: the change against the last field's, then the end of the block.
void AddMean(ScanBits& scan, int change) {
    unsigned size = 0;
    while ((std::abs(change) >> size) != 0) {
        ++size;
    }
    scan.Add(size, 4);
    if (size > 0) scan.Add(static_cast<unsigned>(change > 0 ? change : change + (1 << size) - 1), size);
    scan.Add(0, 1);
}

std::string Scan() {
    ScanBits scan;
    std::array<int, 3> last = {0, 0, 0};
    for (const Colour& colour : Colours) {
        const std::array<int, 3> now = Differences(colour);
        for (unsigned i = 0; i < 3; ++i) {
            AddMean(scan, now[i] - last[i]);
        }
        last = now;
    }
    return scan.Take();
}

} // namespace

std::string PngPicture() {
    std::string png = "\x89PNG\r\n\x1A\n";
    std::string header;
    AppendBig(header, Width, 4);
    AppendBig(header, Height, 4);
    Append(header, {8, 2, 0, 0, 0});
    AppendChunk(png, "IHDR", header);
    const std::string rows = Pixels(std::string(1, '\0'));
    std::string stream = "\x78\x01\x01"; // one stored block
    AppendLittle(stream, static_cast<unsigned>(rows.size()), 2);
    AppendLittle(stream, ~static_cast<unsigned>(rows.size()) & 0xFFFF, 2);
    stream += rows;
    AppendBig(stream, Adler(rows), 4);
    AppendChunk(png, "IDAT", stream);
    AppendChunk(png, "IEND", "");
    return png;
}

std::string GifPicture() {
    constexpr unsigned ClearCode = 0x80;
    constexpr unsigned CodesBetweenClears = 100; // before the codes grow beyond eight bits
    std::string gif = "GIF89a";
    AppendLittle(gif, Width, 2);
    AppendLittle(gif, Height, 2);
    Append(gif, {0xF3, 0, 0}); // 16 colours
    for (unsigned i = 0; i < 16; ++i) {
        AppendColour(gif, Colours[i % FieldCount]);
    }
    gif += ',';
    AppendLittle(gif, 0, 4);
    AppendLittle(gif, Width, 2);
    AppendLittle(gif, Height, 2);
    Append(gif, {0, 7});
    std::string codes;
    for (unsigned i = 0; i < Width * Height; ++i) {
        if (i % CodesBetweenClears == 0) Append(codes, {ClearCode});
        Append(codes, {FieldAt(i % Width, i / Width)});
    }
    Append(codes, {ClearCode + 1});
    for (std::size_t at = 0; at < codes.size(); at += 255) {
        const std::string block = codes.substr(at, 255);
        Append(gif, {static_cast<unsigned>(block.size())});
        gif += block;
    }
    Append(gif, {0, ';'});
    return gif;
}

std::string JpegPicture() {
    std::string jpeg;
    Append(jpeg, {0xFF, 0xD8, 0xFF, 0xE0, 0, 16});
    jpeg += "JFIF";
    Append(jpeg, {0, 1, 1, 1, 0, 72, 0, 72, 0, 0});
    Append(jpeg, {0xFF, 0xDB, 0, 67, 0});
    jpeg += std::string(64, '\x08'); // a mean counts eight times its value
    Append(jpeg, {0xFF, 0xC0, 0, 17, 8, 0, Height, 0, Width, 3, 1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0});
    // Sizes 0 to 11 of a mean as codes of four bits; of the rest only "end of block", as one bit.
    Append(jpeg, {0xFF, 0xC4, 0, 31, 0x00, 0, 0, 0, 12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    Append(jpeg, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    Append(jpeg, {0xFF, 0xC4, 0, 20, 0x10, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    Append(jpeg, {0xFF, 0xDA, 0, 12, 3, 1, 0, 2, 0, 3, 0, 0, 63, 0});
    jpeg += Scan();
    Append(jpeg, {0xFF, 0xD9});
    return jpeg;
}

std::string TiffPicture() {
    constexpr unsigned ShortType = 3;
    constexpr unsigned LongType = 4;
    constexpr unsigned BitsOffset = 8;
    constexpr unsigned PixelsOffset = 16;
    const std::string pixels = Pixels("");
    std::string tiff = "II*";
    Append(tiff, {0});
    AppendLittle(tiff, PixelsOffset + static_cast<unsigned>(pixels.size()), 4);
    for (unsigned i = 0; i < 4; ++i) {
        AppendLittle(tiff, i < 3 ? 8 : 0, 2); // bits of each colour
    }
    tiff += pixels;
    const unsigned fields[][4] = {{256, ShortType, 1, Width},
                                  {257, ShortType, 1, Height},
                                  {258, ShortType, 3, BitsOffset},
                                  {259, ShortType, 1, 1},
                                  {262, ShortType, 1, 2},
                                  {273, LongType, 1, PixelsOffset},
                                  {277, ShortType, 1, 3},
                                  {278, ShortType, 1, Height},
                                  {279, LongType, 1, static_cast<unsigned>(pixels.size())}};
    AppendLittle(tiff, sizeof fields / sizeof *fields, 2);
    for (const auto& [tag, type, count, value] : fields) {
        AppendLittle(tiff, tag, 2);
        AppendLittle(tiff, type, 2);
        AppendLittle(tiff, count, 4);
        AppendLittle(tiff, value, 4);
    }
    AppendLittle(tiff, 0, 4);
    return tiff;
}

} // namespace gallery
