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

// The part of a width x height destination at (x, y) that lies on the target, and a source
// stretched onto exactly that part (a work bitmap of its size, same pixels as a full one).
struct Visible {
    int64_t left = 0, top = 0, right = 0, bottom = 0;
    bool empty() const { return left >= right || top >= bottom; }
};

Visible VisiblePart(const SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height)
{
    return Visible { std::max<int64_t>(0, x), std::max<int64_t>(0, y), std::min<int64_t>(target.width(), int64_t { x } + width),
        std::min<int64_t>(target.height(), int64_t { y } + height) };
}

SoftBitmap StretchedOnto(const Visible& part, int32_t x, int32_t y, int32_t width, int32_t height, const SoftBitmap& source)
{
    SoftBitmap work(static_cast<int32_t>(part.right - part.left), static_cast<int32_t>(part.bottom - part.top));
    StretchRect(work, static_cast<int32_t>(x - part.left), static_cast<int32_t>(y - part.top), width, height, source, 0, 0,
        source.width(), source.height(), kStretchDeleteScans);
    return work;
}

enum class Raster { And, Xor, Copy };

void Combine(SoftBitmap& target, const Visible& part, const SoftBitmap& work, Raster raster)
{
    for (int64_t ty = part.top; ty < part.bottom; ++ty) {
        const Pixel* in = work.row(static_cast<int32_t>(ty - part.top));
        Pixel* out = target.row(static_cast<int32_t>(ty));
        for (int64_t tx = part.left; tx < part.right; ++tx) {
            Pixel p = in[tx - part.left];
            out[tx] = raster == Raster::And ? (out[tx] & p) : raster == Raster::Xor ? (out[tx] ^ p) : p;
        }
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
    Visible part = VisiblePart(target, x, y, width, height);
    if (part.empty())
        return;
    SoftBitmap stretchedColors = StretchedOnto(part, x, y, width, height, colors);
    SoftBitmap stretchedAlphas = StretchedOnto(part, x, y, width, height, alphas);
    for (int64_t ty = part.top; ty < part.bottom; ++ty) {
        Pixel* out = target.row(static_cast<int32_t>(ty));
        const Pixel* source = stretchedColors.row(static_cast<int32_t>(ty - part.top));
        const Pixel* alpha = stretchedAlphas.row(static_cast<int32_t>(ty - part.top));
        for (int64_t tx = part.left; tx < part.right; ++tx) {
            Pixel s = source[tx - part.left], d = out[tx];
            uint32_t a = alpha[tx - part.left];
            Pixel result = 0;
            for (int shift = 0; shift <= 16; shift += 8) {
                uint32_t channel = ((s >> shift) & 0xFFu) + (((d >> shift) & 0xFFu) * (255 - a) + 127) / 255;
                result |= std::min<uint32_t>(channel, 255) << shift;
            }
            // The fourth byte is blended as a channel whose premultiplied value is the alpha
            // itself, so a blended pixel keeps a non-zero one wherever the icon is not clear.
            result |= (a + ((d >> 24) * (255 - a) + 127) / 255) << 24;
            out[tx] = result;
        }
    }
}

} // namespace

void DrawIconImage(SoftBitmap& target, int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height,
    uint32_t flags)
{
    const Dib& color = icon.color;
    if (color.empty() || !(flags & (kDrawIconMask | kDrawIconImage)))
        return;
    if (width == 0)
        width = color.width();
    if (height == 0)
        height = color.height();
    if (width < 0 || height < 0)
        return;
    if ((flags & kDrawIconImage) && HasAlpha(color)) {
        BlendAlpha(target, x, y, icon, width, height);
        return;
    }
    Visible part = VisiblePart(target, x, y, width, height);
    if (part.empty())
        return;
    bool both = (flags & kDrawIconMask) && (flags & kDrawIconImage);
    if (flags & kDrawIconMask) {
        SoftBitmap mask = MaskPixels(icon.mask, color.width(), color.height());
        Combine(target, part, StretchedOnto(part, x, y, width, height, mask), both ? Raster::And : Raster::Copy);
    }
    if (flags & kDrawIconImage) {
        if (auto colors = BitmapFromDib(color))
            Combine(target, part, StretchedOnto(part, x, y, width, height, *colors), both ? Raster::Xor : Raster::Copy);
    }
}

} // namespace vex::platform::soft
