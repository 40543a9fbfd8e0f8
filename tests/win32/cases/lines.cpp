// MoveToEx/LineTo: every direction and slope, the shortest lengths, and lines leaving the surface.

#include <cmath>

#include "helpers.h"

namespace vex::drawtest {

using platform::Point;

namespace {

// A fan of lines from one centre to every point of a square ring: all octants and, with a
// ring of radius r, every slope a/r on the way round. Each line gets its own colour, so a
// wrong pixel also tells which line made it.
void Fan(DeviceContext& dc, Facts& facts, int32_t cx, int32_t cy, int32_t radius)
{
    int index = 0;
    auto line = [&](int32_t x, int32_t y) {
        dc.SelectPen(Pen::Solid(Hue(index++)));
        dc.MoveToEx(cx, cy);
        dc.LineTo(x, y);
    };
    for (int32_t x = -radius; x < radius; ++x)
        line(cx + x, cy - radius);
    for (int32_t y = -radius; y < radius; ++y)
        line(cx + radius, cy + y);
    for (int32_t x = radius; x > -radius; --x)
        line(cx + x, cy + radius);
    for (int32_t y = radius; y > -radius; --y)
        line(cx - radius, cy + y);
    Point end = dc.MoveToEx(0, 0);
    facts.Add("last position " + std::to_string(end.x) + "," + std::to_string(end.y));
}

} // namespace

VEX_DRAWING_CASES(line_cases)
{
    // Lines are drawn over a grey ground so that black pixels of a wrong line show too.
    auto ground = [](DeviceContext& dc, int32_t width, int32_t height) {
        dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(90, 90, 90)));
    };

    for (int32_t radius : { 3, 7, 20 }) {
        cases.push_back({ "lines_fan_radius_" + std::to_string(radius), 2 * radius + 7, 2 * radius + 7,
            [=](DeviceContext& dc, Facts& facts) {
                ground(dc, 2 * radius + 7, 2 * radius + 7);
                Fan(dc, facts, radius + 3, radius + 3, radius);
            } });
    }

    // Lengths 0, 1 and 2 in the eight directions; a zero-length LineTo paints nothing.
    cases.push_back({ "lines_lengths_0_1_2", 64, 24, [=](DeviceContext& dc, Facts&) {
        ground(dc, 64, 24);
        static constexpr int kDirections[8][2] = { { 1, 0 }, { 1, 1 }, { 0, 1 }, { -1, 1 }, { -1, 0 }, { -1, -1 }, { 0, -1 }, { 1, -1 } };
        for (int length = 0; length <= 2; ++length) {
            for (int d = 0; d < 8; ++d) {
                int32_t x = 4 + d * 7;
                int32_t y = 4 + length * 7;
                dc.SelectPen(Pen::Solid(Hue(d)));
                dc.MoveToEx(x, y);
                dc.LineTo(x + kDirections[d][0] * length, y + kDirections[d][1] * length);
            }
        }
    } });

    // Polyline through LineTo: the current position moves to each end point, and a joint is
    // painted by the next segment since each segment omits its own end.
    cases.push_back({ "lines_polyline_joints", 40, 40, [=](DeviceContext& dc, Facts& facts) {
        ground(dc, 40, 40);
        dc.SelectPen(Pen::Solid(Rgb(255, 255, 0)));
        dc.MoveToEx(5, 5);
        dc.LineTo(30, 5);
        dc.LineTo(30, 30);
        dc.LineTo(5, 30);
        dc.LineTo(5, 5);
        dc.LineTo(33, 17);
        dc.LineTo(7, 36);
        Point previous = dc.MoveToEx(1, 1);
        facts.Add("position after polyline " + std::to_string(previous.x) + "," + std::to_string(previous.y));
    } });

    // Long shallow and steep lines: the rounding of the midpoint decides every step.
    cases.push_back({ "lines_shallow_and_steep", 120, 80, [=](DeviceContext& dc, Facts&) {
        ground(dc, 120, 80);
        int index = 0;
        for (int32_t rise = 1; rise <= 9; ++rise) {
            dc.SelectPen(Pen::Solid(Hue(index++)));
            dc.MoveToEx(2, 2 + rise * 7);
            dc.LineTo(117, 2 + rise * 7 + rise);        // left to right, going down
            dc.MoveToEx(117, 5 + rise * 7);
            dc.LineTo(2, 5 + rise * 7 - rise);          // right to left, going up
        }
        for (int32_t run = 1; run <= 5; ++run) {
            dc.SelectPen(Pen::Solid(Hue(index++)));
            dc.MoveToEx(run * 4, 2);
            dc.LineTo(run * 4 + run * 2, 77);           // steep, down
            dc.MoveToEx(60 + run * 9, 77);
            dc.LineTo(60 + run * 9 - run * 3, 3);       // steep, up and left
        }
    } });

    // Lines that start or end outside the surface are clipped, not shifted.
    cases.push_back({ "lines_clipped_at_edges", 50, 40, [=](DeviceContext& dc, Facts&) {
        ground(dc, 50, 40);
        int index = 0;
        auto line = [&](int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
            dc.SelectPen(Pen::Solid(Hue(index++)));
            dc.MoveToEx(x1, y1);
            dc.LineTo(x2, y2);
        };
        line(-20, 5, 70, 9);
        line(-10, -10, 60, 45);
        line(25, -30, 28, 80);
        line(60, 30, -5, 20);
        line(49, 0, 49, 40);
        line(0, 39, 50, 39);
        line(100, 100, 200, 120);
    } });

    // The null pen draws nothing; the current position still moves.
    cases.push_back({ "lines_null_pen", 30, 30, [=](DeviceContext& dc, Facts& facts) {
        ground(dc, 30, 30);
        dc.SelectPen(Pen::Null());
        dc.MoveToEx(2, 2);
        dc.LineTo(27, 27);
        dc.SelectPen(Pen::Solid(Rgb(0, 255, 0)));
        dc.LineTo(27, 2);
        Point previous = dc.MoveToEx(0, 0);
        facts.Add("position " + std::to_string(previous.x) + "," + std::to_string(previous.y));
    } });
}

} // namespace vex::drawtest
