#include "helpers.h"

namespace vex::drawtest {

ColorRef Hue(int index)
{
    static constexpr ColorRef kHues[] = {
        Rgb(255, 0, 0), Rgb(0, 200, 0), Rgb(0, 0, 255), Rgb(255, 255, 0), Rgb(255, 0, 255), Rgb(0, 255, 255),
        Rgb(255, 128, 0), Rgb(128, 0, 255), Rgb(0, 128, 128), Rgb(128, 128, 0), Rgb(255, 255, 255), Rgb(160, 80, 40),
    };
    constexpr int count = static_cast<int>(sizeof(kHues) / sizeof(kHues[0]));
    return kHues[((index % count) + count) % count];
}

Dib PatternDib(int32_t width, int32_t height, int bitCount, bool topDown)
{
    Dib dib(width, height, bitCount, topDown);
    if (bitCount <= 8) {
        int colors = 1 << bitCount;
        for (int i = 0; i < colors; ++i) {
            ColorRef color = i < 12 ? Hue(i) : Rgb((i * 37) & 0xFF, (i * 91) & 0xFF, (i * 53) & 0xFF);
            dib.palette().push_back({ static_cast<uint8_t>(BlueOf(color)), static_cast<uint8_t>(GreenOf(color)),
                static_cast<uint8_t>(RedOf(color)), 0 });
        }
        for (int32_t y = 0; y < height; ++y) {
            uint8_t* row = dib.row(y);
            for (int32_t x = 0; x < width; ++x) {
                unsigned index = static_cast<unsigned>(x + 2 * y + (x * y) / 5) % static_cast<unsigned>(colors);
                if (bitCount == 8)
                    row[x] = static_cast<uint8_t>(index);
                else if (bitCount == 4)
                    row[x / 2] |= static_cast<uint8_t>(index << (x % 2 ? 0 : 4));
                else
                    row[x / 8] |= static_cast<uint8_t>(index << (7 - x % 8));
            }
        }
        return dib;
    }
    int bytes = bitCount / 8;
    for (int32_t y = 0; y < height; ++y) {
        uint8_t* row = dib.row(y);
        for (int32_t x = 0; x < width; ++x) {
            row[x * bytes + 0] = static_cast<uint8_t>(x * 255 / (width > 1 ? width - 1 : 1));
            row[x * bytes + 1] = static_cast<uint8_t>(y * 255 / (height > 1 ? height - 1 : 1));
            row[x * bytes + 2] = static_cast<uint8_t>(((x / 3 + y / 3) % 2) ? 220 : 30);
            if (bytes == 4)
                row[x * bytes + 3] = static_cast<uint8_t>(x + y); // ignored by blits
        }
    }
    return dib;
}

Source MakeSource(DeviceContext& target, const Dib& dib)
{
    Source source;
    source.dc = target.CreateCompatibleDC();
    source.bitmap = target.CreateBitmapFromDib(dib);
    source.dc->SelectBitmap(source.bitmap);
    return source;
}

Source MakeDrawnSource(DeviceContext& target, int32_t width, int32_t height)
{
    Source source;
    source.dc = target.CreateCompatibleDC();
    source.bitmap = target.CreateCompatibleBitmap(width, height);
    source.dc->SelectBitmap(source.bitmap);
    DeviceContext& dc = *source.dc;
    dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(40, 60, 200)));
    dc.FrameRect({ 0, 0, width, height }, Brush::Solid(Rgb(255, 255, 0)));
    dc.FillRect({ 2, 2, width / 2, height / 3 }, Brush::Solid(Rgb(255, 0, 0)));
    dc.FillRect({ width / 2, height / 2, width - 2, height - 2 }, Brush::Solid(Rgb(0, 255, 0)));
    dc.FillRect({ 3, height - 4, width - 3, height - 3 }, Brush::Solid(Rgb(255, 255, 255)));
    for (int32_t x = 4; x < width - 4; x += 3)
        dc.FillRect({ x, height / 3 + 1, x + 1, height / 2 }, Brush::Solid(Rgb(255, 0, 255)));
    return source;
}

// A 16x16 icon: a coloured disc-ish shape with a transparent surround and an inverted ring
// where the mask keeps the destination and the colour is not black (screen XOR).
platform::Icon MakeIcon(int32_t size)
{
    platform::Icon icon { Dib(size, size, 32, true), Dib(size, size, 1, true) };
    icon.mask.palette() = { { 0, 0, 0, 0 }, { 255, 255, 255, 0 } };
    for (int32_t y = 0; y < size; ++y) {
        uint8_t* color = icon.color.row(y);
        uint8_t* mask = icon.mask.row(y);
        for (int32_t x = 0; x < size; ++x) {
            int32_t dx = 2 * x - size + 1;
            int32_t dy = 2 * y - size + 1;
            int32_t distance = dx * dx + dy * dy;
            bool inside = distance < (size - 4) * (size - 4);
            bool ring = !inside && distance < size * size;
            if (!inside)
                mask[x / 8] |= static_cast<uint8_t>(0x80 >> (x % 8)); // keep the destination
            ColorRef c = inside ? Hue((x / 3 + y / 3) % 6) : ring ? Rgb(255, 255, 255) : Rgb(0, 0, 0);
            color[x * 4 + 0] = static_cast<uint8_t>(BlueOf(c));
            color[x * 4 + 1] = static_cast<uint8_t>(GreenOf(c));
            color[x * 4 + 2] = static_cast<uint8_t>(RedOf(c));
            color[x * 4 + 3] = 0; // no alpha: the mask decides
        }
    }
    return icon;
}

// A 32-bit icon whose colour image carries alpha (as icons loaded from 32-bit .ico files do),
// with an all-zero mask: the alpha decides how much of the destination shows.
platform::Icon MakeAlphaIcon(int32_t size)
{
    platform::Icon icon { Dib(size, size, 32, true), Dib(size, size, 1, true) };
    icon.mask.palette() = { { 0, 0, 0, 0 }, { 255, 255, 255, 0 } };
    for (int32_t y = 0; y < size; ++y) {
        uint8_t* color = icon.color.row(y);
        for (int32_t x = 0; x < size; ++x) {
            uint8_t alpha = static_cast<uint8_t>(x * 255 / (size - 1));
            // Straight (not premultiplied) colour, as .ico files hold it.
            color[x * 4 + 0] = static_cast<uint8_t>(alpha * (y % 4 == 0 ? 255 : 40) / 255);
            color[x * 4 + 1] = static_cast<uint8_t>(alpha * 200 / 255);
            color[x * 4 + 2] = static_cast<uint8_t>(alpha * (y * 255 / (size - 1)) / 255);
            color[x * 4 + 3] = alpha;
        }
    }
    return icon;
}

} // namespace vex::drawtest
