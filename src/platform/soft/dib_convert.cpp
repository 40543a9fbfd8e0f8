#include "platform/soft/dib_convert.h"

#include <array>
#include <cstring>

namespace vex::platform::soft {
namespace {

// Palette as pixels, always 256 entries so that any index is safe (missing ones are black).
std::array<Pixel, 256> PaletteTable(const Dib& dib)
{
    std::array<Pixel, 256> table {};
    size_t count = std::min<size_t>(dib.palette().size(), table.size());
    for (size_t i = 0; i < count; ++i) {
        const RgbQuad& q = dib.palette()[i];
        table[i] = (uint32_t { q.red } << 16) | (uint32_t { q.green } << 8) | q.blue;
    }
    return table;
}

void ConvertRow(const Dib& dib, const uint8_t* in, Pixel* out, const std::array<Pixel, 256>& palette)
{
    int32_t width = dib.width();
    switch (dib.bitCount()) {
    case 1:
        for (int32_t x = 0; x < width; ++x)
            out[x] = palette[(in[x >> 3] >> (7 - (x & 7))) & 1u];
        break;
    case 4:
        for (int32_t x = 0; x < width; ++x)
            out[x] = palette[(in[x >> 1] >> ((x & 1) ? 0 : 4)) & 0xFu];
        break;
    case 8:
        for (int32_t x = 0; x < width; ++x)
            out[x] = palette[in[x]];
        break;
    case 24:
        for (int32_t x = 0; x < width; ++x, in += 3)
            out[x] = (uint32_t { in[2] } << 16) | (uint32_t { in[1] } << 8) | in[0];
        break;
    default: // 32: B, G, R, A, the fourth byte kept as a compatible bitmap keeps it
        std::memcpy(out, in, static_cast<size_t>(width) * sizeof(Pixel));
        break;
    }
}

} // namespace

std::shared_ptr<SoftBitmap> BitmapFromDib(const Dib& dib)
{
    if (!SoftBitmap::SizeAllowed(dib.width(), dib.height()))
        return nullptr;
    // A Dib whose buffer is shorter than its rows claim (built by hand) converts nothing.
    if (dib.bits().size() < static_cast<size_t>(dib.stride()) * static_cast<size_t>(dib.height()))
        return nullptr;
    auto bitmap = std::make_shared<SoftBitmap>(dib.width(), dib.height());
    auto palette = PaletteTable(dib);
    for (int32_t y = 0; y < dib.height(); ++y)
        ConvertRow(dib, dib.row(y), bitmap->row(y), palette);
    return bitmap;
}

Dib DibFromBitmap(const SoftBitmap& bitmap)
{
    Dib dib(bitmap.width(), bitmap.height(), 32, true);
    for (int32_t y = 0; y < bitmap.height(); ++y) {
        uint8_t* out = dib.row(y);
        std::memcpy(out, bitmap.row(y), static_cast<size_t>(bitmap.width()) * sizeof(Pixel));
        for (int32_t x = 0; x < bitmap.width(); ++x)
            out[4 * x + 3] = 0; // a device's pixels read back without the fourth byte
    }
    return dib;
}

} // namespace vex::platform::soft
