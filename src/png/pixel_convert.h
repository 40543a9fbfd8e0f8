#pragma once
// From the packed, unfiltered image to the device-independent bitmap the picture is made of.
//
//   colour type  depth        bitmap                                   rows
//   0 grey       1, 4, 8      the depth itself, grey ramp palette      top row first
//                1, 4 (Adam7) 8, one byte per pixel, ramp palette      top row first
//                2            8, one byte per pixel, 4-entry ramp      top row first
//                16           8, high byte of each sample, 256 ramp    top row first
//   2 RGB        8, 16        24 (B, G, R), high bytes                 top row first
//   3 palette    1, 4, 8      the depth itself, PLTE as palette        top row first
//                2            8, one byte per pixel                    top row first
//   4 grey+alpha 8, 16        32 (B, G, R, A), grey in B, G and R      bottom row first
//   6 RGBA       8, 16        32 (B, G, R, A)                          bottom row first
//
// With the alpha option, types 4 and 6 are composed onto the background and become 24-bit;
// with the transparency option and a usable tRNS chunk, types 0, 2 and 3 are widened to
// B, G, R, A with the tRNS alpha and composed the same way. The composed bitmaps keep the alpha
// paths' bottom-row-first order. 16-bit samples keep their high byte (truncated, not rounded).
//
// tRNS: grey (2 bytes) and RGB (6 bytes) name one transparent sample value, compared with the
// full sample (the value's low `depth` bits for depths under 16); palette tRNS gives one alpha
// per entry, entries past the tRNS data (or past the palette) being opaque. A tRNS of any other
// length is not usable, and the image is then converted as if it had none.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/ole_color.h"
#include "platform/dib.h"
#include "png/png_header.h"

namespace vex::png {

struct PackedImage {
    const uint8_t* pixels = nullptr; // first pixel byte of the top row
    size_t stride = 0;               // bytes from one row to the next
    bool interlaced = false;         // came through Adam7
};

struct ConversionSettings {
    bool useAlpha = false;
    bool useTransparency = false;
    ColorRef background = 0;                        // 0x00BBGGRR
    const platform::Dib* backgroundPicture = nullptr; // composed onto when set
    int32_t pictureX = 0;                           // image (0, 0) sits at this picture pixel
    int32_t pictureY = 0;
};

struct ChunkData {
    const std::vector<uint8_t>& palette;      // R, G, B triples
    const std::vector<uint8_t>& transparency; // tRNS payload
    bool hasTransparency;
};

// The colour a tRNS chunk names as transparent (grey uses red), when it applies.
struct TransparentValue {
    bool enabled = false;
    unsigned red = 0, green = 0, blue = 0;
};

// The conversion a row at a time, in any order: the bitmap is made first, each packed row is
// converted into its place. Nothing for colour types and depths the decoder does not show.
class RowConverter {
public:
    RowConverter(const PngHeader& header, bool interlaced, const ChunkData& chunks, const ConversionSettings& settings);
    bool Supported() const { return path_ != Path::None; }
    // Converts image row y (0 = top) from its packed, unfiltered bytes.
    void ConvertRow(int32_t y, const uint8_t* row);
    // Converts `count` packed pixels that belong at columns first, first + step, ... of image
    // row y into `count` consecutive pixels of the bitmap's format at `target` (an Adam7 pass
    // row, before it is scattered). Packed pixels of under 8 bits only as whole rows.
    void ConvertPixels(int32_t y, const uint8_t* row, size_t count, size_t first, size_t step, uint8_t* target);
    platform::Dib& Bitmap() { return bitmap_; }
    platform::Dib Finish() { return std::move(bitmap_); }

private:
    enum class Path { None, Packed, Bytes, Bgr, Bgra, Compose };
    const PngHeader& header_;
    const ChunkData& chunks_;
    const ConversionSettings& settings_;
    Path path_ = Path::None;
    platform::Dib bitmap_;
    TransparentValue transparent_;
    std::vector<platform::RgbQuad> ramp_;
    std::vector<uint8_t> bgra_;       // a row before composition
    std::vector<uint8_t> background_; // the background under it
};

// The bitmap, or nothing for colour types and depths the decoder does not show.
std::optional<platform::Dib> ConvertImage(const PngHeader& header, const PackedImage& image,
                                          const ChunkData& chunks, const ConversionSettings& settings);

// Whether the tRNS chunk can be applied to this colour type.
bool TransparencyUsable(int32_t colorType, const std::vector<uint8_t>& transparency);

} // namespace vex::png
