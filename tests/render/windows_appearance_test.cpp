// The Windows appearance: the shading rows and columns, and the four border sides with their
// corner offsets and the deliberately odd rows.

#include <gtest/gtest.h>

#include "paint_fixture.h"

namespace vex::render {
namespace {

using testing::Panel;

constexpr ColorRef kMarker = 0x00FF00FF;

struct WindowsPanel : Panel {
    WindowsPanel(int32_t width = 60, int32_t height = 40) : Panel(width, height)
    {
        props.Appearance = TypeAppearance(TypeAppearance::Windows);
        props.WinOptionColor = TypeWinOptionColor(TypeWinOptionColor::WinBackColorOption);
        props.WinBackColor = Rgb(100, 150, 200);
        props.WinContrast = TypeWinContrast(TypeWinContrast::MediumContrast); // 40
        props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pTopToButtomDirection);
        NoBorders();
        Fill(kMarker);
    }
    void NoBorders() { props.WinBorderTopStyle = props.WinBorderBottomStyle = props.WinBorderLeftStyle = props.WinBorderRightStyle = TypeWinBorderStyle::NoneBorder; }
    void Paint()
    {
        PaintContext context = Context();
        DrawWindowsAppearance(context);
    }
    ColorRef B(int32_t amount) const { return ShiftColour(Rgb(100, 150, 200), amount, false); }
};

TEST(WindowsShading, TopToBottomDarkensRowByRow)
{
    WindowsPanel panel(60, 40);
    panel.Paint();
    // step = 40 / 40 = 1: row y is shifted by -y.
    for (int y : { 0, 1, 17, 39 }) {
        EXPECT_EQ(panel.Pixel(0, y), panel.B(-y)) << y;
        EXPECT_EQ(panel.Pixel(59, y), panel.B(-y)) << y;
    }
    EXPECT_EQ(panel.state.PaintLoopIndex, 41);
}

TEST(WindowsShading, StepsRoundHalfToEven)
{
    WindowsPanel panel(10, 16);
    panel.props.WinContrast = TypeWinContrast(TypeWinContrast::LowContrast); // 20 over 16 rows: 1.25 per row
    panel.Paint();
    EXPECT_EQ(panel.Pixel(0, 2), panel.B(-2));  // 2.5 -> 2
    EXPECT_EQ(panel.Pixel(0, 6), panel.B(-8));  // 7.5 -> 8
    EXPECT_EQ(panel.Pixel(0, 10), panel.B(-12)); // 12.5 -> 12
}

TEST(WindowsShading, BottomToTopShiftsDownThenBackUp)
{
    WindowsPanel panel(10, 40);
    panel.props.WinBackColor = Rgb(20, 150, 200);
    panel.props.WinContrast = TypeWinContrast(TypeWinContrast::HighContrast); // 80, step 2
    panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pButtomToTopDirection);
    panel.Paint();
    const ColorRef dark = ShiftColour(Rgb(20, 150, 200), -80, false); // red clamped at 0
    EXPECT_EQ(panel.Pixel(0, 0), dark);
    EXPECT_EQ(panel.Pixel(0, 39), ShiftColour(dark, 78, false));
    EXPECT_EQ(RedOf(panel.Pixel(0, 39)), 78u); // red was clamped at 0 on the way down
    EXPECT_EQ(panel.state.PaintLoopIndex, -1);
}

TEST(WindowsShading, ColumnsLeftToRightAndRightToLeft)
{
    WindowsPanel panel(40, 12);
    panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pLeftToRightDirection);
    panel.Paint();
    for (int x : { 0, 9, 39 }) {
        EXPECT_EQ(panel.Pixel(x, 0), panel.B(-x)) << x;
        EXPECT_EQ(panel.Pixel(x, 11), panel.B(-x)) << x;
    }
    panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pRightToLeftDirection);
    panel.Paint();
    const ColorRef dark = panel.B(-40);
    EXPECT_EQ(panel.Pixel(0, 5), dark);
    EXPECT_EQ(panel.Pixel(25, 5), ShiftColour(dark, 25, false));
}

TEST(WindowsShading, CentreDirectionsAreLightInTheMiddle)
{
    WindowsPanel panel(20, 41);
    panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pVerticalCenterDirection); // half = 20, step 2
    panel.Paint();
    EXPECT_EQ(panel.Pixel(3, 20), panel.B(0));
    EXPECT_EQ(panel.Pixel(3, 0), panel.B(-40));
    EXPECT_EQ(panel.Pixel(3, 19), ShiftColour(panel.B(-40), 38, false));
    EXPECT_EQ(panel.Pixel(3, 40), panel.B(-40));
    EXPECT_EQ(panel.Pixel(3, 25), panel.B(-10));

    WindowsPanel across(41, 6);
    across.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pHorizontalCenterDirection);
    across.props.WinBackColor = Rgb(10, 150, 200); // red clamps: the middle keeps the second colour
    across.Paint();
    const ColorRef base = Rgb(10, 150, 200);
    EXPECT_EQ(across.Pixel(20, 3), base);
    EXPECT_EQ(across.Pixel(19, 3), ShiftColour(ShiftColour(base, -40, false), 38, false));
    EXPECT_EQ(across.Pixel(21, 5), ShiftColour(base, -2, false));
}

TEST(WindowsShading, NoShadingForUnknownDirectionsFlatForUnknownContrasts)
{
    WindowsPanel panel;
    panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection(6));
    panel.Paint();
    EXPECT_EQ(panel.Pixel(30, 20), kMarker);

    panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection::pTopToButtomDirection);
    panel.props.WinContrast = TypeWinContrast(TypeWinContrast(3));
    panel.Paint();
    EXPECT_EQ(panel.Pixel(30, 0), panel.B(0));
    EXPECT_EQ(panel.Pixel(30, 39), panel.B(0));
}

TEST(WindowsShading, ThemesUseTheShiftedButtonFace)
{
    WindowsPanel panel;
    panel.props.WinOptionColor = TypeWinOptionColor(TypeWinOptionColor::ThemesColorOption);
    panel.props.WinContrast = TypeWinContrast(TypeWinContrast(5));
    panel.Paint();
    EXPECT_EQ(panel.Pixel(5, 5), ShiftColour(panel.Sys(15), 30, true));
}

TEST(WindowsShading, PendingCaptureSkipsTheShadingButNotTheBorders)
{
    WindowsPanel panel;
    panel.props.BackStyle = TypeBackStyle(TypeBackStyle::Transparent);
    panel.state.CaptureBackground = 1;
    panel.props.WinBorderTopStyle = TypeWinBorderStyle(TypeWinBorderStyle::ShadowBorder);
    panel.Paint();
    EXPECT_EQ(panel.Pixel(30, 20), kMarker);
    EXPECT_EQ(panel.Pixel(30, 0), panel.B(-40));

    panel.props.BackStyle = TypeBackStyle(TypeBackStyle::Opaque); // opaque shades even while capturing
    panel.Paint();
    EXPECT_EQ(panel.Pixel(30, 20), panel.B(-20));
}

// The four sides on a 20 x 10 panel without shading: each probe is the back colour (or, with
// themes, the shaded button face) shifted by an amount, or untouched.
TEST(WindowsBorders, SidesTheirCornerOffsetsAndTheOddRows)
{
    constexpr int kUntouched = 1000;
    struct Probe {
        int x, y, shift;
        bool differs = false; // the pixel is anything but that shift
    };
    struct Sides {
        const char* name;
        int16_t top, left, bottom, right; // 0 none, 1 lowered, 2 raised, 3 shadow
        bool themes;
        std::vector<Probe> probes;
    };
    const Sides cases[] = {
        { "a top shadow alone runs the full width", 3, 0, 0, 0, false, { { 0, 1, -25 }, { 19, 2, -20 } } },
        { "raised top, left and right: the outer top row is shortened too", 2, 2, 0, 2, false,
            { { 1, 0, 40 }, { 18, 0, 40 }, { 19, 0, kUntouched }, { 19, 1, -50 }, { 0, 0, 40 } } },
        { "left shadow under no top", 0, 3, 0, 0, true, { { 0, 9, -40 }, { 1, 9, -25 }, { 2, 0, -20 } } },
        { "left shadow under a lowered top starts one row down", 1, 3, 0, 0, true,
            { { 0, 9, -40 }, { 1, 9, -25 }, { 2, 1, -20 }, { 2, 0, -20, true } } },
        { "left shadow under a raised top starts one row down", 2, 3, 0, 0, true,
            { { 0, 9, -40 }, { 1, 9, -25 }, { 2, 1, -20 }, { 2, 0, -20, true } } },
        { "left shadow under a shadow top starts two rows down", 3, 3, 0, 0, true, { { 0, 9, -40 }, { 1, 9, -25 }, { 2, 2, -20 } } },
        { "a left shadow with the back colour draws along the top", 0, 3, 1, 0, false,
            { { 19, 0, -40 }, { 0, 5, kUntouched }, { 1, 0, -25 }, { 1, 8, -25 }, { 1, 9, 40 } } },
        { "lowered right: the inner column full length, the outer one from row 2", 3, 0, 0, 1, false,
            { { 18, 9, -50 }, { 19, 1, kUntouched }, { 19, 2, 40 }, { 19, 9, 40 } } },
        { "bottom shadow between a left shadow and a lowered right", 0, 3, 3, 1, false,
            { { 0, 9, -40 }, { 2, 8, -25 }, { 1, 8, -25 }, { 18, 7, -20 }, { 19, 7, 40 } } },
    };
    for (const Sides& c : cases) {
        SCOPED_TRACE(c.name);
        WindowsPanel panel(20, 10);
        panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection(9));
        panel.props.WinOptionColor = c.themes ? TypeWinOptionColor::ThemesColorOption : TypeWinOptionColor::WinBackColorOption;
        panel.props.WinBorderTopStyle = TypeWinBorderStyle(c.top);
        panel.props.WinBorderLeftStyle = TypeWinBorderStyle(c.left);
        panel.props.WinBorderBottomStyle = TypeWinBorderStyle(c.bottom);
        panel.props.WinBorderRightStyle = TypeWinBorderStyle(c.right);
        panel.Paint();
        const ColorRef base = c.themes ? panel.state.SysColors.ShadedFace : Rgb(100, 150, 200);
        for (const Probe& probe : c.probes) {
            const ColorRef expected = probe.shift == kUntouched ? kMarker : ShiftColour(base, probe.shift, false);
            if (probe.differs)
                EXPECT_NE(panel.Pixel(probe.x, probe.y), expected) << probe.x << "," << probe.y;
            else
                EXPECT_EQ(panel.Pixel(probe.x, probe.y), expected) << probe.x << "," << probe.y;
        }
    }
}

// What a stored colour paints, as OleTranslateColor and a GDI brush give it under Wine: a
// palette index is looked up in the default palette when drawn, a system colour by its low
// byte alone, and a value that names no colour is black.
TEST(TranslateColor, PaintsWhatThePlatformPaints)
{
    Panel panel(1, 1);
    platform::DeviceContext& dc = *panel.services.surface;
    const struct {
        OleColor stored;
        ColorRef painted; // or a system colour index when system >= 0
        int system = -1;
    } cases[] = {
        { Rgb(255, 224, 192), Rgb(255, 224, 192) }, { 0x02123456, 0x123456 }, { 0x01000005, Rgb(128, 0, 128) },
        { 0x0100000F, Rgb(255, 255, 0) }, { 0x01000010, Rgb(0, 0, 255) }, { 0x01000100, 0 }, { 0x01FF0005, Rgb(128, 0, 128) },
        { 0x8000000F, 0, 15 }, { 0x80000105, 0, 5 }, { 0x80FF000F, 0, 15 }, { 0x8000001E, 0, 30 }, { 0x8000001F, 0 },
        { 0x800000FF, 0 }, { 0x81000005, 0 }, { 0x03000005, 0 }, { 0x40000000, 0 }, { 0xFFFFFFFF, 0 },
    };
    for (const auto& c : cases) {
        dc.FillRect({ 0, 0, 1, 1 }, platform::Brush::Solid(TranslateColor(c.stored, dc)));
        EXPECT_EQ(dc.GetPixel(0, 0), c.system >= 0 ? dc.GetSysColor(c.system) : c.painted) << std::hex << c.stored;
    }
}

} // namespace
} // namespace vex::render
