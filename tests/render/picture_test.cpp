// The foreground picture (positions, frames, keys), its animation ticks over the saved
// background, and the background picture (centred, stretched, tiled) with its keys.

#include <gtest/gtest.h>

#include <algorithm>

#include "paint_fixture.h"
#include "raises.h"

namespace vex::render {
namespace {

using testing::MakePicture;
using testing::Panel;
using vex::testing::RaisedBy;

constexpr ColorRef kMarker = 0x00FF00FF;
constexpr ColorRef kSolid = Rgb(30, 60, 90);
constexpr ColorRef kOptionKey = Rgb(236, 233, 216);

platform::PictureRef Solid(int32_t width, int32_t height, ColorRef colour = kSolid)
{
    return MakePicture(width, height, [colour](int, int) { return colour; });
}

// Frame f of the strip is Rgb(f, f, f); its pixel (1, 1) the key colour `key`.
platform::PictureRef Strip(int32_t frames, int32_t frameWidth, int32_t height, ColorRef key = Rgb(255, 0, 255))
{
    return MakePicture(frames * frameWidth, height, [=](int x, int y) {
        return (x % frameWidth == 1 && y == 1) ? key : Rgb(x / frameWidth, x / frameWidth, x / frameWidth);
    });
}

struct PicturePanel : Panel {
    PicturePanel(int32_t width, int32_t height) : Panel(width, height) { Fill(kMarker); }
    void Paint(void (*painter)(PaintContext&))
    {
        PaintContext context = Context();
        painter(context);
    }
    void Tick() { Paint(AnimatePicture); }
};

// Where each painter puts the picture: a margin of 3, or the 3D border's inset (W + 1, or
// 3 + 2W + O for the banded styles), or 3 + the Custom frame; centring rounds halves to even.
TEST(Picture, PositionsByPainterAlignmentAndBorder)
{
    struct Case {
        void (*painter)(PaintContext&);
        int32_t width, height, pictureWidth, pictureHeight;
        TypeAlignment alignment;
        TypePanel3DStyle style;
        int16_t borderWidth, offset, customWidth;
        int32_t left, top;
    };
    const Case cases[] = {
        { DrawPicture, 200, 100, 32, 32, TypeAlignment::RightBottom, TypePanel3DStyle::None3D, 1, 3, 0, 165, 65 },
        { DrawPicture3D, 200, 100, 32, 32, TypeAlignment::RightBottom, TypePanel3DStyle::Lowered3D, 2, 4, 0, 163, 63 },
        { DrawPicture3D, 200, 100, 32, 32, TypeAlignment::LeftTop, TypePanel3DStyle::GBLowered3D, 2, 4, 0, 11, 11 },
        { DrawCustomPicture, 200, 100, 32, 32, TypeAlignment::LeftTop, TypePanel3DStyle::GBLowered3D, 2, 4, 5, 8, 8 },
        { DrawPicture, 73, 40, 32, 10, TypeAlignment::CenterMiddle, TypePanel3DStyle::None3D, 1, 3, 0, 20, 15 },
        { DrawPicture, 75, 40, 32, 10, TypeAlignment::CenterMiddle, TypePanel3DStyle::None3D, 1, 3, 0, 22, 15 },
    };
    for (const Case& c : cases) {
        PicturePanel panel(c.width, c.height);
        panel.props.Picture = Solid(c.pictureWidth, c.pictureHeight);
        panel.props.PictureAlignment = c.alignment;
        panel.props.Panel3DBorderStyle = c.style;
        panel.props.Panel3DBorderWidth = c.borderWidth;
        panel.props.Panel3DBorderOffset = c.offset;
        panel.props.CustomBorderWidth = c.customWidth;
        panel.Paint(c.painter);
        SCOPED_TRACE(std::to_string(c.left) + "," + std::to_string(c.top));
        EXPECT_EQ(panel.memory.pictureLeft, c.left);
        EXPECT_EQ(panel.memory.pictureTop, c.top);
        const int32_t right = c.left + c.pictureWidth - 1, bottom = c.top + c.pictureHeight - 1;
        EXPECT_EQ(panel.Pixel(c.left, c.top), kSolid);
        EXPECT_EQ(panel.Pixel(right, bottom), kSolid);
        EXPECT_EQ(panel.Pixel(c.left - 1, c.top), kMarker);
        EXPECT_EQ(panel.Pixel(right + 1, bottom), kMarker);
    }
}

TEST(Picture, UnknownPlacementKeepsTheLastPosition)
{
    PicturePanel panel(100, 60);
    panel.props.Picture = Solid(10, 10);
    panel.props.PictureAlignment = TypeAlignment(TypeAlignment::CenterBottom);
    panel.Paint(DrawPicture);
    EXPECT_EQ(panel.memory.pictureTop, 47);
    panel.props.PictureAlignment = TypeAlignment(TypeAlignment(9));
    panel.memory.pictureLeft = 4;
    panel.Paint(DrawPicture);
    EXPECT_EQ(panel.memory.pictureLeft, 4);
    EXPECT_EQ(panel.Pixel(4, 47), kSolid);

    panel.props.PictureAlignment = TypeAlignment(TypeAlignment::LeftTop);
    panel.props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(7)); // not a 3D style: the position stays too
    panel.Paint(DrawPicture3D);
    EXPECT_EQ(panel.memory.pictureLeft, 4);
}

TEST(Picture, AStripShowsFrameZeroAndNeverItsLastColumns)
{
    PicturePanel panel(100, 40);
    panel.props.Picture = MakePicture(100, 5, [](int x, int) { return Rgb(x, 0, 0); });
    panel.props.PictureFrames = 3; // 33 pixels a frame
    panel.Paint(DrawPicture);
    EXPECT_EQ(panel.Pixel(3, 3), Rgb(0, 0, 0));
    EXPECT_EQ(panel.Pixel(35, 3), Rgb(32, 0, 0));
    EXPECT_EQ(panel.Pixel(36, 3), kMarker);

    panel.props.PictureAnimEnabled = true;
    std::vector<ColorRef> firstColumns;
    for (int tick = 0; tick < 3; ++tick) {
        panel.Tick();
        firstColumns.push_back(panel.Pixel(3, 3));
    }
    EXPECT_EQ(firstColumns, (std::vector<ColorRef> { Rgb(0, 0, 0), Rgb(33, 0, 0), Rgb(66, 0, 0) }));
}

TEST(Picture, TicksCycleThroughTheFramesAndRefresh)
{
    PicturePanel panel(60, 40);
    panel.props.Picture = Strip(4, 10, 10);
    panel.props.PictureFrames = 4;
    panel.props.PictureAnimEnabled = true;
    panel.Paint(DrawPicture);
    std::vector<ColorRef> shown;
    for (int tick = 0; tick < 5; ++tick) {
        panel.Tick();
        shown.push_back(panel.Pixel(5, 5));
    }
    EXPECT_EQ(shown, (std::vector<ColorRef> { Rgb(0, 0, 0), Rgb(1, 1, 1), Rgb(2, 2, 2), Rgb(3, 3, 3), Rgb(0, 0, 0) }));
    EXPECT_EQ(std::count(panel.services.log.begin(), panel.services.log.end(), "DoEvents"), 5);
    EXPECT_EQ(std::count(panel.services.log.begin(), panel.services.log.end(), "Refresh"), 5);
    EXPECT_EQ(panel.services.log[0], "DoEvents"); // the pause comes before the drawing
}

TEST(Picture, TicksPutBackTheBackgroundSavedAtTheFirstPaint)
{
    PicturePanel panel(60, 40);
    panel.props.Picture = Strip(2, 10, 10);
    panel.props.PictureFrames = 2;
    panel.props.PictureAnimEnabled = true;
    panel.props.PictureUseMask = true;
    panel.props.PictureMaskColor = Rgb(255, 0, 255);
    panel.Paint(DrawPicture);
    ASSERT_TRUE(panel.memory.savedBackground);
    EXPECT_EQ(panel.Pixel(4, 4), kMarker); // keyed out on the static paint

    // A new background under a running animation keeps showing the old capture.
    panel.Fill(Rgb(7, 7, 7));
    panel.Paint(DrawPicture);
    panel.Tick();
    EXPECT_EQ(panel.Pixel(4, 4), kMarker);
    EXPECT_EQ(panel.Pixel(5, 5), Rgb(0, 0, 0));
    EXPECT_EQ(panel.Pixel(13, 13), Rgb(7, 7, 7)); // outside the picture
}

TEST(Picture, KeysOfIconsOptionPicAndMasks)
{
    // OptionPic keys out the fixed colour on a static paint, but a tick draws opaquely.
    PicturePanel panel(40, 30);
    panel.props.Picture = Strip(2, 10, 10, kOptionKey);
    panel.props.PictureFrames = 2;
    panel.props.OptionPic = true;
    panel.Paint(DrawPicture);
    EXPECT_EQ(panel.Pixel(4, 4), kMarker);
    EXPECT_EQ(panel.Pixel(5, 5), Rgb(0, 0, 0));
    panel.Tick();
    EXPECT_EQ(panel.Pixel(4, 4), kOptionKey);

    // An icon: drawn over the back colour, which is then keyed out, whatever the mask says.
    PicturePanel icon(40, 30);
    platform::Icon image { platform::Dib(8, 8, 32), platform::Dib(8, 8, 1) };
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            image.color.row(y)[4 * x + 1] = 200; // green
    image.mask.row(0)[0] = 0x80;                 // pixel (0, 0) lets the background through
    image.color.row(0)[1] = 0;
    icon.props.Picture = platform::Picture::FromIcon(std::move(image));
    icon.props.PictureUseMask = true;
    icon.props.PictureMaskColor = Rgb(0, 200, 0);
    icon.Paint(DrawPicture);
    EXPECT_EQ(icon.Pixel(3, 3), kMarker);
    EXPECT_EQ(icon.Pixel(4, 4), Rgb(0, 200, 0));
}

TEST(Picture, NoPictureDrawsNothing)
{
    PicturePanel panel(40, 30);
    // A border inset that overflows 16 bits is never computed without a picture.
    panel.props.Panel3DBorderStyle = TypePanel3DStyle::GBLowered3D;
    panel.props.Panel3DBorderWidth = 20000;
    panel.Paint(DrawBackgroundPicture);
    panel.Paint(DrawPicture);
    panel.Paint(DrawPicture3D);
    panel.Paint(DrawCustomPicture);
    panel.Tick();
    EXPECT_EQ(panel.Pixel(3, 3), kMarker);
    EXPECT_TRUE(panel.services.log.empty());
}

TEST(BackgroundPicture, TilesColumnByColumnFromTheInset)
{
    PicturePanel panel(100, 50);
    // Unkeyed tiles draw every pixel, white and black included.
    panel.props.PictureBackground = MakePicture(30, 20, [](int x, int y) {
        return y == 0 && x < 2 ? Rgb(255, 255, 255) * (1 - x) : Rgb(9, 9, 9);
    });
    panel.props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::TiledPicture);
    panel.Paint(DrawBackgroundPicture);
    for (int x : { 0, 30, 60, 90 })
        for (int y : { 0, 20, 40 }) {
            EXPECT_EQ(panel.Pixel(x, y), Rgb(255, 255, 255)) << x << "," << y;
            EXPECT_EQ(panel.Pixel(x + 1, y), 0u) << x << "," << y;
        }
    EXPECT_EQ(panel.Pixel(99, 49), Rgb(9, 9, 9));
    EXPECT_EQ(panel.state.PaintLoopIndex, 5);

    panel.props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle::GBRaised3D); // 2W + O, in the Windows appearance too
    panel.props.Panel3DBorderWidth = 1;
    panel.props.Panel3DBorderOffset = 1;
    panel.Paint(DrawBackgroundPicture);
    EXPECT_EQ(panel.Pixel(3, 23), Rgb(255, 255, 255));
}

TEST(BackgroundPicture, TilePositionsAre16Bit)
{
    PicturePanel panel(32780, 2);
    panel.props.PictureBackground = MakePicture(10, 2, [](int, int) { return Rgb(9, 9, 9); });
    panel.props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::TiledPicture);
    // 3279 columns: the one at x = 32770 does not fit 16 bits, after 3277 have been drawn.
    EXPECT_EQ(RaisedBy([&] { panel.Paint(DrawBackgroundPicture); }), 6);
    EXPECT_EQ(panel.Pixel(32769, 0), Rgb(9, 9, 9));
    EXPECT_EQ(panel.Pixel(32770, 0), kMarker);
}

TEST(BackgroundPicture, CentredTruncatesTowardZero)
{
    PicturePanel panel(100, 50);
    panel.props.PictureBackground = MakePicture(131, 11, [](int x, int) { return Rgb(x, 0, 0); });
    panel.Paint(DrawBackgroundPicture);
    EXPECT_EQ(panel.Pixel(0, 19), Rgb(15, 0, 0)); // x = -15, y = 39 \ 2 = 19
    EXPECT_EQ(panel.Pixel(0, 18), kMarker);
}

TEST(BackgroundPicture, StretchedTakesTheInsetOffOnce)
{
    PicturePanel panel(100, 50);
    panel.props.PictureBackground = MakePicture(98, 48, [](int x, int y) { return Rgb(x, y, 1); });
    panel.props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::StretchedPicture);
    panel.props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle::Lowered3D);
    panel.props.Panel3DBorderWidth = 2;
    panel.Paint(DrawBackgroundPicture);
    EXPECT_EQ(panel.Pixel(1, 1), kMarker);
    EXPECT_EQ(panel.Pixel(2, 2), Rgb(0, 0, 1));
    EXPECT_EQ(panel.Pixel(99, 49), Rgb(97, 47, 1));

    PicturePanel odd(100, 50);
    odd.props = panel.props;
    odd.props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(5));
    odd.Paint(DrawBackgroundPicture);
    EXPECT_EQ(odd.Pixel(50, 25), kMarker);
}

TEST(BackgroundPicture, MaskAndOptionKeys)
{
    PicturePanel panel(20, 20);
    panel.props.PictureBackground = MakePicture(20, 20, [](int x, int) { return x < 10 ? Rgb(1, 2, 3) : kOptionKey; });
    panel.props.OptionPicBackGround = true;
    panel.Paint(DrawBackgroundPicture);
    EXPECT_EQ(panel.Pixel(5, 5), Rgb(1, 2, 3));
    EXPECT_EQ(panel.Pixel(15, 5), kMarker);

    panel.props.PictureBackgroundUseMask = true;
    panel.props.PictureMaskColor = Rgb(1, 2, 3);
    panel.Fill(kMarker);
    panel.Paint(DrawBackgroundPicture);
    EXPECT_EQ(panel.Pixel(5, 5), kMarker);
    EXPECT_EQ(panel.Pixel(15, 5), kOptionKey);
}

TEST(CapturedBackground, CapturesOnceAndHidesAroundEveryPass)
{
    PicturePanel panel(30, 20);
    panel.services.behind = Solid(30, 20, Rgb(5, 6, 7));
    panel.Paint(DrawCapturedBackground);
    EXPECT_EQ(panel.Pixel(29, 19), Rgb(5, 6, 7));
    EXPECT_EQ(panel.services.log,
        (std::vector<std::string> { "Hide", "DoEvents", "Capture 30x20", "DoEvents", "Show", "Refresh" }));

    panel.services.log.clear();
    panel.services.behind = Solid(30, 20, Rgb(8, 8, 8));
    panel.Fill(kMarker);
    panel.Paint(DrawCapturedBackground);
    EXPECT_EQ(panel.Pixel(0, 0), Rgb(5, 6, 7)); // the first capture is kept
    EXPECT_EQ(panel.services.log, (std::vector<std::string> { "Hide", "DoEvents", "DoEvents", "Show", "Refresh" }));
}

} // namespace
} // namespace vex::render
