// BitBlt, StretchBlt (default and HALFTONE) and TransparentBlt at equal and different sizes,
// with clipping at both surfaces' edges.

#include "helpers.h"

namespace vex::drawtest {

namespace {

constexpr ColorRef kKey = Rgb(255, 0, 255); // MakeDrawnSource paints its bars in this colour

void Ground(DeviceContext& dc, int32_t width, int32_t height)
{
    dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(90, 90, 90)));
}

} // namespace

VEX_DRAWING_CASES(blit_cases)
{
    cases.push_back({ "blit_bitblt_copy_and_clip", 80, 60, [](DeviceContext& dc, Facts&) {
        Ground(dc, 80, 60);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.BitBlt(2, 2, 24, 18, *source.dc, 0, 0);
        dc.BitBlt(30, 2, 10, 10, *source.dc, 7, 5);      // part of the source
        dc.BitBlt(-6, 40, 24, 18, *source.dc, 0, 0);     // off the left edge
        dc.BitBlt(70, 50, 24, 18, *source.dc, 0, 0);     // off the right and bottom
        dc.BitBlt(45, 5, 24, 18, *source.dc, -4, -3);    // source rectangle starting outside
        dc.BitBlt(45, 30, 30, 25, *source.dc, 10, 8);    // source rectangle ending outside
    } });

    for (int mode : { platform::kStretchColorOnColor, platform::kStretchHalftone }) {
        std::string suffix = mode == platform::kStretchHalftone ? "halftone" : "coloroncolor";
        // Equal size: HALFTONE is an exact copy too.
        cases.push_back({ "blit_stretch_equal_" + suffix, 40, 30, [=](DeviceContext& dc, Facts& facts) {
            Ground(dc, 40, 30);
            Source source = MakeDrawnSource(dc, 24, 18);
            facts.Add("previous mode " + std::to_string(dc.SetStretchBltMode(mode)));
            dc.StretchBlt(3, 3, 24, 18, *source.dc, 0, 0, 24, 18);
            dc.StretchBlt(30, 3, 8, 8, *source.dc, 2, 2, 8, 8);
        } });
    }

    // The default mode (BLACKONWHITE on a fresh DC) and COLORONCOLOR sample the nearest pixel:
    // up by whole and fractional factors, down, and one axis only.
    for (int mode : { 0, platform::kStretchColorOnColor }) {
        std::string suffix = mode ? "coloroncolor" : "default_mode";
        cases.push_back({ "blit_stretch_scaled_" + suffix, 160, 100, [=](DeviceContext& dc, Facts&) {
            Ground(dc, 160, 100);
            Source source = MakeDrawnSource(dc, 24, 18);
            if (mode)
                dc.SetStretchBltMode(mode);
            dc.StretchBlt(2, 2, 48, 36, *source.dc, 0, 0, 24, 18);     // x2
            dc.StretchBlt(52, 2, 37, 29, *source.dc, 0, 0, 24, 18);    // x1.54, x1.61
            dc.StretchBlt(92, 2, 11, 7, *source.dc, 0, 0, 24, 18);     // down
            dc.StretchBlt(106, 2, 50, 18, *source.dc, 0, 0, 24, 18);   // x only
            dc.StretchBlt(2, 42, 24, 55, *source.dc, 0, 0, 24, 18);    // y only
            dc.StretchBlt(30, 42, 70, 50, *source.dc, 5, 4, 13, 9);    // a part, enlarged
            dc.StretchBlt(104, 42, 40, 30, *source.dc, 0, 0, 1, 1);    // one pixel over an area
            dc.StretchBlt(150, 80, 30, 30, *source.dc, 0, 0, 24, 18);  // clipped by the surface
        } });
    }

    // Scaled HALFTONE interpolates (Wine's filter); the soft side reproduces it exactly.
    cases.push_back({ "blit_stretch_scaled_halftone", 120, 70, [](DeviceContext& dc, Facts&) {
        Ground(dc, 120, 70);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.SetStretchBltMode(platform::kStretchHalftone);
        dc.StretchBlt(2, 2, 48, 36, *source.dc, 0, 0, 24, 18);
        dc.StretchBlt(52, 2, 37, 29, *source.dc, 0, 0, 24, 18);
        dc.StretchBlt(92, 2, 11, 7, *source.dc, 0, 0, 24, 18);
        dc.StretchBlt(2, 42, 100, 25, *source.dc, 0, 0, 24, 18);
    } });

    cases.push_back({ "blit_transparent_equal_and_scaled", 130, 70, [](DeviceContext& dc, Facts&) {
        Ground(dc, 130, 70);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.TransparentBlt(2, 2, 24, 18, *source.dc, 0, 0, 24, 18, kKey);
        dc.TransparentBlt(30, 2, 48, 36, *source.dc, 0, 0, 24, 18, kKey);    // x2
        dc.TransparentBlt(82, 2, 35, 27, *source.dc, 0, 0, 24, 18, kKey);    // fractional
        dc.TransparentBlt(2, 42, 12, 9, *source.dc, 0, 0, 24, 18, kKey);     // down
        dc.TransparentBlt(20, 42, 24, 18, *source.dc, 0, 0, 24, 18, Rgb(40, 60, 200)); // key = background
        dc.TransparentBlt(50, 42, 24, 18, *source.dc, 0, 0, 24, 18, Rgb(1, 2, 3));     // key absent
        dc.TransparentBlt(115, 55, 24, 18, *source.dc, 0, 0, 24, 18, kKey);  // clipped by the surface
        dc.TransparentBlt(-5, 62, 17, 13, *source.dc, 0, 0, 24, 18, kKey);   // shrunk and clipped
        dc.TransparentBlt(90, 40, 41, 33, *source.dc, 0, 0, 24, 18, kKey);   // grown and clipped
    } });

    // The key -1 and other flagged colours: GDI reads bit 24 as a palette index (black past the
    // default palette's 20 entries), for the key, brushes, pens and text alike.
    cases.push_back({ "blit_transparent_flagged_keys_and_palette_indices", 60, 30, [](DeviceContext& dc, Facts&) {
        Ground(dc, 60, 30);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.TransparentBlt(2, 2, 24, 18, *source.dc, 0, 0, 24, 18, 0xFFFFFFFFu);
        dc.TransparentBlt(30, 2, 24, 18, *source.dc, 0, 0, 24, 18, 0x01000000u);
        const ColorRef flagged[] = { 0x01000005, 0x0100000F, 0x01000013, 0x01000014, 0x01FF0005, 0x02123456, 0x10123456 };
        for (int i = 0; i < 7; ++i)
            dc.FillRect({ 2 + 4 * i, 22, 5 + 4 * i, 25 }, Brush::Solid(flagged[i]));
        dc.SelectPen(Pen::Solid(0x01000009));
        dc.MoveToEx(2, 27);
        dc.LineTo(50, 27);
    } });

    // Destinations far larger than the surface: only the visible part is drawn, as a
    // stretched background on a large panel is.
    cases.push_back({ "blit_huge_destination", 40, 30, [](DeviceContext& dc, Facts&) {
        Ground(dc, 40, 30);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.StretchBlt(-5000, -4000, 12000, 9000, *source.dc, 0, 0, 24, 18);
        dc.TransparentBlt(-3000, 10, 8000, 2000, *source.dc, 0, 0, 24, 18, kKey);
    } });

    // Negative sizes (mirroring), WHITEONBLACK shrinking, one-pixel destinations, a stretch from
    // a context onto itself, and halftone mirrored and cut by the surface edge.
    cases.push_back({ "blit_stretch_mirrored_and_modes", 170, 90, [](DeviceContext& dc, Facts&) {
        Ground(dc, 170, 90);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.StretchBlt(2 + 23, 2, -24, 18, *source.dc, 0, 0, 24, 18);         // mirrored in x
        dc.StretchBlt(30, 2 + 17, 24, -18, *source.dc, 0, 0, 24, 18);        // mirrored in y
        dc.StretchBlt(58, 2, 30, 22, *source.dc, 23, 17, -24, -18);          // source reversed
        dc.StretchBlt(92, 2, 1, 18, *source.dc, 0, 0, 24, 18);               // one column
        dc.StretchBlt(96, 2, 24, 1, *source.dc, 0, 0, 24, 18);               // one row
        dc.SetStretchBltMode(2);                                             // WHITEONBLACK
        dc.StretchBlt(124, 2, 11, 7, *source.dc, 0, 0, 24, 18);
        dc.SetStretchBltMode(platform::kStretchColorOnColor);
        dc.StretchBlt(140, 2, 9, 13, *source.dc, 0, 0, 24, 18);
        dc.StretchBlt(2, 30, 40, 30, dc, 2, 2, 24, 18);                      // onto itself
        dc.SetStretchBltMode(platform::kStretchHalftone);
        dc.StretchBlt(46 + 39, 30, -40, 30, *source.dc, 0, 0, 24, 18);       // halftone mirrored
        dc.StretchBlt(130, 60, 60, 45, *source.dc, 0, 0, 24, 18);            // halftone cut by the edge
        dc.StretchBlt(90, 64, 30, 20, *source.dc, 4, 3, 12, 9);              // halftone of a part
    } });

    // Source rectangles that reach past the source bitmap, stretched and keyed.
    cases.push_back({ "blit_source_outside_bitmap", 150, 60, [](DeviceContext& dc, Facts&) {
        Ground(dc, 150, 60);
        Source source = MakeDrawnSource(dc, 24, 18);
        dc.StretchBlt(2, 2, 40, 30, *source.dc, 10, 8, 20, 15);
        dc.StretchBlt(46, 2, 40, 30, *source.dc, -6, -4, 20, 15);
        dc.TransparentBlt(90, 2, 40, 30, *source.dc, 10, 8, 20, 15, kKey);
        dc.TransparentBlt(90, 34, 20, 15, *source.dc, -4, 0, 20, 15, kKey);
        dc.SetStretchBltMode(platform::kStretchHalftone);
        dc.StretchBlt(2, 34, 40, 24, *source.dc, 12, 9, 20, 15);
    } });

    // Blits from a bitmap made by CreateCompatibleBitmap and then drawn into, between two
    // memory DCs, and back: the path the 3D border's buffers take.
    cases.push_back({ "blit_memory_to_memory", 60, 40, [](DeviceContext& dc, Facts& facts) {
        Ground(dc, 60, 40);
        Source first = MakeDrawnSource(dc, 20, 16);
        auto second = dc.CreateCompatibleDC();
        auto bitmap = dc.CreateCompatibleBitmap(30, 20);
        second->SelectBitmap(bitmap);
        second->FillRect({ 0, 0, 30, 20 }, Brush::Solid(Rgb(200, 200, 0)));
        second->BitBlt(5, 2, 20, 16, *first.dc, 0, 0);
        dc.BitBlt(2, 2, 30, 20, *second, 0, 0);
        dc.StretchBlt(2, 24, 56, 14, *second, 0, 0, 30, 20);
        platform::Size extent = second->Extent();
        facts.Add("extent " + std::to_string(extent.width) + "x" + std::to_string(extent.height));
        facts.Add("pixel in memory dc " + std::to_string(second->GetPixel(6, 3)));
        facts.Add("pixel outside " + std::to_string(second->GetPixel(30, 0)));
    } });
}

} // namespace vex::drawtest
