// BitBlt, StretchBlt in every mode, TransparentBlt and DrawIconEx.

#include <gtest/gtest.h>

#include <vector>

#include "platform/soft/bresenham.h"
#include "platform/soft/raster.h"
#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

// A memory context whose pixel (x, y) has red x and green y: every pixel tells where it came from.
std::unique_ptr<DeviceContext> Gradient(DeviceContext& compatible, int32_t width, int32_t height)
{
    auto memory = MemoryWith(compatible, width, height, 0);
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            memory->FillRect(Rect { x, y, x + 1, y + 1 }, Brush::Solid(Rgb(x, y, 0)));
    return memory;
}

std::vector<uint32_t> RedRow(const DeviceContext& dc, int32_t y, int32_t width)
{
    std::vector<uint32_t> reds;
    for (int32_t x = 0; x < width; ++x)
        reds.push_back(RedOf(dc.GetPixel(x, y)));
    return reds;
}

TEST(BitBlt, CopiesAndClipsAtEveryEdge)
{
    auto dc = WhiteSurface(10, 10);
    auto source = Gradient(*dc, 6, 6);
    dc->BitBlt(-2, 7, 6, 6, *source, 0, 0); // sticks out left and bottom
    EXPECT_EQ(dc->GetPixel(0, 7), Rgb(2, 0, 0));
    EXPECT_EQ(dc->GetPixel(3, 9), Rgb(5, 2, 0));
    EXPECT_EQ(dc->GetPixel(4, 9), 0xFFFFFFu);
    EXPECT_EQ(dc->GetPixel(0, 6), 0xFFFFFFu);

    auto again = WhiteSurface(10, 10);
    again->BitBlt(1, 1, 8, 8, *source, 3, -1); // source rectangle partly outside its bitmap
    EXPECT_EQ(again->GetPixel(1, 1), 0xFFFFFFu); // source row -1 does not exist: untouched
    EXPECT_EQ(again->GetPixel(1, 2), Rgb(3, 0, 0));
    EXPECT_EQ(again->GetPixel(3, 7), Rgb(5, 5, 0));
    EXPECT_EQ(again->GetPixel(4, 2), 0xFFFFFFu); // source column 6 does not exist
}

TEST(BitBlt, OverlappingCopyWithinOneContext)
{
    auto dc = Gradient(*WhiteSurface(1, 1), 8, 8);
    dc->BitBlt(1, 1, 6, 6, *dc, 0, 0);
    EXPECT_EQ(dc->GetPixel(6, 6), Rgb(5, 5, 0));
    EXPECT_EQ(dc->GetPixel(1, 1), Rgb(0, 0, 0));
    dc->BitBlt(0, 0, 6, 6, *dc, 2, 2);
    EXPECT_EQ(dc->GetPixel(0, 0), Rgb(1, 1, 0));
}

TEST(StretchBlt, ScaleWalkMatchesTheIncrementalBresenhamLoop)
{
    // The closed form used to start clipped walks must agree with the error-term loop.
    for (int64_t major = 1; major <= 40; ++major)
        for (int64_t minor = 1; minor <= major; ++minor) {
            int64_t err = 3 * minor - 2 * major, steps = 0;
            for (int64_t k = 0; k < major; ++k) {
                ASSERT_EQ(ScaleMinorSteps(k, major, minor), steps) << major << "/" << minor << " k=" << k;
                if (err > 0) {
                    ++steps;
                    err += 2 * minor - 2 * major;
                } else {
                    err += 2 * minor;
                }
            }
        }
}

TEST(StretchBlt, GrowingRepeatsPixelsAtCentreSamples)
{
    auto dc = WhiteSurface(8, 1);
    auto source = Gradient(*dc, 3, 1);
    dc->StretchBlt(0, 0, 8, 1, *source, 0, 0, 3, 1);
    EXPECT_EQ(RedRow(*dc, 0, 8), (std::vector<uint32_t> { 0, 0, 0, 1, 1, 2, 2, 2 }));
    dc->StretchBlt(0, 0, 4, 1, *source, 0, 0, 2, 1);
    EXPECT_EQ(RedRow(*dc, 0, 4), (std::vector<uint32_t> { 0, 0, 1, 1 }));
}

TEST(StretchBlt, ShrinkingDependsOnTheMode)
{
    auto dc = WhiteSurface(4, 1);
    auto source = MemoryWith(*dc, 8, 1, 0);
    ColorRef values[8] = { 0x0F, 0x3C, 0xF0, 0xFF, 0x01, 0x02, 0x04, 0x08 };
    for (int32_t x = 0; x < 8; ++x)
        source->FillRect(Rect { x, 0, x + 1, 1 }, Brush::Solid(values[x]));
    // Default mode BLACKONWHITE ANDs each pair; WHITEONBLACK ORs; COLORONCOLOR keeps the last.
    dc->StretchBlt(0, 0, 4, 1, *source, 0, 0, 8, 1);
    EXPECT_EQ(RedRow(*dc, 0, 4), (std::vector<uint32_t> { 0x0C, 0xF0, 0x00, 0x00 }));
    dc->SetStretchBltMode(2);
    dc->StretchBlt(0, 0, 4, 1, *source, 0, 0, 8, 1);
    EXPECT_EQ(RedRow(*dc, 0, 4), (std::vector<uint32_t> { 0x3F, 0xFF, 0x03, 0x0C }));
    dc->SetStretchBltMode(kStretchColorOnColor);
    dc->StretchBlt(0, 0, 4, 1, *source, 0, 0, 8, 1);
    EXPECT_EQ(RedRow(*dc, 0, 4), (std::vector<uint32_t> { 0x3C, 0xFF, 0x02, 0x08 }));
}

TEST(StretchBlt, ColorOnColorKeepsTheFirstRowOfAShrunkenRun)
{
    auto dc = WhiteSurface(1, 2);
    auto source = Gradient(*dc, 1, 4);
    dc->SetStretchBltMode(kStretchColorOnColor);
    dc->StretchBlt(0, 0, 1, 2, *source, 0, 0, 1, 4);
    EXPECT_EQ(GreenOf(dc->GetPixel(0, 0)), 0u);
    EXPECT_EQ(GreenOf(dc->GetPixel(0, 1)), 2u);
}

TEST(StretchBlt, OppositeSignsMirror)
{
    auto dc = WhiteSurface(4, 1);
    auto source = Gradient(*dc, 4, 1);
    dc->StretchBlt(3, 0, -4, 1, *source, 0, 0, 4, 1);
    EXPECT_EQ(RedRow(*dc, 0, 4), (std::vector<uint32_t> { 3, 2, 1, 0 }));
}

TEST(StretchBlt, HalftoneCopiesAtEqualSizeAndInterpolatesWhenScaled)
{
    auto dc = WhiteSurface(4, 2);
    auto source = MemoryWith(*dc, 2, 1, 0);
    source->FillRect(Rect { 1, 0, 2, 1 }, Brush::Solid(Rgb(255, 0, 0)));
    dc->SetStretchBltMode(kStretchHalftone);
    dc->StretchBlt(0, 0, 2, 1, *source, 0, 0, 2, 1);
    EXPECT_EQ(RedRow(*dc, 0, 2), (std::vector<uint32_t> { 0, 255 }));
    dc->StretchBlt(0, 1, 4, 1, *source, 0, 0, 2, 1);
    EXPECT_EQ(RedRow(*dc, 1, 4), (std::vector<uint32_t> { 0, 128, 255, 255 }));
}

TEST(TransparentBlt, SkipsTheKeyColourAtOneAndTwoTimes)
{
    auto dc = WhiteSurface(8, 4);
    auto source = MemoryWith(*dc, 2, 2, Rgb(255, 0, 255));
    source->FillRect(Rect { 0, 0, 1, 1 }, Brush::Solid(Rgb(0, 0, 255)));
    dc->TransparentBlt(0, 0, 2, 2, *source, 0, 0, 2, 2, Rgb(255, 0, 255));
    EXPECT_EQ(PaintedPixels(*dc), (PixelSet { { 0, 0 } }));
    dc->TransparentBlt(4, 0, 4, 4, *source, 0, 0, 2, 2, Rgb(255, 0, 255));
    EXPECT_EQ(PaintedPixels(*dc), (PixelSet { { 0, 0 }, { 4, 0 }, { 5, 0 }, { 4, 1 }, { 5, 1 } }));
    dc->TransparentBlt(0, 2, -2, 2, *source, 0, 0, 2, 2, 0); // negative sizes draw nothing
    EXPECT_EQ(PaintedPixels(*dc).size(), 5u);
}

TEST(DrawIconEx, AndsTheMaskThenXorsTheColour)
{
    auto dc = SoftDeviceContext::CreateSurface(2, 1);
    dc->FillRect(Rect { 0, 0, 2, 1 }, Brush::Solid(Rgb(0x30, 0x30, 0x30)));
    Icon icon { Dib(2, 1, 32), Dib(2, 1, 1) };
    icon.mask.row(0)[0] = 0x80; // pixel 0 keeps the destination, pixel 1 is cleared
    uint8_t* color = icon.color.row(0);
    color[0] = 0x0F, color[1] = 0x0F, color[2] = 0x0F;     // pixel 0: XOR onto the background
    color[4] = 0x50, color[5] = 0x60, color[6] = 0x70;     // pixel 1: drawn as is
    dc->DrawIconEx(0, 0, icon, 0, 0, kDrawIconNormal);
    EXPECT_EQ(dc->GetPixel(0, 0), Rgb(0x3F, 0x3F, 0x3F));
    EXPECT_EQ(dc->GetPixel(1, 0), Rgb(0x70, 0x60, 0x50));
}

} // namespace
} // namespace vex::platform::soft::testing
