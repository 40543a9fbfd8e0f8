// The fourth byte of 32-bit pixels: invisible to GetPixel and Snapshot, but kept by bitmaps and
// copies and compared by TransparentBlt, which is where it shows.

#include <gtest/gtest.h>

#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

constexpr ColorRef kKey = Rgb(255, 0, 255);
constexpr ColorRef kGround = Rgb(90, 90, 90);

// A 4 x 2 picture, all key colour; the fourth bytes of row 0 are 0, 0x80, 0xFF, 0 and of row 1
// 0xFF, 0xFF, 0, 0.
Dib KeyPicture()
{
    const uint8_t fourth[2][4] = { { 0, 0x80, 0xFF, 0 }, { 0xFF, 0xFF, 0, 0 } };
    Dib dib(4, 2, 32, true);
    for (int32_t y = 0; y < 2; ++y)
        for (int32_t x = 0; x < 4; ++x) {
            uint8_t* p = dib.row(y) + 4 * x;
            p[0] = 255, p[1] = 0, p[2] = 255, p[3] = fourth[y][x];
        }
    return dib;
}

std::unique_ptr<DeviceContext> Holding(DeviceContext& dc, const Dib& dib)
{
    auto memory = dc.CreateCompatibleDC();
    memory->SelectBitmap(dc.CreateBitmapFromDib(dib));
    return memory;
}

// The pixels that a keyed blit of `source` (at its own size) draws onto a grey surface.
PixelSet Keyed(DeviceContext& source, int32_t width, int32_t height)
{
    auto dc = CreateSurface(width, height);
    dc->FillRect(Rect { 0, 0, width, height }, Brush::Solid(kGround));
    dc->TransparentBlt(0, 0, width, height, source, 0, 0, width, height, kKey);
    return PaintedPixels(*dc, kGround);
}

const PixelSet kNonZero { { 1, 0 }, { 2, 0 }, { 0, 1 }, { 1, 1 } };

TEST(FourthByte, TransparentBltDrawsKeyColouredPixelsThatCarryIt)
{
    auto dc = CreateSurface(8, 4);
    auto picture = Holding(*dc, KeyPicture());
    EXPECT_EQ(Describe(Keyed(*picture, 4, 2)), Describe(kNonZero));
    // Stretched: the work bitmap keeps the byte; shrinking ANDs it (only 0xFF & 0xFF survives).
    dc->FillRect(Rect { 0, 0, 8, 4 }, Brush::Solid(kGround));
    dc->TransparentBlt(0, 0, 8, 4, *picture, 0, 0, 4, 2, kKey);
    EXPECT_EQ(PaintedPixels(*dc, kGround).size(), 16u);
    dc->FillRect(Rect { 0, 0, 8, 4 }, Brush::Solid(kGround));
    dc->TransparentBlt(0, 0, 2, 2, *picture, 0, 0, 4, 2, kKey);
    EXPECT_EQ(Describe(PaintedPixels(*dc, kGround)), Describe(PixelSet { { 0, 1 } }));
    // Neither the surface nor its snapshot shows the byte.
    EXPECT_EQ(dc->GetPixel(0, 1), kKey);
    EXPECT_EQ(picture->GetPixel(1, 0), kKey);
    Dib shot = picture->Snapshot();
    for (int32_t x = 0; x < 4; ++x)
        EXPECT_EQ(shot.row(0)[4 * x + 3], 0) << x;
}

TEST(FourthByte, CopiesCarryItExceptAScaledHalftone)
{
    auto dc = CreateSurface(8, 4);
    auto picture = Holding(*dc, KeyPicture());
    struct Copy {
        int mode; // 0: BitBlt
        PixelSet keyed;
    };
    const Copy copies[] = {
        { 0, kNonZero },
        { kStretchColorOnColor, kNonZero },
        { kStretchHalftone, kNonZero },
    };
    for (const Copy& c : copies) {
        auto copy = MemoryWith(*dc, 4, 2, kKey);
        if (c.mode == 0) {
            copy->BitBlt(0, 0, 4, 2, *picture, 0, 0);
        } else {
            copy->SetStretchBltMode(c.mode);
            copy->StretchBlt(0, 0, 4, 2, *picture, 0, 0, 4, 2);
        }
        EXPECT_EQ(Describe(Keyed(*copy, 4, 2)), Describe(c.keyed)) << c.mode;
    }
    // Scaled, HALFTONE interpolates the colours only and leaves 0; the other modes pick or
    // combine the byte with the colour (BLACKONWHITE ANDs: only 0xFF & 0xFF stays non-zero).
    auto halftone = MemoryWith(*dc, 8, 4, kKey);
    halftone->SetStretchBltMode(kStretchHalftone);
    halftone->StretchBlt(0, 0, 8, 4, *picture, 0, 0, 4, 2);
    EXPECT_TRUE(Keyed(*halftone, 8, 4).empty());
    auto anded = MemoryWith(*dc, 2, 2, kKey);
    anded->StretchBlt(0, 0, 2, 2, *picture, 0, 0, 4, 2);
    EXPECT_EQ(Describe(Keyed(*anded, 2, 2)), Describe(PixelSet { { 0, 1 } }));
}

TEST(FourthByte, FillsAndKeyedBlitsClearIt)
{
    auto dc = CreateSurface(8, 4);
    auto picture = Holding(*dc, KeyPicture());
    auto copy = MemoryWith(*dc, 4, 2, 0);
    copy->BitBlt(0, 0, 4, 2, *picture, 0, 0);
    copy->FillRect(Rect { 0, 1, 1, 2 }, Brush::Solid(kKey)); // (0, 1) loses it
    // A keyed blit of a plain key-coloured source over (2, 0)..(3, 1) draws nothing, but clears
    // the byte under its whole rectangle: (1, 0) keeps it, (2, 0) loses it.
    auto plain = MemoryWith(*dc, 2, 2, kKey);
    copy->TransparentBlt(2, 0, 2, 2, *plain, 0, 0, 2, 2, kKey);
    EXPECT_EQ(Describe(Keyed(*copy, 4, 2)), Describe(PixelSet { { 1, 0 }, { 1, 1 } }));
}

// An icon with alpha blends the byte like a channel: a clear pixel leaves it, any other sets it.
TEST(FourthByte, IconBlendSetsItWhereTheIconIsNotClear)
{
    auto dc = CreateSurface(4, 1);
    Icon icon { Dib(3, 1, 32, true), Dib(3, 1, 1, true) };
    icon.mask.palette() = { { 0, 0, 0, 0 }, { 255, 255, 255, 0 } };
    const uint8_t alphas[3] = { 0, 1, 200 };
    for (int32_t x = 0; x < 3; ++x) {
        uint8_t* p = icon.color.row(0) + 4 * x;
        p[0] = 255, p[1] = 0, p[2] = 255, p[3] = alphas[x];
    }
    auto canvas = MemoryWith(*dc, 3, 1, kKey);
    canvas->DrawIconEx(0, 0, icon, 3, 1, kDrawIconNormal);
    for (int32_t x = 0; x < 3; ++x)
        EXPECT_EQ(canvas->GetPixel(x, 0), kKey) << x; // the colours blend back to the key
    EXPECT_EQ(Describe(Keyed(*canvas, 3, 1)), Describe(PixelSet { { 1, 0 }, { 2, 0 } }));
}

} // namespace
} // namespace vex::platform::soft::testing
