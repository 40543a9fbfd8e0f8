// The Custom appearance: the gradient directions (with the swapped square colours) and what a
// pending capture and odd styles leave out. (The frame rings and their 16-bit limit are checked
// through DrawControl in tests/control.)

#include <gtest/gtest.h>

#include "paint_fixture.h"

namespace vex::render {
namespace {

using testing::Panel;

constexpr ColorRef kMarker = 0x00FF00FF;
constexpr ColorRef kFrame = Rgb(10, 20, 30);
constexpr ColorRef kStart = Rgb(200, 200, 200);
constexpr ColorRef kEnd = Rgb(0, 0, 0);

struct CustomPanel : Panel {
    CustomPanel(int32_t width, int32_t height, int16_t direction) : Panel(width, height)
    {
        props.Appearance = TypeAppearance(TypeAppearance::Custom);
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseGradient);
        props.CustomGradientDirection = TypeCustomGradientDirection(TypeCustomGradientDirection(direction));
        props.CustomGradientStart = kStart;
        props.CustomGradientEnds = kEnd;
        props.CustomBorderColor = kFrame;
        props.CustomBorderWidth = 0;
        Fill(kMarker);
    }
    void Paint()
    {
        PaintContext context = Context();
        DrawCustomGradient(context);
    }
};

TEST(CustomGradient, LinearDirections)
{
    CustomPanel down(20, 10, 0);
    down.Paint();
    EXPECT_EQ(down.Pixel(5, 0), kStart);
    EXPECT_EQ(down.Pixel(5, 5), Rgb(100, 100, 100));
    CustomPanel up(20, 10, 1);
    up.Paint();
    EXPECT_EQ(up.Pixel(5, 0), kEnd);
    EXPECT_EQ(up.Pixel(5, 9), Rgb(180, 180, 180));
    CustomPanel right(20, 10, 2);
    right.Paint();
    EXPECT_EQ(right.Pixel(0, 9), kStart);
    EXPECT_EQ(right.Pixel(19, 0), Rgb(10, 10, 10));
    CustomPanel left(20, 10, 3);
    left.Paint();
    EXPECT_EQ(left.Pixel(0, 9), kEnd);
}

TEST(CustomGradient, CentredReachesTheEndColourOnTheMiddleLine)
{
    CustomPanel panel(8, 101, 4);
    panel.Paint();
    EXPECT_EQ(panel.Pixel(3, 50), kEnd);
    EXPECT_EQ(panel.Pixel(3, 0), kStart);
    EXPECT_EQ(panel.Pixel(3, 100), Rgb(196, 196, 196)); // row 101, the start colour, lies outside
    EXPECT_NE(panel.Pixel(3, 49), kEnd);

    CustomPanel across(11, 4, 5); // m = 5
    across.Paint();
    EXPECT_EQ(across.Pixel(5, 2), kEnd);
    EXPECT_EQ(across.Pixel(0, 2), kStart);
}

TEST(CustomGradient, SquaresRunTheOtherWayToTheirNames)
{
    CustomPanel panel(200, 100, 6); // radius 100 about (100, 50)
    panel.Paint();
    EXPECT_EQ(panel.Pixel(0, 50), kStart);   // the outermost square
    EXPECT_EQ(panel.Pixel(199, 0), kStart);
    EXPECT_EQ(panel.Pixel(100, 50), Rgb(2, 2, 2)); // square 1, next to the end colour
    EXPECT_EQ(panel.Pixel(150, 50), Rgb(102, 102, 102));
    EXPECT_EQ(panel.Pixel(150, 99), Rgb(102, 102, 102));

    CustomPanel reverse(200, 100, 7);
    reverse.Paint();
    EXPECT_EQ(reverse.Pixel(0, 50), kEnd);
    EXPECT_EQ(reverse.Pixel(100, 50), Rgb(198, 198, 198));
}

TEST(CustomGradient, OnlyTheFrameWhenCapturingOrNotAGradientStyle)
{
    CustomPanel capturing(20, 10, 0);
    capturing.props.CustomBorderWidth = 1;
    capturing.props.BackStyle = TypeBackStyle(TypeBackStyle::Transparent);
    capturing.state.CaptureBackground = 1;
    capturing.Paint();
    EXPECT_EQ(capturing.Pixel(5, 5), kMarker);
    EXPECT_EQ(capturing.Pixel(0, 5), kFrame);

    CustomPanel odd(20, 10, 0);
    odd.props.CustomBorderWidth = 1;
    odd.props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle(2));
    odd.Paint();
    EXPECT_EQ(odd.Pixel(5, 5), kMarker);
    EXPECT_EQ(odd.Pixel(19, 9), kFrame);

    CustomPanel direction(20, 10, 8);
    direction.Paint();
    EXPECT_EQ(direction.Pixel(5, 5), kMarker);
}

TEST(CustomGradient, CornerStylesChangeNothing)
{
    CustomPanel square(30, 20, 6);
    square.props.CustomBorderWidth = 2;
    square.Paint();
    CustomPanel round(30, 20, 6);
    round.props.CustomBorderWidth = 2;
    round.props.CustomBorderLeftTopStyle = round.props.CustomBorderRightBottomStyle = TypeBorder(TypeBorder::RoundCornerBorder);
    round.props.CustomBorderRadio = 7;
    round.Paint();
    EXPECT_EQ(square.services.surface->Snapshot().bits(), round.services.surface->Snapshot().bits());
}

TEST(CustomTexture, TilesStartInsideTheFrame)
{
    CustomPanel panel(50, 30, 0);
    panel.props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
    panel.props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::TiledPicture);
    panel.props.PictureBackground = testing::MakePicture(10, 10, [](int x, int y) { return x == 0 && y == 0 ? Rgb(1, 1, 1) : Rgb(9, 9, 9); });
    for (int16_t width : { 0, 2 }) {
        panel.props.CustomBorderWidth = width;
        panel.Fill(kMarker);
        PaintContext context = panel.Context();
        DrawCustomTexture(context);
        EXPECT_EQ(panel.Pixel(width, width), Rgb(1, 1, 1)) << width;
        EXPECT_EQ(panel.Pixel(width + 10, width + 20), Rgb(1, 1, 1)) << width;
        EXPECT_EQ(panel.Pixel(49, 29), Rgb(9, 9, 9)) << width; // W \ pw + 1 columns reach the edge
    }
}

} // namespace
} // namespace vex::render
