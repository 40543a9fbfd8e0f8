#pragma once
// The software layer's bitmap: 32 bits per pixel, top-down rows without padding.
//
//   pixel: 0xAARRGGBB as a uint32_t, which in memory is B, G, R, A — the byte order of a 32-bit
//   DIB row. ColorRef (0x00BBGGRR) is converted at the API edge.
//
//   The fourth byte is not a colour: fills, lines and text write 0 there and a snapshot reads it
//   as 0. But GDI keeps it in 32-bit bitmaps, copies it with every blit, and TransparentBlt
//   compares whole pixels with its key, so a key-coloured pixel with a non-zero fourth byte is
//   drawn. The software bitmap keeps it for that reason.

#include <cstdint>
#include <vector>

#include "base/ole_color.h"
#include "platform/device_context.h"

namespace vex::platform::soft {

using Pixel = uint32_t;

// GDI's default palette, the 20 static colours, as 0x00BBGGRR.
inline constexpr ColorRef kDefaultPalette[20] = { 0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080,
    0x808000, 0xC0C0C0, 0xC0DCC0, 0xF0CAA6, 0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000,
    0xFF00FF, 0xFFFF00, 0xFFFFFF };

// A colour as GDI paints it on a true-colour surface: with bit 24 set the low 16 bits are an
// index into the default palette (black past its end, so -1 is black); any other high byte is
// ignored.
constexpr Pixel PixelFromColorRef(ColorRef color)
{
    if (color & 0x01000000u) {
        const uint32_t index = color & 0xFFFFu;
        color = index < 20 ? kDefaultPalette[index] : 0u;
    }
    return ((color & 0xFFu) << 16) | (color & 0xFF00u) | ((color >> 16) & 0xFFu);
}

constexpr ColorRef ColorRefFromPixel(Pixel pixel)
{
    return ((pixel & 0xFFu) << 16) | (pixel & 0xFF00u) | ((pixel >> 16) & 0xFFu);
}

class SoftBitmap final : public Bitmap {
public:
    // Largest bitmap the layer creates, 64 M pixels (256 MB): GDI refuses huge bitmaps too, and
    // callers get nullptr rather than an allocation that cannot succeed.
    static constexpr int64_t kMaxPixels = int64_t{1} << 26;
    static bool SizeAllowed(int32_t width, int32_t height);

    // A black bitmap; the size must be allowed (callers check SizeAllowed first).
    SoftBitmap(int32_t width, int32_t height);

    Size size() const override { return Size { width_, height_ }; }
    int32_t width() const { return width_; }
    int32_t height() const { return height_; }

    Pixel* row(int32_t y) { return pixels_.data() + static_cast<size_t>(y) * static_cast<size_t>(width_); }
    const Pixel* row(int32_t y) const { return pixels_.data() + static_cast<size_t>(y) * static_cast<size_t>(width_); }
    std::vector<Pixel>& pixels() { return pixels_; }
    const std::vector<Pixel>& pixels() const { return pixels_; }

    bool Contains(int32_t x, int32_t y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    // Changes the size, keeping the pixels of the overlapping area; new pixels are black.
    void Resize(int32_t width, int32_t height);

private:
    int32_t width_ = 0;
    int32_t height_ = 0;
    std::vector<Pixel> pixels_;
};

} // namespace vex::platform::soft
