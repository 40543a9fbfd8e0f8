// The recording context: every call logged with its arguments, on memory contexts too, while
// the decorated context still draws.

#include <gtest/gtest.h>

#include "testing/recording_context.h"
#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

TEST(RecordingContext, LogsCallsWithArgumentsAndStillDraws)
{
    auto surface = WhiteSurface(40, 20);
    RecordingContext dc(*surface);
    dc.SelectPen(Pen::Solid(Rgb(255, 0, 0)));
    dc.MoveToEx(1, 2);
    dc.LineTo(9, 2);
    dc.FillRect({ 0, 10, 5, 15 }, Brush::Solid(Rgb(0, 0, 255)));
    dc.SelectBrush(Brush::Hollow());
    Rect rect { 0, 0, 40, 20 };
    dc.DrawText("Caption", rect, dt::SingleLine | dt::CalcRect);
    EXPECT_EQ(dc.Log(),
        "SelectPen(solid #FF0000)\n"
        "MoveToEx(1, 2)\n"
        "LineTo(9, 2)\n"
        "FillRect({0,10,5,15}, solid #0000FF)\n"
        "SelectBrush(hollow)\n"
        "DrawText(\"Caption\", {0,0,40,20}, 0x420)\n");
    EXPECT_EQ(rect, (Rect { 0, 0, 36, 13 })); // the result comes from the decorated context
    EXPECT_EQ(surface->GetPixel(8, 2), Rgb(255, 0, 0));
    EXPECT_EQ(surface->GetPixel(9, 2), 0xFFFFFFu);
    EXPECT_EQ(dc.Count("LineTo"), 1u);
    ASSERT_EQ(dc.CallsNamed("DrawText").size(), 1u);
    EXPECT_EQ(dc.CallsNamed("DrawText")[0].text, "Caption");
    EXPECT_EQ(dc.CallsNamed("DrawText")[0].args, (std::vector<int64_t> { 0, 0, 40, 20, 0x420 }));
}

TEST(RecordingContext, MemoryContextsShareTheLogAndBlitThroughToTheirDecoratedSource)
{
    RecordingContext dc(SoftDeviceContext::CreateSurface(10, 10));
    auto memory = dc.CreateCompatibleDC();
    memory->SelectBitmap(dc.CreateCompatibleBitmap(4, 4));
    memory->FillRect({ 0, 0, 4, 4 }, Brush::Solid(Rgb(1, 2, 3)));
    dc.BitBlt(2, 2, 4, 4, *memory, 0, 0);
    EXPECT_EQ(dc.Inner().GetPixel(5, 5), Rgb(1, 2, 3));
    EXPECT_EQ(dc.Log(),
        "CreateCompatibleDC(1)\n"
        "CreateCompatibleBitmap(4, 4)\n"
        "#1 SelectBitmap(4, 4)\n"
        "#1 FillRect({0,0,4,4}, solid #010203)\n"
        "BitBlt(2, 2, 4, 4, 0, 0)\n");
    dc.Clear();
    EXPECT_TRUE(dc.Calls().empty());
}

TEST(RecordingContext, FontsAndColoursReadBack)
{
    auto surface = WhiteSurface(4, 4);
    RecordingContext dc(*surface);
    FontDesc font;
    font.name = "Tahoma";
    font.size = 9.75f;
    font.bold = true;
    dc.SelectFont(font);
    dc.SetTextColor(Rgb(0x12, 0x34, 0x56));
    dc.TransparentBlt(0, 0, 2, 2, dc, 0, 0, 1, 1, Rgb(255, 0, 255));
    EXPECT_EQ(dc.Log(),
        "SelectFont(\"Tahoma\", 9.75pt bold)\n"
        "SetTextColor(#123456)\n"
        "TransparentBlt(0, 0, 2, 2, 0, 0, 1, 1, key #FF00FF)\n");
}

} // namespace
} // namespace vex::platform::soft::testing
