// Bitmaps from DIBs of every depth and row order, selection into memory contexts, read-back and
// the system colour table.

#include <gtest/gtest.h>

#include "platform/system_colors.h"
#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

ColorRef PixelAfterBlit(const Dib& dib, int32_t x, int32_t y)
{
    auto dc = SoftDeviceContext::CreateSurface(dib.width(), dib.height());
    auto memory = dc->CreateCompatibleDC();
    memory->SelectBitmap(dc->CreateBitmapFromDib(dib));
    dc->BitBlt(0, 0, dib.width(), dib.height(), *memory, 0, 0);
    return dc->GetPixel(x, y);
}

TEST(CreateBitmapFromDib, PalettedDepthsResolveTheirPalette)
{
    Dib mono(10, 2, 1);
    mono.palette() = { RgbQuad { 0, 0, 0xFF }, RgbQuad { 0xFF, 0, 0 } }; // red, blue
    mono.row(1)[1] = 0x40;                                              // pixel (9, 1) is index 1
    EXPECT_EQ(PixelAfterBlit(mono, 9, 1), Rgb(0, 0, 255));
    EXPECT_EQ(PixelAfterBlit(mono, 8, 1), Rgb(255, 0, 0));

    Dib nibbles(3, 1, 4);
    nibbles.palette().resize(16);
    nibbles.palette()[5] = RgbQuad { 1, 2, 3 };
    nibbles.row(0)[1] = 0x5F; // pixel 2 is index 5; index 15 of pixel 3 does not exist
    EXPECT_EQ(PixelAfterBlit(nibbles, 2, 0), Rgb(3, 2, 1));

    Dib bytes(2, 1, 8);
    bytes.palette() = { RgbQuad { 9, 8, 7 } };
    bytes.row(0)[0] = 0;
    bytes.row(0)[1] = 200; // past the palette: black
    EXPECT_EQ(PixelAfterBlit(bytes, 0, 0), Rgb(7, 8, 9));
    EXPECT_EQ(PixelAfterBlit(bytes, 1, 0), Rgb(0, 0, 0));
}

TEST(MemoryContext, SelectBitmapReturnsTheDisplacedOneAndTheStockIsEmpty)
{
    auto dc = SoftDeviceContext::CreateSurface(4, 4);
    auto memory = dc->CreateCompatibleDC();
    EXPECT_EQ(memory->Extent(), (Size { 1, 1 }));
    BitmapRef first = dc->CreateCompatibleBitmap(5, 3), second = dc->CreateCompatibleBitmap(2, 2);
    EXPECT_EQ(memory->SelectBitmap(first), nullptr);
    EXPECT_EQ(memory->Extent(), (Size { 5, 3 }));
    memory->FillRect(Rect { 0, 0, 5, 3 }, Brush::Solid(0x123456));
    EXPECT_EQ(memory->SelectBitmap(second), first);
    EXPECT_EQ(memory->SelectBitmap(first), second);
    EXPECT_EQ(memory->GetPixel(4, 2), 0x123456u); // the pixels stay with the bitmap
    EXPECT_EQ(memory->SelectBitmap(nullptr), first);
    EXPECT_EQ(dc->SelectBitmap(first), nullptr); // a window surface selects nothing
    EXPECT_EQ(dc->Extent(), (Size { 4, 4 }));
    EXPECT_EQ(dc->CreateCompatibleBitmap(-1, 5), nullptr);
    EXPECT_EQ(dc->CreateCompatibleBitmap(100000, 100000), nullptr);
}

TEST(ReadBack, GetPixelOutsideIsInvalidAndSnapshotIsTopDown32Bit)
{
    auto dc = SoftDeviceContext::CreateSurface(3, 2);
    dc->FillRect(Rect { 0, 1, 1, 2 }, Brush::Solid(Rgb(1, 2, 3)));
    EXPECT_EQ(dc->GetPixel(-1, 0), 0xFFFFFFFFu);
    EXPECT_EQ(dc->GetPixel(3, 0), 0xFFFFFFFFu);
    EXPECT_EQ(dc->GetPixel(0, 2), 0xFFFFFFFFu);
    Dib snapshot = dc->Snapshot();
    ASSERT_EQ(snapshot.bitCount(), 32);
    ASSERT_TRUE(snapshot.topDown());
    EXPECT_EQ(snapshot.row(1)[0], 3); // blue
    EXPECT_EQ(snapshot.row(1)[2], 1); // red
    EXPECT_EQ(snapshot.row(1)[3], 0); // alpha
    EXPECT_EQ(snapshot.pixel(0, 1), Rgb(1, 2, 3));
}

TEST(SystemColors, ClassicSchemeCoversEveryIndexInOrder)
{
    for (int index = 0; index < kSystemColorCount; ++index) {
        EXPECT_EQ(kClassicSystemColors[static_cast<size_t>(index)].index, index);
        EXPECT_FALSE(kClassicSystemColors[static_cast<size_t>(index)].registryName.empty());
    }
    auto dc = SoftDeviceContext::CreateSurface(1, 1);
    EXPECT_EQ(dc->GetSysColor(syscolor::ButtonFace), Rgb(212, 208, 200));
    EXPECT_EQ(dc->GetSysColor(syscolor::ButtonShadow), Rgb(128, 128, 128));
    EXPECT_EQ(dc->GetSysColor(syscolor::ButtonHighlight), Rgb(255, 255, 255));
    EXPECT_EQ(dc->GetSysColor(31), 0u);
    EXPECT_EQ(dc->GetSysColor(-1), 0u);
}

TEST(State, SettersReturnThePreviousValueAndRejectUnknownModes)
{
    auto dc = SoftDeviceContext::CreateSurface(1, 1);
    EXPECT_EQ(dc->SetBkMode(kBkTransparent), kBkOpaque);
    EXPECT_EQ(dc->SetBkMode(7), 0);
    EXPECT_EQ(dc->SetBkMode(kBkOpaque), kBkTransparent);
    EXPECT_EQ(dc->SetStretchBltMode(kStretchHalftone), 1);
    EXPECT_EQ(dc->SetStretchBltMode(0), 0);
    EXPECT_EQ(dc->SetStretchBltMode(kStretchColorOnColor), kStretchHalftone);
    EXPECT_EQ(dc->SetTextColor(0x0000FF), 0u);
    EXPECT_EQ(dc->SelectPen(Pen::Null()), Pen::Solid(0));
    EXPECT_EQ(dc->SelectBrush(Brush::Hollow()), Brush::Solid(0xFFFFFF));
    EXPECT_EQ(dc->SelectFont(FontDesc { "Tahoma", 10 }), FontDesc {});
}

} // namespace
} // namespace vex::platform::soft::testing
