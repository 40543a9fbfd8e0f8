// LineTo over many random lines: a line and its reverse differ exactly by their end points (GDI's
// per-octant tie-breaking), clipping never shifts a line, and huge coordinates are clipped without
// walking the invisible part. Single lines are checked against GDI by the drawing battery.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "platform/soft/raster.h"
#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

PixelSet Line(Point from, Point to, int32_t size = 64)
{
    auto dc = WhiteSurface(size, size);
    dc->MoveToEx(from.x, from.y);
    dc->LineTo(to.x, to.y);
    return PaintedPixels(*dc);
}

TEST(LineTo, ReverseLineCoversTheSamePixelsSaveTheEndPoints)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int32_t> coordinate(0, 40);
    for (int i = 0; i < 2000; ++i) {
        Point a { coordinate(random), coordinate(random) }, b { coordinate(random), coordinate(random) };
        if (a == b)
            continue;
        PixelSet forward = Line(a, b), backward = Line(b, a);
        forward.insert({ b.x, b.y });
        backward.insert({ a.x, a.y });
        ASSERT_EQ(forward, backward) << a.x << "," << a.y << " -> " << b.x << "," << b.y;
    }
}

TEST(LineTo, ClippedLinesPaintTheVisiblePartOfTheWholeLine)
{
    // Draw on a large canvas, then the same line shifted so that it sticks out of a small one:
    // the small one must show exactly the overlapping part.
    std::mt19937 random(11);
    std::uniform_int_distribution<int32_t> coordinate(-300, 300);
    for (int i = 0; i < 500; ++i) {
        Point a { coordinate(random), coordinate(random) }, b { coordinate(random), coordinate(random) };
        SoftBitmap big(700, 700), small(50, 40);
        DrawLine(big, { a.x + 350, a.y + 350 }, { b.x + 350, b.y + 350 }, 1);
        DrawLine(small, a, b, 1);
        for (int32_t y = 0; y < small.height(); ++y)
            for (int32_t x = 0; x < small.width(); ++x)
                ASSERT_EQ(small.row(y)[x], big.row(y + 350)[x + 350]) << a.x << "," << a.y << " -> " << b.x << "," << b.y << " at " << x << "," << y;
    }
}

TEST(LineTo, HugeCoordinatesAreClippedWithoutWalkingTheInvisiblePart)
{
    auto dc = WhiteSurface(20, 20);
    dc->MoveToEx(-2000000000, 5);
    dc->LineTo(2000000000, 6);
    EXPECT_EQ(PaintedPixels(*dc).size(), 20u);
    // Both extents near 2^32: the walk's error term at the clipped start needs more than 64 bits.
    auto steep = WhiteSurface(20, 20);
    steep->MoveToEx(-2000000000, -2000000000);
    steep->LineTo(2000000000, 1999999999);
    EXPECT_FALSE(PaintedPixels(*steep).empty());
    for (auto [x, y] : PaintedPixels(*steep))
        EXPECT_LE(std::abs(x - y), 1) << x << "," << y;
    dc->SelectPen(Pen::Null());
    dc->MoveToEx(0, 0);
    dc->LineTo(10, 0);
    EXPECT_EQ(dc->GetPixel(3, 0), 0xFFFFFFu);
    EXPECT_EQ(dc->MoveToEx(0, 0), (Point { 10, 0 })); // a null pen still moves the position
}

} // namespace
} // namespace vex::platform::soft::testing
