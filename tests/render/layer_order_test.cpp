// The order in which the layers of each appearance overdraw one another, through the control's
// own DrawControl on the headless surface: background, border, background picture, picture and
// caption, and what a transparent panel shows once its form is activated.

#include <gtest/gtest.h>

#include "headless/headless_surface.h"
#include "control/memory_property_bag.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"
#include "paint_fixture.h"

namespace vex::render {
namespace {

using namespace vex::control;

constexpr ColorRef kBackPicture = Rgb(0, 128, 0);
constexpr ColorRef kPicture = Rgb(200, 0, 0);

struct Loaded {
    explicit Loaded(platform::Size size = { 60, 30 }) : surface(size), panel(host, surface)
    {
        host.userMode = true;
        MemoryPropertyBag saved; // a saved panel: loading it takes hold of the parent form
        panel.ReadProperties(saved);
    }
    ColorRef Pixel(int32_t x, int32_t y) { return surface.Dc().GetPixel(x, y); }
    HeadlessHost host;
    HeadlessSurface surface;
    VexPanel panel;
};

platform::PictureRef Solid(int32_t width, int32_t height, ColorRef colour)
{
    return testing::MakePicture(width, height, [colour](int, int) { return colour; });
}

TEST(LayerOrder, WindowsBackgroundPictureLiesOverTheBorders)
{
    Loaded loaded;
    VexPanel& panel = loaded.panel;
    panel.setAppearance(TypeAppearance::Windows);
    panel.setWinBorderTopStyle(TypeWinBorderStyle::ShadowBorder);
    panel.setPictureBackgroundStyle(TypePictureBackgroundStyle::StretchedPicture);
    panel.setPictureBackground(Solid(4, 4, kBackPicture));
    EXPECT_EQ(loaded.Pixel(0, 0), kBackPicture); // over the top border (no 3D inset)
    EXPECT_EQ(loaded.Pixel(59, 29), kBackPicture);

    // The foreground picture lies over the background picture, the caption over both.
    panel.setPicture(Solid(20, 20, kPicture));
    EXPECT_EQ(loaded.Pixel(3, 3), kPicture);
    EXPECT_EQ(loaded.Pixel(2, 3), kBackPicture);
    panel.setForeColor(Rgb(0, 0, 255));
    panel.setCaptionAlignment(TypeAlignment::LeftTop);
    panel.setCaption("WWWW");
    int captionOverPicture = 0;
    for (int y = 3; y < 23; ++y)
        for (int x = 4; x < 23; ++x)
            captionOverPicture += loaded.Pixel(x, y) == Rgb(0, 0, 255);
    EXPECT_GT(captionOverPicture, 10);
}

TEST(LayerOrder, Window3DBorderLiesOverTheBackgroundPicture)
{
    Loaded loaded;
    VexPanel& panel = loaded.panel;
    panel.setAppearance(TypeAppearance::Window3D);
    panel.setPanel3DBorderStyle(TypePanel3DStyle::Lowered3D);
    panel.setPanel3DBorderWidth(2);
    panel.setPanel3DHighLight(Rgb(255, 255, 255));
    panel.setPictureBackgroundStyle(TypePictureBackgroundStyle::StretchedPicture);
    panel.setPictureBackground(Solid(4, 4, kBackPicture));
    // The stretched picture starts inside the border but runs out under the right and bottom
    // sides, which are drawn after it.
    EXPECT_EQ(loaded.Pixel(2, 2), kBackPicture);
    EXPECT_EQ(loaded.Pixel(57, 15), kBackPicture);
    EXPECT_EQ(loaded.Pixel(58, 15), Rgb(255, 255, 255));
    EXPECT_EQ(loaded.Pixel(59, 29), Rgb(255, 255, 255));
    EXPECT_NE(loaded.Pixel(1, 1), kBackPicture);
}

TEST(LayerOrder, CustomFrameLiesOverTheTexture)
{
    Loaded loaded;
    VexPanel& panel = loaded.panel;
    panel.setAppearance(TypeAppearance::Custom);
    panel.setCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
    panel.setCustomBorderWidth(2);
    panel.setCustomBorderColor(Rgb(10, 20, 30));
    panel.setPictureBackgroundStyle(TypePictureBackgroundStyle::StretchedPicture);
    panel.setPictureBackground(Solid(4, 4, kBackPicture));
    EXPECT_EQ(loaded.Pixel(2, 2), kBackPicture);
    EXPECT_EQ(loaded.Pixel(57, 27), kBackPicture);
    EXPECT_EQ(loaded.Pixel(58, 27), Rgb(10, 20, 30));
    EXPECT_EQ(loaded.Pixel(1, 1), Rgb(10, 20, 30));

    panel.setPicture(Solid(10, 10, kPicture)); // margin 3 + 2
    EXPECT_EQ(loaded.Pixel(5, 5), kPicture);
    EXPECT_EQ(loaded.Pixel(4, 5), kBackPicture);
}

TEST(LayerOrder, TransparentPanelShowsItsFormUnderTheBorders)
{
    Loaded loaded({ 40, 20 });
    loaded.host.backdrop = Solid(40, 20, Rgb(1, 2, 3));
    VexPanel& panel = loaded.panel;
    panel.setAppearance(TypeAppearance::Custom);
    panel.setCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
    panel.setPictureBackground(Solid(4, 4, kBackPicture));
    panel.setCustomBorderColor(Rgb(10, 20, 30));
    panel.setBackStyle(TypeBackStyle::Transparent);
    loaded.host.form.Activate();
    EXPECT_EQ(loaded.Pixel(20, 10), Rgb(1, 2, 3)); // the texture is left out
    EXPECT_EQ(loaded.Pixel(0, 10), Rgb(10, 20, 30));

    panel.setAppearance(TypeAppearance::Windows);
    panel.setWinBorderLeftStyle(TypeWinBorderStyle::ShadowBorder);
    panel.setPictureBackground(nullptr);
    EXPECT_EQ(loaded.Pixel(20, 10), Rgb(1, 2, 3)); // no shading either
    EXPECT_NE(loaded.Pixel(1, 10), Rgb(1, 2, 3));
}

} // namespace
} // namespace vex::render
