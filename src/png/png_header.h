#pragma once
// The IHDR fields as the file declares them, and the sizes derived from them.
//
//   IHDR payload (13 bytes):  width(4, BE) height(4, BE) depth(1) colour type(1)
//                             compression(1) filter(1) interlace(1)
//
// Nothing is validated when the header is read; the decode checks what it needs.

#include <array>
#include <cstdint>

namespace vex::png {

inline constexpr int kHeaderSize = 13;

struct PngHeader {
    int32_t width = 0;
    int32_t height = 0;
    int32_t bitDepth = 0;
    int32_t colorType = 0;
    int32_t compression = 0;
    int32_t filter = 0;
    int32_t interlace = 0;
};

// Samples per pixel by colour type; 0 for the types that do not exist (1, 5, 7 and above).
constexpr int ChannelsOf(int32_t colorType)
{
    switch (colorType) {
    case 0:
    case 3: return 1;
    case 2: return 3;
    case 4: return 2;
    case 6: return 4;
    default: return 0;
    }
}

constexpr int BitsPerPixel(const PngHeader& header)
{
    if (header.bitDepth < 0 || header.bitDepth > 255)
        return 0;
    return header.bitDepth * ChannelsOf(header.colorType);
}

// Bytes of one whole pixel, the distance the Sub, Average and Paeth filters look back; 1 for
// pixels smaller than a byte.
constexpr int FilterStep(int bitsPerPixel)
{
    int step = bitsPerPixel / 8;
    return step == 0 ? 1 : step;
}

// Bytes of a packed row of `width` pixels, without the filter-type byte. 64-bit: the caller
// checks the image against its limits before using it as a size.
constexpr int64_t PackedRowBytes(int64_t width, int bitsPerPixel)
{
    return (width * bitsPerPixel + 7) / 8;
}

// The one colour type / depth table the decoder supports (everything else makes no picture).
constexpr bool IsSupportedFormat(int32_t colorType, int32_t bitDepth)
{
    switch (colorType) {
    case 0: return bitDepth == 1 || bitDepth == 2 || bitDepth == 4 || bitDepth == 8 || bitDepth == 16;
    case 3: return bitDepth == 1 || bitDepth == 2 || bitDepth == 4 || bitDepth == 8;
    case 2:
    case 4:
    case 6: return bitDepth == 8 || bitDepth == 16;
    default: return false;
    }
}

} // namespace vex::png
