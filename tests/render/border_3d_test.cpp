// The 3D border: ring depths and colours of every style, the gap band, the flat option and the
// over-wide border whose rings cross.

#include <gtest/gtest.h>

#include "paint_fixture.h"

namespace vex::render {
namespace {

using testing::Panel;

constexpr ColorRef kMarker = 0x00FF00FF;
constexpr ColorRef kLight = Rgb(250, 250, 250);
constexpr ColorRef kDark = Rgb(50, 50, 50);
constexpr ColorRef kBand = Rgb(0, 0, 200);

struct BorderPanel : Panel {
    BorderPanel(int32_t width, int32_t height, int16_t style, int16_t w, int16_t o = 0) : Panel(width, height)
    {
        props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(style));
        props.Panel3DBorderWidth = w;
        props.Panel3DBorderOffset = o;
        props.Panel3DHighLight = kLight;
        props.Panel3DShadow = kDark;
        props.Panel3DOffsetColor = kBand;
        Fill(kMarker);
    }
    void Paint()
    {
        PaintContext context = Context();
        Draw3DBorder(context);
    }
};

TEST(Border3D, LoweredRingIsDarkTopLeftLightBottomRight)
{
    BorderPanel panel(30, 20, 1, 1);
    panel.Paint();
    EXPECT_EQ(panel.Pixel(0, 0), kDark);
    EXPECT_EQ(panel.Pixel(28, 0), kDark);
    EXPECT_EQ(panel.Pixel(29, 0), kLight);  // the right line starts at the top
    EXPECT_EQ(panel.Pixel(0, 18), kDark);
    EXPECT_EQ(panel.Pixel(0, 19), kLight);  // the bottom line holds both bottom corners
    EXPECT_EQ(panel.Pixel(29, 19), kLight);
    EXPECT_EQ(panel.Pixel(1, 1), kMarker);
    EXPECT_EQ(panel.state.PaintLoopIndex, 2);
}

TEST(Border3D, GrooveWithABand)
{
    BorderPanel panel(100, 50, 3, 2, 3);
    panel.Paint();
    // Depths 0-1 lowered, 2-4 the band, 5-6 raised.
    EXPECT_EQ(panel.Pixel(50, 0), kDark);
    EXPECT_EQ(panel.Pixel(50, 1), kDark);
    EXPECT_EQ(panel.Pixel(50, 48), kLight);
    for (int depth = 2; depth <= 4; ++depth) {
        EXPECT_EQ(panel.Pixel(50, depth), kBand) << depth;
        EXPECT_EQ(panel.Pixel(depth, 25), kBand) << depth;
        EXPECT_EQ(panel.Pixel(99 - depth, 25), kBand) << depth;
    }
    EXPECT_EQ(panel.Pixel(50, 5), kLight);
    EXPECT_EQ(panel.Pixel(5, 25), kLight);
    EXPECT_EQ(panel.Pixel(94, 25), kDark);
    // The innermost top line runs from (6, 6) to (94, 6); its last pixel is overdrawn by the
    // right line of the same ring.
    EXPECT_EQ(panel.Pixel(92, 6), kLight);
    EXPECT_EQ(panel.Pixel(93, 6), kDark);
    EXPECT_EQ(panel.Pixel(6, 43), kDark);
    EXPECT_EQ(panel.Pixel(7, 7), kMarker);
    EXPECT_EQ(panel.Pixel(92, 42), kMarker);
}

TEST(Border3D, RidgeIsTheGrooveTurnedOver)
{
    BorderPanel panel(40, 30, 4, 1, 1);
    panel.Paint();
    EXPECT_EQ(panel.Pixel(10, 0), kLight);
    EXPECT_EQ(panel.Pixel(10, 1), kBand);
    EXPECT_EQ(panel.Pixel(10, 2), kDark);
    EXPECT_EQ(panel.Pixel(37, 10), kLight);
    EXPECT_EQ(panel.Pixel(10, 27), kLight);
}

TEST(Border3D, FlatOptionMakesLoweredAndRaisedAlikeButNotTheBand)
{
    BorderPanel lowered(40, 30, 3, 2, 2);
    lowered.props.Panel3DBorderOption = true;
    lowered.props.Panel3DBorderColor = Rgb(1, 2, 3);
    lowered.Paint();
    BorderPanel raised(40, 30, 4, 2, 2);
    raised.props.Panel3DBorderOption = true;
    raised.props.Panel3DBorderColor = Rgb(1, 2, 3);
    raised.Paint();
    EXPECT_EQ(lowered.services.surface->Snapshot().bits(), raised.services.surface->Snapshot().bits());
    EXPECT_EQ(lowered.Pixel(20, 0), Rgb(1, 2, 3));
    EXPECT_EQ(lowered.Pixel(20, 2), kBand);
    EXPECT_EQ(lowered.Pixel(39, 20), Rgb(1, 2, 3));
    EXPECT_EQ(lowered.Pixel(37, 20), kBand);

    BorderPanel none(40, 30, 0, 2, 2);
    none.props.Panel3DBorderOption = true;
    none.Paint();
    EXPECT_EQ(none.Pixel(0, 0), kMarker);
    BorderPanel unknown(40, 30, 5, 2, 2);
    unknown.Paint();
    EXPECT_EQ(unknown.Pixel(0, 0), kMarker);
}

TEST(Border3D, BandColourFollowsTheSystemColour)
{
    BorderPanel panel(20, 20, 3, 1, 1);
    panel.props.Panel3DOffsetColor = SystemColor(15);
    panel.Paint();
    EXPECT_EQ(panel.Pixel(10, 1), panel.Sys(15));
}

TEST(Border3D, OverWideRingsCrossAndOverdraw)
{
    BorderPanel panel(10, 6, 1, 5);
    panel.Paint();
    // Ring 3's bottom row is 2 and ring 4's is 1: the lines run backwards and overdraw.
    EXPECT_EQ(panel.Pixel(4, 3), kDark);  // ring 4's left column, rows 4 down to 2
    EXPECT_EQ(panel.Pixel(5, 3), kLight); // ring 4's right column
    EXPECT_EQ(panel.Pixel(4, 2), kDark);
    EXPECT_EQ(panel.Pixel(3, 2), kLight); // ring 3's bottom row
    EXPECT_EQ(panel.Pixel(6, 1), kDark);  // ring 1's top row: ring 4's bottom row is only 4 and 5
    EXPECT_EQ(panel.state.PaintLoopIndex, 6);
}

TEST(Border3D, OnePixelWideClient)
{
    BorderPanel panel(1, 10, 1, 1);
    panel.Paint();
    EXPECT_EQ(panel.Pixel(0, 0), kLight); // the top pixel, then the right line over it
    EXPECT_EQ(panel.Pixel(0, 9), kLight);
}

} // namespace
} // namespace vex::render
