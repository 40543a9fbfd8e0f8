// Whenever the pipeline may skip clearing the surface, the background painter must paint every
// pixel: checked over sizes, appearances, directions, styles and capture states.

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "paint_fixture.h"

namespace vex::render {
namespace {

constexpr ColorRef kMarker = 0x00FF00FF;

TEST(BackgroundCoverage, ASkippedClearIsAlwaysPaintedOver)
{
    int covered = 0;
    int notCovered = 0;
    for (auto [width, height] : { std::pair { 1, 1 }, std::pair { 2, 3 }, std::pair { 61, 37 }, std::pair { 60, 36 },
             std::pair { 7, 40 }, std::pair { 40, 7 }, std::pair { 1, 9 }, std::pair { 9, 1 } }) {
        testing::Panel panel(width, height);
        for (int16_t appearance : { 0, 1, 2, 3 }) {
            for (int16_t direction = -1; direction <= 8; ++direction) {
                for (int16_t style : { 0, 1, 2 }) {
                    for (uint8_t capture : { 0, 1 }) {
                        for (int16_t backStyle : { 0, 1 }) {
                            panel.props.Appearance = TypeAppearance(TypeAppearance(appearance));
                            panel.props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection(direction));
                            panel.props.CustomGradientDirection = TypeCustomGradientDirection(TypeCustomGradientDirection(direction));
                            panel.props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle(style));
                            panel.props.CustomGradientStart = Rgb(255, 0, 254); // nearly the marker
                            panel.props.BackStyle = TypeBackStyle(TypeBackStyle(backStyle));
                            panel.state.CaptureBackground = capture;
                            PaintContext context = panel.Context();
                            if (!BackgroundCoversClient(context)) {
                                ++notCovered;
                                continue;
                            }
                            ++covered;
                            panel.Fill(kMarker);
                            ASSERT_NO_THROW(appearance == 0 ? DrawWindowsAppearance(context) : DrawCustomGradient(context));
                            for (int y = 0; y < height; ++y)
                                for (int x = 0; x < width; ++x)
                                    ASSERT_NE(panel.Pixel(x, y), kMarker)
                                        << width << "x" << height << " appearance " << appearance << " direction "
                                        << direction << " at " << x << "," << y;
                        }
                    }
                }
            }
        }
    }
    EXPECT_GT(covered, 100);
    EXPECT_GT(notCovered, covered);
}

TEST(BackgroundCoverage, OddSquaresLeaveAColumnUncovered)
{
    // Centre 30, radius 30: column 60 of a 61-wide client is outside every square.
    for (auto [width, covers] : { std::pair { 61, false }, std::pair { 60, true } }) {
        testing::Panel panel(width, 20);
        panel.props.Appearance = TypeAppearance(TypeAppearance::Custom);
        panel.props.CustomGradientDirection = TypeCustomGradientDirection(TypeCustomGradientDirection::RetangleCenterToBorder);
        PaintContext context = panel.Context();
        EXPECT_EQ(BackgroundCoversClient(context), covers) << width;
    }
}

// A clear that the first layer does not paint over stays, in the back colour; one it paints over
// is left out.
TEST(BackgroundCoverage, PreparePaintClearsOnlyWhatStaysVisible)
{
    for (int16_t appearance : { 0, 1 }) {
        testing::Panel panel(30, 20);
        panel.props.Appearance = TypeAppearance(TypeAppearance(appearance));
        panel.Fill(kMarker);
        PaintContext context = panel.Context();
        PreparePaint(context, true);
        EXPECT_EQ(panel.Pixel(5, 5), appearance == 0 ? kMarker : panel.services.backColor) << appearance;
    }
}

} // namespace
} // namespace vex::render
