// Windows bitmaps: the DIB that BMP files and icons store, and the BMP file around it.
//
//   BMP file   BITMAPFILEHEADER (14 bytes: "BM", size, reserved, offset of the pixels)
//              then the DIB.
//   DIB        BITMAPINFOHEADER (40 bytes; the later versions, 52 to 124, only add fields):
//                0 size  4 width  8 height (negative: rows top-down)  12 planes  14 bit count
//               16 compression (0 plain, 3 bit fields)  32 colours used
//              with bit fields and a 40-byte header, three 4-byte masks (R, G, B) follow it;
//              then the palette (4-byte B, G, R, 0 entries) and the rows, each padded to 4 bytes.
#include <bit>
#include <cstring>

#include "base/runtime_error.h"
#include "picture_formats.h"
#include "pages/picture_import.h"

namespace vex::pages::formats {

namespace {

constexpr uint32_t kPlain = 0;
constexpr uint32_t kBitFields = 3;

// A 16- or 32-bit pixel through its masks, as 32 bits per pixel.
platform::Dib Unpack(const uint8_t* pixels, int32_t width, int32_t height, bool topDown, int bitCount,
    const uint32_t masks[3])
{
    platform::Dib result(width, height, 32, true);
    int32_t stride = platform::Dib::StrideFor(width, bitCount);
    for (int32_t y = 0; y < height; ++y) {
        const uint8_t* in = pixels + static_cast<size_t>(topDown ? y : height - 1 - y) * static_cast<size_t>(stride);
        uint8_t* out = result.row(y);
        for (int32_t x = 0; x < width; ++x) {
            uint32_t value = bitCount == 16 ? Little16(in + x * 2) : Little32(in + x * 4);
            for (int channel = 0; channel < 3; ++channel) {
                uint32_t mask = masks[2 - channel]; // out is B, G, R
                if (mask == 0)
                    continue;
                uint32_t field = (value & mask) >> std::countr_zero(mask);
                uint32_t top = mask >> std::countr_zero(mask);
                out[x * 4 + channel] = static_cast<uint8_t>(field * 255 / top);
            }
        }
    }
    return result;
}

} // namespace

platform::Dib ReadDib(std::span<const uint8_t> bytes, size_t pixelsAt, const std::string& format, int32_t rows)
{
    if (bytes.size() < 40)
        BadPicture(format, "the bitmap header is cut short");
    uint32_t headerSize = Little32(&bytes[0]);
    if (headerSize < 40 || headerSize > bytes.size())
        BadPicture(format, headerSize == 12 ? "old-style (core) bitmap headers are not supported"
                                            : "the bitmap header size is wrong");
    auto width = static_cast<int32_t>(Little32(&bytes[4]));
    auto height = static_cast<int32_t>(Little32(&bytes[8]));
    int bitCount = Little16(&bytes[14]);
    uint32_t compression = Little32(&bytes[16]);
    uint32_t coloursUsed = Little32(&bytes[32]);
    bool topDown = height < 0;
    int64_t absoluteHeight = rows ? rows : (topDown ? -int64_t { height } : height);
    CheckSize(format, width, absoluteHeight);
    auto imageHeight = static_cast<int32_t>(absoluteHeight);

    bool packed = bitCount == 1 || bitCount == 4 || bitCount == 8 || bitCount == 24 || bitCount == 32;
    if (compression == kBitFields ? (bitCount != 16 && bitCount != 32) : compression != kPlain)
        BadPicture(format, "compressed bitmaps (compression " + std::to_string(compression) + ") are not supported");
    if (!packed && bitCount != 16)
        BadPicture(format, std::to_string(bitCount) + " bits per pixel is not a bitmap depth");

    size_t paletteAt = headerSize;
    uint32_t masks[3] = { 0x7C00, 0x03E0, 0x001F }; // 16-bit default: 5-5-5
    if (bitCount == 32)
        masks[0] = 0xFF0000, masks[1] = 0xFF00, masks[2] = 0xFF;
    if (compression == kBitFields) {
        size_t masksAt = 40; // after the 40 bytes, inside the later headers or after the first
        if (masksAt + 12 > bytes.size())
            BadPicture(format, "the colour masks are cut short");
        for (int i = 0; i < 3; ++i)
            masks[i] = Little32(&bytes[masksAt + 4 * static_cast<size_t>(i)]);
        if (headerSize == 40)
            paletteAt += 12;
    }
    size_t entries = bitCount <= 8 ? (coloursUsed ? coloursUsed : size_t { 1 } << bitCount) : 0;
    if (entries > 256)
        BadPicture(format, "the palette claims " + std::to_string(entries) + " colours");
    if (paletteAt + entries * 4 > bytes.size())
        BadPicture(format, "the palette is cut short");
    if (pixelsAt == 0)
        pixelsAt = paletteAt + entries * 4;
    uint64_t pixelBytes = uint64_t(platform::Dib::StrideFor(width, bitCount)) * uint64_t(imageHeight);
    if (pixelsAt > bytes.size() || bytes.size() - pixelsAt < pixelBytes)
        BadPicture(format, "the pixels are cut short");

    if (!packed || compression == kBitFields)
        return Unpack(bytes.data() + pixelsAt, width, imageHeight, topDown, bitCount, masks);
    platform::Dib dib(width, imageHeight, bitCount, topDown);
    for (size_t i = 0; i < entries; ++i) {
        const uint8_t* entry = &bytes[paletteAt + i * 4];
        dib.palette().push_back(platform::RgbQuad { entry[0], entry[1], entry[2], 0 });
    }
    std::memcpy(dib.bits().data(), bytes.data() + pixelsAt, dib.bits().size());
    return dib;
}

platform::Dib ReadBmp(std::span<const uint8_t> bytes)
{
    if (bytes.size() < 14 + 40 || bytes[0] != 'B' || bytes[1] != 'M')
        BadPicture("BMP", "the file header is cut short");
    uint32_t pixelsAt = Little32(&bytes[10]);
    if (pixelsAt < 14 + 40)
        BadPicture("BMP", "the pixel offset points into the headers");
    return ReadDib(bytes.subspan(14), pixelsAt - 14, "BMP");
}

} // namespace vex::pages::formats
