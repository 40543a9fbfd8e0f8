#include "png/pixel_convert.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "png/ancillary.h"
#include "png/compose.h"

namespace vex::png {

namespace {

using platform::Dib;
using platform::RgbQuad;

// Sample x of a row whose samples are `depth` bits wide (1, 2, 4 or 8), most significant first.
inline unsigned SampleAt(const uint8_t* row, size_t x, int depth)
{
    if (depth == 8)
        return row[x];
    size_t bit = x * static_cast<size_t>(depth);
    unsigned shift = 8u - static_cast<unsigned>(depth) - static_cast<unsigned>(bit % 8);
    return (row[bit / 8] >> shift) & ((1u << depth) - 1u);
}

inline unsigned Sample16(const uint8_t* bytes)
{
    return (unsigned{bytes[0]} << 8) | bytes[1];
}

std::vector<RgbQuad> GreyRamp(int depth)
{
    size_t entries = depth == 16 ? 256 : size_t{1} << depth;
    unsigned step = GreyRampStep(depth);
    std::vector<RgbQuad> ramp(entries);
    for (size_t i = 0; i < entries; ++i) {
        auto level = static_cast<uint8_t>(i * step);
        ramp[i] = RgbQuad{level, level, level, 0};
    }
    return ramp;
}

size_t PaletteEntries(const std::vector<uint8_t>& palette)
{
    return std::min<size_t>(palette.size() / 3, 256);
}

// Entries past 2^depth cannot be indexed and are not part of the bitmap's palette.
std::vector<RgbQuad> PaletteQuads(const std::vector<uint8_t>& palette, int depth)
{
    size_t entries = std::min(PaletteEntries(palette), size_t{1} << depth);
    std::vector<RgbQuad> quads(entries);
    for (size_t i = 0; i < entries; ++i)
        quads[i] = RgbQuad{palette[3 * i + 2], palette[3 * i + 1], palette[3 * i], 0};
    return quads;
}

// ---- Opaque paths -------------------------------------------------------------------------

// One byte per pixel from samples of 1, 2, 4 or 16 bits (16: the high byte).
void ExpandRowToBytes(const PngHeader& header, size_t width, const uint8_t* source, uint8_t* target)
{
    if (header.bitDepth == 16) {
        for (size_t x = 0; x < width; ++x)
            target[x] = source[2 * x];
    } else {
        for (size_t x = 0; x < width; ++x)
            target[x] = static_cast<uint8_t>(SampleAt(source, x, header.bitDepth));
    }
}

void RgbRowToBgr(const PngHeader& header, size_t width, const uint8_t* source, uint8_t* target)
{
    if (header.bitDepth == 8) {
        // A pixel at a time through a 32-bit word: bytes 0 and 2 trade places. The word's
        // fourth byte is the next pixel's first and is overwritten by it, so only the last
        // pixel of the row, which has no next pixel to read or to write over, goes bytewise.
        size_t x = 0;
        for (; x + 1 < width; ++x, source += 3, target += 3) {
            uint32_t value;
            std::memcpy(&value, source, 4);
            value = (value & 0xFF00FF00u) | ((value & 0xFFu) << 16) | ((value >> 16) & 0xFFu);
            std::memcpy(target, &value, 4);
        }
        target[0] = source[2];
        target[1] = source[1];
        target[2] = source[0];
    } else {
        for (size_t x = 0; x < width; ++x, source += 6, target += 3) {
            target[0] = source[4];
            target[1] = source[2];
            target[2] = source[0];
        }
    }
}

// ---- Paths with alpha ---------------------------------------------------------------------

TransparentValue TransparentSample(const PngHeader& header, const ChunkData& chunks, bool apply)
{
    TransparentValue value;
    if (!apply)
        return value;
    const std::vector<uint8_t>& t = chunks.transparency;
    unsigned mask = header.bitDepth >= 16 ? 0xFFFFu : (1u << header.bitDepth) - 1u;
    value.enabled = true;
    if (header.colorType == 0) {
        value.red = Sample16(t.data()) & mask;
    } else if (header.colorType == 2) {
        value.red = Sample16(t.data()) & mask;
        value.green = Sample16(t.data() + 2) & mask;
        value.blue = Sample16(t.data() + 4) & mask;
    }
    return value;
}

// R, G, B, A pixels to B, G, R, A: in each 32-bit pixel (little-endian A B G R), bytes 0 and 2
// trade places; green and alpha stay. Four pixels per step with SSE2.
void SwapRedAndBlue(const uint8_t* source, uint8_t* out, size_t width)
{
    size_t x = 0;
#if defined(__SSE2__)
    const __m128i keep = _mm_set1_epi32(static_cast<int>(0xFF00FF00u));
    const __m128i low = _mm_set1_epi32(0x000000FF);
    for (; x + 4 <= width; x += 4) {
        __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + 4 * x));
        __m128i red = _mm_and_si128(pixels, low);
        __m128i blue = _mm_and_si128(_mm_srli_epi32(pixels, 16), low);
        __m128i swapped = _mm_or_si128(_mm_and_si128(pixels, keep), _mm_or_si128(_mm_slli_epi32(red, 16), blue));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4 * x), swapped);
    }
#endif
    for (; x < width; ++x) {
        out[4 * x] = source[4 * x + 2];
        out[4 * x + 1] = source[4 * x + 1];
        out[4 * x + 2] = source[4 * x];
        out[4 * x + 3] = source[4 * x + 3];
    }
}

// `width` pixels of a row as B, G, R, A bytes.
void ExpandRowToBgra(const PngHeader& header, size_t width, const uint8_t* source, const ChunkData& chunks,
                     const TransparentValue& transparent, const std::vector<RgbQuad>& ramp, uint8_t* out)
{
    int depth = header.bitDepth;
    bool wide = depth == 16;
    switch (header.colorType) {
    case 0:
        for (size_t x = 0; x < width; ++x, out += 4) {
            unsigned sample = wide ? Sample16(source + 2 * x) : SampleAt(source, x, depth);
            uint8_t grey = wide ? source[2 * x] : ramp[sample].red;
            out[0] = out[1] = out[2] = grey;
            out[3] = (transparent.enabled && sample == transparent.red) ? 0 : 255;
        }
        break;
    case 2:
        for (size_t x = 0; x < width; ++x, out += 4) {
            unsigned red, green, blue;
            if (wide) {
                red = Sample16(source + 6 * x);
                green = Sample16(source + 6 * x + 2);
                blue = Sample16(source + 6 * x + 4);
                out[0] = static_cast<uint8_t>(blue >> 8);
                out[1] = static_cast<uint8_t>(green >> 8);
                out[2] = static_cast<uint8_t>(red >> 8);
            } else {
                red = source[3 * x];
                green = source[3 * x + 1];
                blue = source[3 * x + 2];
                out[0] = static_cast<uint8_t>(blue);
                out[1] = static_cast<uint8_t>(green);
                out[2] = static_cast<uint8_t>(red);
            }
            bool clear = transparent.enabled && red == transparent.red && green == transparent.green &&
                         blue == transparent.blue;
            out[3] = clear ? 0 : 255;
        }
        break;
    case 3: {
        size_t entries = PaletteEntries(chunks.palette);
        size_t alphas = std::min(entries, chunks.transparency.size());
        for (size_t x = 0; x < width; ++x, out += 4) {
            unsigned index = SampleAt(source, x, depth);
            if (index < entries) {
                out[0] = chunks.palette[3 * index + 2];
                out[1] = chunks.palette[3 * index + 1];
                out[2] = chunks.palette[3 * index];
            } else {
                out[0] = out[1] = out[2] = 0;
            }
            out[3] = index < alphas ? chunks.transparency[index] : 255;
        }
        break;
    }
    case 4: {
        size_t pixelBytes = wide ? 4 : 2;
        size_t alphaOffset = wide ? 2 : 1;
        for (size_t x = 0; x < width; ++x, out += 4, source += pixelBytes) {
            out[0] = out[1] = out[2] = source[0];
            out[3] = source[alphaOffset];
        }
        break;
    }
    case 6:
        if (wide) {
            for (size_t x = 0; x < width; ++x, out += 4, source += 8) {
                out[0] = source[4];
                out[1] = source[2];
                out[2] = source[0];
                out[3] = source[6];
            }
        } else {
            SwapRedAndBlue(source, out, width);
        }
        break;
    default: break;
    }
}

// The background under `width` pixels of image row y at columns first, first + step, ...,
// B, G, R: the background picture's pixels where it covers the image (offset by the SetToBkgrnd
// position), the background colour elsewhere.
void FillBackgroundRow(const ConversionSettings& settings, int32_t y, size_t width, size_t first, size_t step, uint8_t* out)
{
    const Dib* picture = settings.backgroundPicture;
    int64_t pictureY = int64_t{y} + settings.pictureY;
    for (size_t x = 0; x < width; ++x, out += 3) {
        ColorRef colour = settings.background;
        int64_t pictureX = static_cast<int64_t>(first + x * step) + settings.pictureX;
        if (picture != nullptr && pictureX >= 0 && pictureY >= 0 && pictureX < picture->width() &&
            pictureY < picture->height())
            colour = picture->pixel(static_cast<int32_t>(pictureX), static_cast<int32_t>(pictureY));
        out[0] = static_cast<uint8_t>(BlueOf(colour));
        out[1] = static_cast<uint8_t>(GreenOf(colour));
        out[2] = static_cast<uint8_t>(RedOf(colour));
    }
}

} // namespace

bool TransparencyUsable(int32_t colorType, const std::vector<uint8_t>& transparency)
{
    switch (colorType) {
    case 0: return transparency.size() == 2;
    case 2: return transparency.size() == 6;
    case 3: return !transparency.empty();
    default: return false;
    }
}

RowConverter::RowConverter(const PngHeader& header, bool interlaced, const ChunkData& chunks,
                           const ConversionSettings& settings)
    : header_(header)
    , chunks_(chunks)
    , settings_(settings)
{
    if (!IsSupportedFormat(header.colorType, header.bitDepth))
        return;
    int depth = header.bitDepth;
    bool applyTransparency = false;
    if (header.colorType == 4 || header.colorType == 6) {
        path_ = settings.useAlpha ? Path::Compose : Path::Bgra;
    } else if (settings.useTransparency && chunks.hasTransparency && TransparencyUsable(header.colorType, chunks.transparency)) {
        path_ = Path::Compose;
        applyTransparency = true;
    } else if (header.colorType == 2) {
        path_ = Path::Bgr;
    } else {
        bool packedKept = header.colorType == 0 ? (depth == 8) || ((depth == 1 || depth == 4) && !interlaced) : depth != 2;
        path_ = packedKept ? Path::Packed : Path::Bytes;
    }

    // Every row is converted before the bitmap is handed on, so its pixels need no zeros first.
    switch (path_) {
    case Path::Packed:
        // Interlaced pixels of under 8 bits are set a few bits at a time, into zeros.
        bitmap_ = interlaced && depth < 8 ? Dib(header.width, header.height, depth, true)
                                          : Dib::ForWriting(header.width, header.height, depth, true);
        break;
    case Path::Bytes: bitmap_ = Dib::ForWriting(header.width, header.height, 8, true); break;
    case Path::Bgr: bitmap_ = Dib::ForWriting(header.width, header.height, 24, true); break;
    case Path::Bgra: bitmap_ = Dib::ForWriting(header.width, header.height, 32, false); break;
    case Path::Compose: bitmap_ = Dib::ForWriting(header.width, header.height, 24, false); break;
    case Path::None: return;
    }
    if (header.colorType == 0 && path_ != Path::Bgra && path_ != Path::Compose)
        bitmap_.palette() = GreyRamp(depth);
    else if (header.colorType == 3 && path_ != Path::Compose)
        bitmap_.palette() = PaletteQuads(chunks.palette, depth);

    if (path_ == Path::Bgra || path_ == Path::Compose) {
        transparent_ = TransparentSample(header, chunks, applyTransparency);
        if (header.colorType == 0 && header.bitDepth != 16)
            ramp_ = GreyRamp(header.bitDepth);
    }
    if (path_ == Path::Compose) {
        size_t width = static_cast<size_t>(header.width);
        bgra_.resize(width * 4);
        background_.resize(width * 3);
        if (settings.backgroundPicture == nullptr)
            FillBackgroundRow(settings, 0, width, 0, 1, background_.data());
    }
}

void RowConverter::ConvertRow(int32_t y, const uint8_t* row)
{
    ConvertPixels(y, row, static_cast<size_t>(header_.width), 0, 1, bitmap_.row(y));
}

void RowConverter::ConvertPixels(int32_t y, const uint8_t* row, size_t count, size_t first, size_t step, uint8_t* target)
{
    switch (path_) {
    case Path::Packed:
        std::memcpy(target, row, (count * static_cast<size_t>(header_.bitDepth) + 7) / 8);
        break;
    case Path::Bytes: ExpandRowToBytes(header_, count, row, target); break;
    case Path::Bgr: RgbRowToBgr(header_, count, row, target); break;
    case Path::Bgra: ExpandRowToBgra(header_, count, row, chunks_, transparent_, ramp_, target); break;
    case Path::Compose:
        ExpandRowToBgra(header_, count, row, chunks_, transparent_, ramp_, bgra_.data());
        if (settings_.backgroundPicture != nullptr)
            FillBackgroundRow(settings_, y, count, first, step, background_.data());
        ComposeRow(bgra_.data(), background_.data(), target, count);
        break;
    case Path::None: break;
    }
}

std::optional<Dib> ConvertImage(const PngHeader& header, const PackedImage& image, const ChunkData& chunks,
                                const ConversionSettings& settings)
{
    RowConverter converter(header, image.interlaced, chunks, settings);
    if (!converter.Supported())
        return std::nullopt;
    for (int32_t y = 0; y < header.height; ++y)
        converter.ConvertRow(y, image.pixels + static_cast<size_t>(y) * image.stride);
    return converter.Finish();
}

} // namespace vex::png
