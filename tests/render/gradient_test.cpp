// VexGradiente: colour tables (interpolation, rounding, positions) and the pixels of the linear
// and square gradients, the square ones checked against one Rectangle per square.

#include <gtest/gtest.h>

#include "gradient/vex_gradiente.h"
#include "platform/soft/soft_device_context.h"
#include "raises.h"

namespace vex {
namespace {

using platform::soft::SoftDeviceContext;
using testing::RaisedBy;

VexGradiente Engine(std::vector<int32_t> colours, std::vector<int32_t> positions = { 0 }, bool given = false)
{
    VexGradiente engine;
    engine.setUseColourPositions(given);
    engine.SetColours(colours);
    engine.SetColourPositions(positions);
    return engine;
}

TEST(GradientTable, TwoColoursOverNoStepsIsTheFirstColour)
{
    VexGradiente engine = Engine({ 0x123456, 0xFFFFFF });
    EXPECT_EQ(engine.BuildColourTable(0), (std::vector<ColorRef> { 0x123456 }));
}

TEST(GradientTable, BlackToWhiteOver255StepsIsTheIdentity)
{
    VexGradiente engine = Engine({ 0x000000, 0xFFFFFF });
    std::vector<ColorRef> table = engine.BuildColourTable(255);
    ASSERT_EQ(table.size(), 256u);
    for (uint32_t j = 0; j < 256; ++j)
        ASSERT_EQ(table[j], Rgb(j, j, j)) << j;
}

TEST(GradientTable, ChannelsInterpolateSeparatelyAndRoundHalfToEven)
{
    // red 0 -> 5 over 2 steps: 0, 2.5 -> 2 (even), 5; blue 10 -> 7: 10, 8.5 -> 8, 7.
    VexGradiente engine = Engine({ Rgb(0, 100, 10), Rgb(5, 100, 7) });
    std::vector<ColorRef> table = engine.BuildColourTable(2);
    EXPECT_EQ(table, (std::vector<ColorRef> { Rgb(0, 100, 10), Rgb(2, 100, 8), Rgb(5, 100, 7) }));
}

TEST(GradientTable, GivenPositionsReachEveryKeyColourExactly)
{
    VexGradiente engine = Engine({ Rgb(255, 0, 0), Rgb(0, 255, 0), Rgb(0, 0, 255) }, { 0, 50, 100 }, true);
    std::vector<ColorRef> table = engine.BuildColourTable(100);
    EXPECT_EQ(table[0], Rgb(255, 0, 0));
    EXPECT_EQ(table[50], Rgb(0, 255, 0));
    EXPECT_EQ(table[100], Rgb(0, 0, 255));
    // The steps are single precision: -5.1 and 5.1 times 25 land just either side of 127.5.
    EXPECT_EQ(table[25], Rgb(128, 127, 0));
}

TEST(GradientTable, SpreadPositionsRoundHalfToEvenAndAreWrittenBack)
{
    VexGradiente engine = Engine({ 0, 0x808080, 0xFFFFFF }, { 7, 7, 7, 7 });
    engine.BuildColourTable(101);
    EXPECT_EQ(engine.colourPositions(), (std::vector<int32_t> { 0, 50, 101 }));
    engine.BuildColourTable(103); // 51.5 -> 52
    EXPECT_EQ(engine.colourPositions(), (std::vector<int32_t> { 0, 52, 103 }));
}

TEST(GradientTable, UnequalArraysShowTheMessageAndCarryOn)
{
    std::vector<std::string> shown;
    VexGradiente engine = Engine({ 0, 0xFFFFFF }, { 0, 4, 8 }, true);
    engine.setMessageBox([&](const std::string& text) { shown.push_back(text); });
    std::vector<ColorRef> table = engine.BuildColourTable(4);
    EXPECT_EQ(shown, (std::vector<std::string> { "Position array and Colour array do not contain equal number of items" }));
    EXPECT_EQ(table[4], 0xFFFFFFu);

    // Too few positions: the message, then a subscript error.
    shown.clear();
    VexGradiente short_ = Engine({ 0, 0x808080, 0xFFFFFF }, { 0, 4 }, true);
    short_.setMessageBox([&](const std::string& text) { shown.push_back(text); });
    EXPECT_EQ(RaisedBy([&] { short_.BuildColourTable(4); }), 9);
    EXPECT_EQ(shown.size(), 1u);
}

TEST(GradientTable, ErrorsOfTheHost)
{
    // Bit 24 gives a green of 65536 + g, which overflows 16 bits.
    EXPECT_EQ(RaisedBy([] { Engine({ 0x01000000, 0 }).BuildColourTable(4); }), 6);
    // A position beyond the steps runs off the table.
    EXPECT_EQ(RaisedBy([] { Engine({ 0, 0xFF }, { 0, 9 }, true).BuildColourTable(4); }), 9);
    EXPECT_EQ(RaisedBy([] { Engine({}).BuildColourTable(4); }), 9);
    // Colours with bits above 24 but not bit 24 are fine.
    EXPECT_EQ(RaisedBy([] { Engine({ 0x02000000, 0 }).BuildColourTable(4); }), 0);
}

class GradientPixels : public ::testing::Test {
protected:
    std::unique_ptr<SoftDeviceContext> dc = SoftDeviceContext::CreateSurface(40, 30);
    void SetUp() override
    {
        dc->FillRect(platform::Rect { 0, 0, 40, 30 }, platform::Brush::Solid(0x00FF00FF));
        dc->SelectBrush(platform::Brush::Hollow());
    }
};

TEST_F(GradientPixels, RowsRunFromTopToTopPlusHeightAcrossTheWidth)
{
    VexGradiente engine = Engine({ 0x000000, 0x0A0A0A });
    engine.Attach(*dc);
    engine.DrawLinearGradient(2, 3, 10, 10, true, false); // 11 rows, 3 .. 13
    EXPECT_EQ(dc->GetPixel(1, 3), 0x00FF00FFu);
    EXPECT_EQ(dc->GetPixel(2, 3), 0u);
    EXPECT_EQ(dc->GetPixel(11, 8), 0x050505u);
    EXPECT_EQ(dc->GetPixel(12, 8), 0x00FF00FFu); // the end of each line is not painted
    EXPECT_EQ(dc->GetPixel(2, 13), 0x0A0A0Au);   // steps + 1 lines
    EXPECT_EQ(dc->GetPixel(2, 14), 0x00FF00FFu);
}

// A centre start skips the first half of the columns, rounded half to even (7 steps start at 4,
// 11 at 6), and still draws the rest of the run.
TEST_F(GradientPixels, FlagColorSkipsTheFirstHalfButKeepsTheFullRun)
{
    for (auto [steps, first] : { std::pair { 10, 5 }, std::pair { 7, 4 }, std::pair { 11, 6 } }) {
        VexGradiente engine = Engine({ 0x000000, static_cast<int32_t>(Rgb(steps, steps, steps)) });
        engine.Attach(*dc);
        engine.DrawLinearGradient(0, 0, steps, 30, false, true);
        for (int x = 0; x <= steps + 1; ++x) {
            const ColorRef expected = x >= first && x <= steps ? Rgb(x, x, x) : 0x00FF00FFu;
            EXPECT_EQ(dc->GetPixel(x, 0), expected) << steps << " steps, column " << x;
            EXPECT_EQ(dc->GetPixel(x, 29), expected) << steps << " steps, column " << x;
        }
        SetUp();
    }
}

TEST_F(GradientPixels, ColumnsEqualOneLinePerColumnEvenWhenClipped)
{
    for (auto [left, top, width, height] : { std::array { 0, 0, 40, 30 }, std::array { -5, -7, 50, 20 },
             std::array { 30, 10, 20, 40 }, std::array { 3, 25, 7, -9 }, std::array { 4, 6, 9, 0 } }) {
        VexGradiente engine = Engine({ Rgb(10, 200, 30), Rgb(250, 0, 90), Rgb(0, 40, 255) });
        engine.Attach(*dc);
        engine.DrawLinearGradient(left, top, width, height, false, false);

        auto expected = SoftDeviceContext::CreateSurface(40, 30);
        expected->FillRect(platform::Rect { 0, 0, 40, 30 }, platform::Brush::Solid(0x00FF00FF));
        std::vector<ColorRef> table = engine.BuildColourTable(width);
        for (int32_t i = 0; i <= width; ++i) {
            expected->SelectPen(platform::Pen::Solid(table[i]));
            expected->MoveToEx(left + i, top);
            expected->LineTo(left + i, top + height);
        }
        EXPECT_EQ(dc->Snapshot().bits(), expected->Snapshot().bits()) << left << "," << top;
        SetUp();
    }
}

// The squares drawn row by row must equal one Rectangle per square, wherever the centre is.
TEST_F(GradientPixels, SquaresEqualOneRectanglePerSquare)
{
    struct Case {
        int32_t cx, cy, radius;
    };
    for (Case c : { Case { 20, 15, 20 }, Case { 20, 15, 0 }, Case { 5, 3, 12 }, Case { 39, 29, 45 }, Case { 1, 1, 3 },
             Case { 0, 10, 8 }, Case { 20, 0, 6 }, Case { 20, 30, 6 }, Case { -4, 12, 9 }, Case { 60, 12, 25 } }) {
        VexGradiente engine = Engine({ Rgb(255, 0, 0), Rgb(0, 0, 255) });
        engine.Attach(*dc);
        engine.DrawRectangularGradients(c.cx, c.cy, c.radius);

        auto expected = SoftDeviceContext::CreateSurface(40, 30);
        expected->FillRect(platform::Rect { 0, 0, 40, 30 }, platform::Brush::Solid(0x00FF00FF));
        expected->SelectBrush(platform::Brush::Hollow());
        std::vector<ColorRef> table = engine.BuildColourTable(c.radius);
        for (int32_t i = 0; i <= c.radius; ++i) {
            expected->SelectPen(platform::Pen::Solid(table[i]));
            expected->Rectangle(c.cx - i, c.cy - i, c.cx + i, c.cy + i);
        }
        EXPECT_EQ(dc->Snapshot().bits(), expected->Snapshot().bits()) << c.cx << "," << c.cy << " r " << c.radius;
        SetUp();
    }
}

TEST_F(GradientPixels, SquaresWithASolidBrushFillInsideEachSquare)
{
    // The engine relies on a hollow brush; with a solid one each square covers the ones inside.
    dc->SelectBrush(platform::Brush::Solid(0x00123456));
    VexGradiente engine = Engine({ Rgb(255, 0, 0), Rgb(0, 0, 255) });
    engine.Attach(*dc);
    engine.DrawRectangularGradients(20, 15, 10);
    EXPECT_EQ(dc->GetPixel(20, 15), 0x00123456u);
    EXPECT_EQ(dc->GetPixel(10, 15), Rgb(0, 0, 255));
}

} // namespace
} // namespace vex
