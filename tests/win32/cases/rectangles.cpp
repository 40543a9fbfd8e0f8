// Rectangle, FrameRect and FillRect: solid and hollow brushes, rings, overlaps, inverted and
// empty rectangles, and shapes crossing the surface's edges.

#include "helpers.h"

namespace vex::drawtest {

VEX_DRAWING_CASES(rectangle_cases)
{
    auto ground = [](DeviceContext& dc, int32_t width, int32_t height) {
        dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(90, 90, 90)));
    };

    cases.push_back({ "rect_rectangle_solid_and_hollow", 80, 40, [=](DeviceContext& dc, Facts&) {
        ground(dc, 80, 40);
        dc.SelectPen(Pen::Solid(Rgb(255, 255, 0)));
        dc.SelectBrush(Brush::Solid(Rgb(0, 0, 255)));
        dc.Rectangle(2, 2, 30, 20);
        dc.SelectBrush(Brush::Hollow());
        dc.Rectangle(34, 2, 60, 20);
        dc.SelectPen(Pen::Null());
        dc.SelectBrush(Brush::Solid(Rgb(255, 0, 0)));
        dc.Rectangle(2, 24, 30, 38); // null pen: the fill alone, one pixel smaller each way
        dc.SelectPen(Pen::Solid(Rgb(0, 255, 0)));
        dc.Rectangle(64, 2, 78, 38);
        dc.Rectangle(34, 24, 60, 38);
    } });

    // Sizes 0 to 3 show where the outline and the fill give way.
    cases.push_back({ "rect_rectangle_tiny_sizes", 60, 30, [=](DeviceContext& dc, Facts&) {
        ground(dc, 60, 30);
        dc.SelectPen(Pen::Solid(Rgb(255, 255, 255)));
        dc.SelectBrush(Brush::Solid(Rgb(255, 0, 0)));
        for (int32_t w = 0; w <= 3; ++w) {
            for (int32_t h = 0; h <= 3; ++h)
                dc.Rectangle(2 + w * 14, 2 + h * 7, 2 + w * 14 + w, 2 + h * 7 + h);
        }
    } });

    // Inverted corners: GDI's Rectangle orders them; FillRect and FrameRect paint nothing.
    cases.push_back({ "rect_inverted", 90, 30, [=](DeviceContext& dc, Facts&) {
        ground(dc, 90, 30);
        dc.SelectPen(Pen::Solid(Rgb(255, 255, 0)));
        dc.SelectBrush(Brush::Solid(Rgb(0, 0, 255)));
        dc.Rectangle(25, 25, 3, 3);
        dc.Rectangle(55, 3, 30, 25);
        dc.FillRect({ 80, 25, 60, 3 }, Brush::Solid(Rgb(255, 0, 0)));
        dc.FrameRect({ 88, 3, 62, 25 }, Brush::Solid(Rgb(0, 255, 0)));
        dc.FrameRect({ 62, 28, 88, 27 }, Brush::Solid(Rgb(0, 255, 255)));
    } });

    // FillRect with one axis inverted, then the other: which edge becomes the exclusive one.
    cases.push_back({ "rect_fill_inverted_one_axis", 50, 30, [=](DeviceContext& dc, Facts&) {
        ground(dc, 50, 30);
        dc.FillRect({ 20, 3, 5, 12 }, Brush::Solid(Rgb(255, 0, 0)));
        dc.FillRect({ 25, 27, 45, 15 }, Brush::Solid(Rgb(0, 255, 0)));
        dc.FillRect({ 20, 27, 5, 15 }, Brush::Solid(Rgb(0, 0, 255)));
        dc.FillRect({ 25, 3, 45, 12 }, Brush::Solid(Rgb(255, 255, 0)));
        dc.FillRect({ 48, 3, 47, 4 }, Brush::Solid(Rgb(255, 255, 255))); // one pixel, inverted
    } });

    // Overlapping shapes: the later one wins wherever they share pixels.
    cases.push_back({ "rect_overlapping", 70, 50, [=](DeviceContext& dc, Facts&) {
        ground(dc, 70, 50);
        for (int i = 0; i < 6; ++i) {
            dc.SelectPen(Pen::Solid(Hue(i)));
            dc.SelectBrush(i % 2 ? Brush::Hollow() : Brush::Solid(Hue(i + 6)));
            dc.Rectangle(3 + i * 7, 3 + i * 5, 35 + i * 5, 25 + i * 4);
        }
        dc.FillRect({ 20, 10, 50, 20 }, Brush::Solid(Rgb(250, 250, 250)));
        dc.FrameRect({ 15, 5, 60, 45 }, Brush::Solid(Rgb(10, 10, 10)));
    } });

    // Concentric FrameRect rings as the 3D border draws them, with empty and 1-pixel rectangles.
    cases.push_back({ "rect_frame_rings", 60, 50, [=](DeviceContext& dc, Facts&) {
        ground(dc, 60, 50);
        for (int32_t ring = 0; ring < 12; ++ring)
            dc.FrameRect({ ring * 2, ring * 2, 60 - ring * 2, 50 - ring * 2 }, Brush::Solid(Hue(ring)));
        dc.FrameRect({ 28, 23, 29, 24 }, Brush::Solid(Rgb(255, 255, 255))); // 1x1
        dc.FrameRect({ 31, 23, 31, 30 }, Brush::Solid(Rgb(255, 255, 255))); // zero width
        dc.FrameRect({ 33, 23, 35, 30 }, Brush::Solid(Rgb(255, 255, 255))); // two wide
        dc.FrameRect({ 5, 5, 20, 5 }, Brush::Hollow());
    } });

    // Coordinates far outside the surface, as a tiled or stretched picture on a large panel
    // produces them: everything is clipped, nothing wraps.
    cases.push_back({ "rect_far_coordinates", 40, 30, [=](DeviceContext& dc, Facts&) {
        ground(dc, 40, 30);
        dc.FillRect({ -1000000, 3, 1000000, 6 }, Brush::Solid(Rgb(255, 0, 0)));
        dc.FrameRect({ -70000, -70000, 70000 + 20, 70000 + 15 }, Brush::Solid(Rgb(0, 255, 0)));
        dc.FrameRect({ 5, -50000, 25, 20 }, Brush::Solid(Rgb(0, 255, 255)));
        dc.SelectPen(Pen::Solid(Rgb(255, 255, 0)));
        dc.SelectBrush(Brush::Solid(Rgb(0, 0, 255)));
        dc.Rectangle(30, 10, 100000, 100000);
        dc.MoveToEx(-100000, 8);
        dc.LineTo(100000, 28);
        dc.MoveToEx(20, -90000);
        dc.LineTo(22, 90000);
    } });

    cases.push_back({ "rect_fill_edges_and_hollow", 40, 30, [=](DeviceContext& dc, Facts&) {
        ground(dc, 40, 30);
        dc.FillRect({ -5, -5, 10, 8 }, Brush::Solid(Rgb(255, 0, 0)));
        dc.FillRect({ 30, 20, 60, 60 }, Brush::Solid(Rgb(0, 255, 0)));
        dc.FillRect({ 12, 12, 20, 20 }, Brush::Hollow());
        dc.FillRect({ 14, 3, 15, 4 }, Brush::Solid(Rgb(255, 255, 255)));
        dc.FrameRect({ -3, 20, 8, 40 }, Brush::Solid(Rgb(0, 255, 255)));
        dc.SelectPen(Pen::Solid(Rgb(255, 255, 0)));
        dc.SelectBrush(Brush::Solid(Rgb(0, 0, 255)));
        dc.Rectangle(35, -4, 45, 10);
    } });
}

} // namespace vex::drawtest
