// Rectangle, FrameRect and FillRect: which pixels each paints, inverted rectangles included.

#include <gtest/gtest.h>

#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

constexpr ColorRef kRed = 0x0000FF;
constexpr ColorRef kBlue = 0xFF0000;

PixelSet RectPixels(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    PixelSet pixels;
    for (int32_t y = top; y < bottom; ++y)
        for (int32_t x = left; x < right; ++x)
            pixels.insert({ x, y });
    return pixels;
}

PixelSet Ring(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    PixelSet pixels = RectPixels(left, top, right, bottom);
    for (auto p : RectPixels(left + 1, top + 1, right - 1, bottom - 1))
        pixels.erase(p);
    return pixels;
}

TEST(Rectangle, OutlinesWithThePenAndFillsTheInsideWithTheBrush)
{
    auto dc = WhiteSurface(20, 20);
    dc->SelectPen(Pen::Solid(kRed));
    dc->SelectBrush(Brush::Solid(kBlue));
    dc->Rectangle(2, 3, 8, 7);
    EXPECT_EQ(PaintedPixels(*dc), RectPixels(2, 3, 8, 7));
    PixelSet outline;
    for (auto p : RectPixels(2, 3, 8, 7))
        if (dc->GetPixel(p.first, p.second) == kRed)
            outline.insert(p);
    EXPECT_EQ(outline, Ring(2, 3, 8, 7));
}

TEST(Rectangle, HollowBrushDrawsOnlyTheOutline)
{
    auto dc = WhiteSurface(20, 20);
    dc->SelectBrush(Brush::Hollow());
    dc->Rectangle(1, 1, 6, 5);
    EXPECT_EQ(PaintedPixels(*dc), Ring(1, 1, 6, 5));
}

TEST(Rectangle, NullPenFillsOnePixelLessEachWay)
{
    auto dc = WhiteSurface(20, 20);
    dc->SelectPen(Pen::Null());
    dc->SelectBrush(Brush::Solid(kBlue));
    dc->Rectangle(2, 2, 7, 6);
    EXPECT_EQ(PaintedPixels(*dc), RectPixels(2, 2, 6, 5));
}

TEST(Rectangle, InvertedCornersAreOrderedAndEmptyOnesDrawNothing)
{
    auto a = WhiteSurface(20, 20), b = WhiteSurface(20, 20);
    a->Rectangle(9, 8, 3, 2);
    b->Rectangle(3, 2, 9, 8);
    EXPECT_EQ(PaintedPixels(*a), PaintedPixels(*b));
    auto c = WhiteSurface(20, 20);
    c->Rectangle(4, 4, 4, 9);
    c->Rectangle(4, 4, 9, 4);
    EXPECT_TRUE(PaintedPixels(*c).empty());
    c->Rectangle(4, 4, 5, 5); // 1x1: four empty outline segments
    EXPECT_TRUE(PaintedPixels(*c).empty());
    c->Rectangle(4, 4, 5, 7); // one pixel wide: a column of outline
    EXPECT_EQ(PaintedPixels(*c), RectPixels(4, 4, 5, 7));
}

TEST(FrameRect, PaintsAOnePixelRingJustInsideAndNothingWhenInverted)
{
    auto dc = WhiteSurface(100, 30);
    dc->FrameRect(Rect { 60, 5, 90, 25 }, Brush::Solid(0));
    EXPECT_EQ(PaintedPixels(*dc), Ring(60, 5, 90, 25));
    auto inverted = WhiteSurface(100, 30);
    inverted->FrameRect(Rect { 90, 5, 60, 25 }, Brush::Solid(0));
    inverted->FrameRect(Rect { 60, 25, 90, 5 }, Brush::Solid(0));
    inverted->FrameRect(Rect { 10, 10, 20, 20 }, Brush::Hollow());
    EXPECT_TRUE(PaintedPixels(*inverted).empty());
    auto nested = WhiteSurface(20, 20);
    for (int32_t i = 0; i < 3; ++i)
        nested->FrameRect(Rect { 2 + i, 2 + i, 12 - i, 12 - i }, Brush::Solid(0));
    PixelSet rings = RectPixels(2, 2, 12, 12);
    for (auto p : RectPixels(5, 5, 9, 9))
        rings.erase(p);
    EXPECT_EQ(PaintedPixels(*nested), rings);
}

TEST(FillRect, FillsLeftToRightMinusOneAndInvertedRectanglesOnePixelOver)
{
    auto dc = WhiteSurface(20, 20);
    dc->FillRect(Rect { 3, 4, 7, 6 }, Brush::Solid(0));
    EXPECT_EQ(PaintedPixels(*dc), RectPixels(3, 4, 7, 6));
    auto inverted = WhiteSurface(20, 20);
    inverted->FillRect(Rect { 7, 6, 3, 4 }, Brush::Solid(0));
    EXPECT_EQ(PaintedPixels(*inverted), RectPixels(4, 5, 8, 7));
    auto clipped = WhiteSurface(20, 20);
    clipped->FillRect(Rect { -5, -5, 3, 100 }, Brush::Solid(0));
    EXPECT_EQ(PaintedPixels(*clipped), RectPixels(0, 0, 3, 20));
}

} // namespace
} // namespace vex::platform::soft::testing
