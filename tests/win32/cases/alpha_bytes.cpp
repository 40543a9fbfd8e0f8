// The fourth byte of 32-bit pixels. A surface's snapshot never shows it, but TransparentBlt
// compares whole pixels with its key, so a key-coloured pixel whose fourth byte is not zero is
// drawn, not seen through. Each case keys a picture of key-coloured pixels carrying different
// fourth bytes (directly, and after copies, stretches and fills) onto grey: what is drawn shows
// where the byte survived.

#include "helpers.h"

namespace vex::drawtest {

namespace {

constexpr ColorRef kKey = Rgb(255, 0, 255);
constexpr int32_t kWidth = 24;
constexpr int32_t kHeight = 18;

// Key colour everywhere. Fourth byte by band of columns: 0, 0x80, 0xFF; rows 12 and below
// alternate 0 and 0xFF pixel by pixel (a shrink ANDs or picks among them). A few non-key pixels
// show orientation.
Dib AlphaKeyDib()
{
    Dib dib(kWidth, kHeight, 32, true);
    for (int32_t y = 0; y < kHeight; ++y) {
        uint8_t* row = dib.row(y);
        for (int32_t x = 0; x < kWidth; ++x) {
            uint8_t alpha = x < 8 ? 0 : (x < 16 ? 0x80 : 0xFF);
            if (y >= 12)
                alpha = (x + y) % 2 ? 0xFF : 0;
            row[4 * x] = static_cast<uint8_t>(BlueOf(kKey));
            row[4 * x + 1] = static_cast<uint8_t>(GreenOf(kKey));
            row[4 * x + 2] = static_cast<uint8_t>(RedOf(kKey));
            row[4 * x + 3] = alpha;
        }
    }
    for (int32_t i = 0; i < 6; ++i) { // a blue diagonal from the top left, alpha 0x40
        uint8_t* pixel = dib.row(i) + 4 * i;
        pixel[0] = 200;
        pixel[1] = 40;
        pixel[2] = 0;
        pixel[3] = 0x40;
    }
    return dib;
}

void Ground(DeviceContext& dc, int32_t width, int32_t height)
{
    dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(90, 90, 90)));
}

// A compatible bitmap of the picture's size in its own DC, for copies of the picture.
Source EmptyCopy(DeviceContext& dc)
{
    Source copy;
    copy.dc = dc.CreateCompatibleDC();
    copy.bitmap = dc.CreateCompatibleBitmap(kWidth, kHeight);
    copy.dc->SelectBitmap(copy.bitmap);
    return copy;
}

void KeyWhole(DeviceContext& dc, int32_t x, int32_t y, DeviceContext& source)
{
    dc.TransparentBlt(x, y, kWidth, kHeight, source, 0, 0, kWidth, kHeight, kKey);
}

} // namespace

VEX_DRAWING_CASES(alpha_byte_cases)
{
    // The picture keyed straight from its bitmap: at 1x, grown, shrunk (the work bitmap ANDs
    // the dropped pixels, fourth bytes included) and a part of it.
    cases.push_back({ "alpha_byte_transparentblt", 140, 80, [](DeviceContext& dc, Facts&) {
        Ground(dc, 140, 80);
        Source picture = MakeSource(dc, AlphaKeyDib());
        KeyWhole(dc, 2, 2, *picture.dc);
        dc.TransparentBlt(30, 2, 48, 36, *picture.dc, 0, 0, kWidth, kHeight, kKey);  // x2
        dc.TransparentBlt(80, 2, 11, 7, *picture.dc, 0, 0, kWidth, kHeight, kKey);   // down
        dc.TransparentBlt(80, 20, 12, 9, *picture.dc, 0, 9, kWidth, kHeight - 9, kKey); // down, mixed rows
        dc.TransparentBlt(96, 2, 40, 30, *picture.dc, 6, 10, 13, 8, kKey);            // a part, grown
        dc.TransparentBlt(2, 44, 60, 30, *picture.dc, 0, 0, kWidth, kHeight, kKey);   // x2.5, x1.67
    } });

    // What BitBlt and StretchBlt (each mode, equal size and scaled) carry of the byte into a
    // compatible bitmap, seen by keying that copy.
    cases.push_back({ "alpha_byte_copies", 160, 70, [](DeviceContext& dc, Facts&) {
        Ground(dc, 160, 70);
        Source picture = MakeSource(dc, AlphaKeyDib());
        struct Copy {
            int mode; // 0: BitBlt, else StretchBlt in this mode
            int32_t width, height;
        };
        const Copy copies[] = {
            { 0, kWidth, kHeight },
            { platform::kStretchColorOnColor, kWidth, kHeight },
            { platform::kStretchHalftone, kWidth, kHeight },
            { 1, kWidth, kHeight }, // BLACKONWHITE
            { platform::kStretchColorOnColor, 12, 9 },
            { platform::kStretchHalftone, 12, 9 },
            { 1, 12, 9 },
            { platform::kStretchHalftone, 48, 36 },
        };
        int32_t at = 0;
        for (const Copy& c : copies) {
            Source copy = EmptyCopy(dc);
            copy.dc->FillRect({ 0, 0, kWidth, kHeight }, Brush::Solid(kKey));
            if (c.mode == 0) {
                copy.dc->BitBlt(0, 0, kWidth, kHeight, *picture.dc, 0, 0);
            } else {
                copy.dc->SetStretchBltMode(c.mode);
                // Shrunk or grown, then the copy is keyed at 1x from its corner.
                copy.dc->StretchBlt(0, 0, c.width, c.height, *picture.dc, 0, 0, kWidth, kHeight);
            }
            KeyWhole(dc, 2 + (at % 6) * 26, 2 + (at / 6) * 22, *copy.dc);
            ++at;
        }
    } });

    // FillRect, Rectangle and lines over a copy that carries the byte: what they paint is keyed
    // like any other key-coloured pixel.
    cases.push_back({ "alpha_byte_overdrawn", 60, 44, [](DeviceContext& dc, Facts&) {
        Ground(dc, 60, 44);
        Source picture = MakeSource(dc, AlphaKeyDib());
        Source copy = EmptyCopy(dc);
        copy.dc->BitBlt(0, 0, kWidth, kHeight, *picture.dc, 0, 0);
        copy.dc->FillRect({ 10, 1, 22, 4 }, Brush::Solid(kKey));
        copy.dc->SelectPen(Pen::Solid(kKey));
        copy.dc->SelectBrush(Brush::Solid(Rgb(0, 128, 0)));
        copy.dc->Rectangle(9, 5, 23, 10);
        copy.dc->MoveToEx(0, 11);
        copy.dc->LineTo(24, 16);
        copy.dc->MoveToEx(20, 0);
        copy.dc->LineTo(20, 18);
        KeyWhole(dc, 2, 2, *copy.dc);
        // The keyed result is itself keyed again: TransparentBlt's output keeps the bytes too.
        Source second = EmptyCopy(dc);
        second.dc->FillRect({ 0, 0, kWidth, kHeight }, Brush::Solid(kKey));
        second.dc->TransparentBlt(0, 0, kWidth, kHeight, *copy.dc, 0, 0, kWidth, kHeight, Rgb(0, 128, 0));
        KeyWhole(dc, 30, 2, *second.dc);
        // A picture of the same pixels with the bytes zeroed is all key: only the diagonal shows.
        Dib plain = AlphaKeyDib();
        for (int32_t y = 0; y < kHeight; ++y)
            for (int32_t x = 0; x < kWidth; ++x)
                plain.row(y)[4 * x + 3] = 0;
        Source zeroed = MakeSource(dc, plain);
        KeyWhole(dc, 2, 24, *zeroed.dc);
        // A keyed blit onto a copy that carries the bytes: what becomes of them under the pixels
        // it draws and under those it lets through.
        Source third = EmptyCopy(dc);
        third.dc->BitBlt(0, 0, kWidth, kHeight, *picture.dc, 0, 0);
        third.dc->TransparentBlt(4, 2, 16, 14, *zeroed.dc, 0, 0, kWidth, kHeight, kKey);
        KeyWhole(dc, 30, 24, *third.dc);
    } });
}


// An icon with alpha blended onto a key-coloured bitmap, then keyed: each pixel of the icon is
// the key colour, with a fourth byte rising from 0 on the left, so every blended pixel comes out
// key-coloured and only the fourth byte the blend leaves decides what the keyed blit draws.
VEX_DRAWING_CASES(alpha_byte_icon_cases)
{
    cases.push_back({ "alpha_byte_icon_blend", 40, 24, [](DeviceContext& dc, Facts&) {
        Ground(dc, 40, 24);
        constexpr int32_t size = 16;
        platform::Icon icon { Dib(size, size, 32, true), Dib(size, size, 1, true) };
        icon.mask.palette() = { { 0, 0, 0, 0 }, { 255, 255, 255, 0 } };
        for (int32_t y = 0; y < size; ++y)
            for (int32_t x = 0; x < size; ++x) {
                uint8_t* p = icon.color.row(y) + 4 * x;
                p[0] = static_cast<uint8_t>(BlueOf(kKey));
                p[1] = static_cast<uint8_t>(GreenOf(kKey));
                p[2] = static_cast<uint8_t>(RedOf(kKey));
                p[3] = static_cast<uint8_t>(x * 17);
            }
        Source canvas;
        canvas.dc = dc.CreateCompatibleDC();
        canvas.bitmap = dc.CreateCompatibleBitmap(size, size);
        canvas.dc->SelectBitmap(canvas.bitmap);
        canvas.dc->FillRect({ 0, 0, size, size }, Brush::Solid(kKey));
        canvas.dc->DrawIconEx(0, 0, icon, size, size, platform::kDrawIconNormal);
        dc.TransparentBlt(2, 2, size, size, *canvas.dc, 0, 0, size, size, kKey);
    } });

    // Text in the key colour over a copy that carries the bytes, transparent and opaque, plain
    // and anti-aliased (Tahoma italic): what the glyphs leave in the byte.
    cases.push_back({ "alpha_byte_text", 120, 24, [](DeviceContext& dc, Facts&) {
        Ground(dc, 120, 24);
        Source picture = MakeSource(dc, AlphaKeyDib());
        int32_t at = 0;
        for (bool italic : { false, true })
            for (int bkMode : { platform::kBkTransparent, platform::kBkOpaque }) {
                Source copy = EmptyCopy(dc);
                copy.dc->BitBlt(0, 0, kWidth, kHeight, *picture.dc, 0, 0);
                platform::FontDesc font;
                font.name = italic ? "Tahoma" : "MS Sans Serif";
                font.italic = italic;
                copy.dc->SelectFont(font);
                copy.dc->SetBkMode(bkMode);
                copy.dc->SetTextColor(kKey);
                Rect box { 0, 0, kWidth, kHeight };
                copy.dc->DrawText("Wq", box, platform::dt::Center | platform::dt::VCenter | platform::dt::SingleLine);
                KeyWhole(dc, 2 + at * 28, 2, *copy.dc);
                ++at;
            }
    } });
}

} // namespace vex::drawtest
