#include <algorithm>

#include "platform/soft/dib_convert.h"
#include "platform/soft/raster.h"

namespace vex::platform::soft {
namespace {

constexpr uint32_t kDrawIconMask = 1;
constexpr uint32_t kDrawIconImage = 2;

bool HasAlpha(const Dib& color)
{
    if (color.bitCount() != 32)
        return false;
    for (int32_t y = 0; y < color.height(); ++y) {
        const uint8_t* row = color.row(y);
        for (int32_t x = 0; x < color.width(); ++x)
            if (row[x * 4 + 3] != 0)
                return true;
    }
    return false;
}

// The mask as pixels: white where the mask bit is 1 (keep), black where it is 0, as a
// monochrome source blits with black text and a white background.
SoftBitmap MaskPixels(const Dib& mask, int32_t width, int32_t height)
{
    SoftBitmap pixels(width, height);
    bool usable = mask.bitCount() == 1 && mask.width() >= width && mask.height() >= height
        && mask.bits().size() >= static_cast<size_t>(mask.stride()) * static_cast<size_t>(mask.height());
    for (int32_t y = 0; y < height; ++y) {
        Pixel* out = pixels.row(y);
        const uint8_t* in = usable ? mask.row(y) : nullptr;
        for (int32_t x = 0; x < width; ++x)
            out[x] = in && ((in[x >> 3] >> (7 - (x & 7))) & 1u) ? 0x00FFFFFFu : 0u;
    }
    return pixels;
}

void Combine(SoftBitmap& target, int32_t x, int32_t y, const SoftBitmap& work, bool xorMode)
{
    int64_t left = std::max<int64_t>(0, x), right = std::min<int64_t>(target.width(), int64_t { x } + work.width());
    int64_t top = std::max<int64_t>(0, y), bottom = std::min<int64_t>(target.height(), int64_t { y } + work.height());
    for (int64_t ty = top; ty < bottom; ++ty) {
        const Pixel* in = work.row(static_cast<int32_t>(ty - y));
        Pixel* out = target.row(static_cast<int32_t>(ty));
        for (int64_t tx = left; tx < right; ++tx)
            out[tx] = xorMode ? (out[tx] ^ in[tx - x]) : (out[tx] & in[tx - x]);
    }
}

void BlendAlpha(SoftBitmap& target, int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height)
{
    const Dib& color = icon.color;
    // Premultiplied colour and the alpha, each as a bitmap so that both stretch alike.
    SoftBitmap colors(color.width(), color.height()), alphas(color.width(), color.height());
    for (int32_t row = 0; row < color.height(); ++row) {
        const uint8_t* in = color.row(row);
        for (int32_t column = 0; column < color.width(); ++column, in += 4) {
            uint32_t alpha = in[3];
            // CreateIconIndirect premultiplies an alpha icon's colours, rounding to nearest.
            auto premultiply = [alpha](uint32_t channel) { return (channel * alpha + 127) / 255; };
            colors.row(row)[column] = (premultiply(in[2]) << 16) | (premultiply(in[1]) << 8) | premultiply(in[0]);
            alphas.row(row)[column] = alpha;
        }
    }
    SoftBitmap stretchedColors(width, height), stretchedAlphas(width, height);
    StretchRect(stretchedColors, 0, 0, width, height, colors, 0, 0, color.width(), color.height(), kStretchDeleteScans);
    StretchRect(stretchedAlphas, 0, 0, width, height, alphas, 0, 0, color.width(), color.height(), kStretchDeleteScans);
    int64_t left = std::max<int64_t>(0, x), right = std::min<int64_t>(target.width(), int64_t { x } + width);
    int64_t top = std::max<int64_t>(0, y), bottom = std::min<int64_t>(target.height(), int64_t { y } + height);
    for (int64_t ty = top; ty < bottom; ++ty) {
        Pixel* out = target.row(static_cast<int32_t>(ty));
        const Pixel* source = stretchedColors.row(static_cast<int32_t>(ty - y));
        const Pixel* alpha = stretchedAlphas.row(static_cast<int32_t>(ty - y));
        for (int64_t tx = left; tx < right; ++tx) {
            Pixel s = source[tx - x], d = out[tx];
            uint32_t a = alpha[tx - x];
            Pixel result = 0;
            for (int shift = 0; shift <= 16; shift += 8) {
                uint32_t channel = ((s >> shift) & 0xFFu) + (((d >> shift) & 0xFFu) * (255 - a) + 127) / 255;
                result |= std::min<uint32_t>(channel, 255) << shift;
            }
            out[tx] = result;
        }
    }
}

} // namespace

void DrawIconImage(SoftBitmap& target, int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height,
    uint32_t flags)
{
    constexpr int stretchMode = kStretchDeleteScans;
    const Dib& color = icon.color;
    if (color.empty() || !(flags & (kDrawIconMask | kDrawIconImage)))
        return;
    if (width == 0)
        width = color.width();
    if (height == 0)
        height = color.height();
    if (width < 0 || height < 0 || !SoftBitmap::SizeAllowed(width, height))
        return;
    if ((flags & kDrawIconImage) && HasAlpha(color)) {
        BlendAlpha(target, x, y, icon, width, height);
        return;
    }
    if (flags & kDrawIconMask) {
        SoftBitmap mask = MaskPixels(icon.mask, color.width(), color.height());
        SoftBitmap work(width, height);
        StretchRect(work, 0, 0, width, height, mask, 0, 0, mask.width(), mask.height(), stretchMode);
        if (flags & kDrawIconImage)
            Combine(target, x, y, work, false);
        else
            CopyRect(target, x, y, width, height, work, 0, 0);
    }
    if (flags & kDrawIconImage) {
        auto colors = BitmapFromDib(color);
        if (!colors)
            return;
        SoftBitmap work(width, height);
        StretchRect(work, 0, 0, width, height, *colors, 0, 0, colors->width(), colors->height(), stretchMode);
        if (flags & kDrawIconMask)
            Combine(target, x, y, work, true);
        else
            CopyRect(target, x, y, width, height, work, 0, 0);
    }
}

} // namespace vex::platform::soft
