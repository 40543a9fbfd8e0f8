// Device-independent sources: 1, 4 and 8-bit palettes, 24 and 32 bits, top-down and bottom-up,
// through CreateDIBitmap; and icons through DrawIconEx.

#include "helpers.h"

namespace vex::drawtest {

namespace {

void Ground(DeviceContext& dc, int32_t width, int32_t height)
{
    dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(90, 90, 90)));
}

} // namespace

VEX_DRAWING_CASES(picture_cases)
{
    for (int bits : { 1, 4, 8, 24, 32 }) {
        for (bool topDown : { true, false }) {
            std::string name = "dib_" + std::to_string(bits) + "bpp_" + (topDown ? "top_down" : "bottom_up");
            cases.push_back({ name, 70, 40, [=](DeviceContext& dc, Facts& facts) {
                Ground(dc, 70, 40);
                // An odd width exercises the row padding.
                Dib dib = PatternDib(13, 11, bits, topDown);
                Source source = MakeSource(dc, dib);
                dc.BitBlt(2, 2, 13, 11, *source.dc, 0, 0);
                dc.StretchBlt(18, 2, 39, 33, *source.dc, 0, 0, 13, 11);
                dc.TransparentBlt(58, 2, 13, 11, *source.dc, 0, 0, 13, 11, dib.pixel(0, 0));
                facts.Add("source pixel 5,4 " + std::to_string(source.dc->GetPixel(5, 4)));
            } });
        }
    }

    // A palette shorter than the depth allows: indices past its end.
    cases.push_back({ "dib_8bpp_short_palette", 30, 20, [](DeviceContext& dc, Facts&) {
        Ground(dc, 30, 20);
        Dib dib(16, 8, 8, true);
        dib.palette() = { { 0, 0, 255, 0 }, { 0, 255, 0, 0 }, { 255, 0, 0, 0 } };
        for (int32_t y = 0; y < 8; ++y) {
            for (int32_t x = 0; x < 16; ++x)
                dib.row(y)[x] = static_cast<uint8_t>((x + y) % 3);
        }
        Source source = MakeSource(dc, dib);
        dc.BitBlt(2, 2, 16, 8, *source.dc, 0, 0);
    } });

    cases.push_back({ "icon_drawiconex_sizes", 90, 50, [](DeviceContext& dc, Facts&) {
        Ground(dc, 90, 50);
        dc.FillRect({ 45, 0, 90, 50 }, Brush::Solid(Rgb(250, 240, 200)));
        platform::Icon icon = MakeIcon(16);
        dc.DrawIconEx(2, 2, icon, 16, 16, platform::kDrawIconNormal);
        dc.DrawIconEx(20, 2, icon, 32, 32, platform::kDrawIconNormal);
        dc.DrawIconEx(50, 2, icon, 16, 16, platform::kDrawIconNormal);
        dc.DrawIconEx(68, 2, icon, 20, 12, platform::kDrawIconNormal);
        dc.DrawIconEx(80, 40, icon, 16, 16, platform::kDrawIconNormal); // clipped
    } });

    // Shrinking and enlarging an icon under each stretch mode of the target.
    for (int mode : { platform::kStretchColorOnColor, platform::kStretchHalftone }) {
        std::string name = std::string("icon_drawiconex_stretch_") + (mode == platform::kStretchHalftone ? "halftone" : "coloroncolor");
        cases.push_back({ name, 70, 40, [=](DeviceContext& dc, Facts&) {
            Ground(dc, 70, 40);
            dc.SetStretchBltMode(mode);
            platform::Icon icon = MakeIcon(16);
            dc.DrawIconEx(2, 2, icon, 20, 12, platform::kDrawIconNormal);
            dc.DrawIconEx(26, 2, icon, 11, 30, platform::kDrawIconNormal);
            dc.DrawIconEx(40, 2, icon, 24, 24, platform::kDrawIconNormal);
        } });
    }

    cases.push_back({ "icon_drawiconex_alpha", 80, 40, [](DeviceContext& dc, Facts&) {
        Ground(dc, 80, 40);
        dc.FillRect({ 40, 0, 80, 40 }, Brush::Solid(Rgb(250, 240, 200)));
        platform::Icon icon = MakeAlphaIcon(16);
        dc.DrawIconEx(2, 2, icon, 16, 16, platform::kDrawIconNormal);
        dc.DrawIconEx(20, 2, icon, 32, 32, platform::kDrawIconNormal);
        dc.DrawIconEx(56, 2, icon, 16, 16, platform::kDrawIconNormal);
    } });
}

} // namespace vex::drawtest
