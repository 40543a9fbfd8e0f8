// Property sets: the store/notify/redraw rules, clamps, enumeration narrowing, the
// PictureAnimDelay message box, the animation switch, CaptionText/Caption and the properties
// that live on the surface.
#include "panel_fixture.h"
#include "vexpanel/version.h"

namespace vex::control::testing {
namespace {

using Strings = std::vector<std::string>;

class SetRules : public PanelTest {
protected:
    void SetUp() override { ClearRecords(); }
};

TEST_F(SetRules, StoreNotifyAndRedrawWithClearing)
{
    panel.setWinBackColor(0x123456);
    panel.setCaptionGetShadow(true);
    panel.setPictureMaskColor(0x00FF00);
    EXPECT_EQ(panel.WinBackColor(), 0x123456u);
    EXPECT_TRUE(panel.CaptionGetShadow());
    EXPECT_EQ(panel.PictureMaskColor(), 0x00FF00u);
    EXPECT_EQ(host.notifications, (Strings { "WinBackColor", "CaptionGetShadow", "PictureMaskColor" }));
    EXPECT_EQ(Redraws(), (std::vector<bool> { true, true, true }));
}

TEST_F(SetRules, StoreOnlyPropertiesNeverRepaint)
{
    panel.setOptionPic(true);
    panel.setOptionPicBackGround(true);
    panel.setMouseIcon(IconPicture());
    panel.setMousePointer(TypeMousePointer::Custom);
    EXPECT_TRUE(panel.OptionPic());
    EXPECT_TRUE(panel.OptionPicBackGround());
    EXPECT_EQ(host.notifications, (Strings { "OptionPic", "OptionPicBackGround", "MouseIcon", "MousePointer" }));
    EXPECT_TRUE(Redraws().empty());
    EXPECT_EQ(surface.MousePointer(), 99);
    EXPECT_EQ(surface.MouseIcon(), panel.MouseIcon());
    EXPECT_EQ(panel.MousePointer(), TypeMousePointer::Custom);
}

TEST_F(SetRules, FlagAboutIsAPlainValue)
{
    panel.setFlagAbout(200);
    EXPECT_EQ(panel.FlagAbout(), 200);
    EXPECT_TRUE(host.notifications.empty());
    EXPECT_TRUE(Redraws().empty());
}

TEST_F(SetRules, ClampsStoreTheLimitAndPersistIt)
{
    panel.setPictureFrames(0);
    EXPECT_EQ(panel.PictureFrames(), 1);
    panel.setPictureFrames(-7);
    EXPECT_EQ(panel.PictureFrames(), 1);
    panel.setPanel3DBorderWidth(-1);
    EXPECT_EQ(panel.Panel3DBorderWidth(), 1);
    panel.setPanel3DBorderOffset(-3);
    EXPECT_EQ(panel.Panel3DBorderOffset(), 0);
    panel.setCustomBorderWidth(-32768);
    EXPECT_EQ(panel.CustomBorderWidth(), 0);
    panel.setCustomBorderRadio(-1);
    EXPECT_EQ(panel.CustomBorderRadio(), 0);
    // Values at and inside the limits pass unchanged.
    panel.setPictureFrames(1);
    EXPECT_EQ(panel.PictureFrames(), 1);
    panel.setPanel3DBorderOffset(0);
    panel.setCustomBorderRadio(32767);
    EXPECT_EQ(panel.CustomBorderRadio(), 32767);
    EXPECT_EQ(Redraws().size(), 9u);

    MemoryPropertyBag bag;
    panel.setCustomBorderWidth(-5);
    panel.WriteProperties(bag);
    EXPECT_TRUE(SameValue(*bag.Get("CustomBorderWidth"), int16_t(0)));
}

TEST_F(SetRules, EnumerationsKeepAnySixteenBitValue)
{
    panel.setAppearance(TypeAppearance(7));
    EXPECT_EQ(static_cast<int32_t>(panel.Appearance()), 7);
    panel.setCaptionAlignment(TypeAlignment(-32768));
    EXPECT_EQ(static_cast<int32_t>(panel.CaptionAlignment()), -32768);
    panel.setMousePointer(TypeMousePointer(32767));
    EXPECT_EQ(static_cast<int32_t>(panel.MousePointer()), 32767);
    MemoryPropertyBag bag;
    panel.WriteProperties(bag);
    EXPECT_TRUE(SameValue(*bag.Get("Appearance"), int16_t(7)));
}

TEST_F(SetRules, AppearanceSetStartsThePaintersStateOver)
{
    panel.setAppearance(TypeAppearance::Custom);
    EXPECT_EQ(host.notifications, (Strings { "Appearance" }));
    EXPECT_EQ(Redraws().size(), 1u); // its gradient covers the client: the clear is left out
    EXPECT_EQ(panel.PainterMemory().savedBackground, nullptr);
}

TEST_F(SetRules, AnimDelayOutOfRangeShowsTheMessageBoxAndKeepsTheOldValue)
{
    panel.setPictureAnimDelay(250);
    ClearRecords();
    for (int16_t bad : { int16_t(0), int16_t(32001), int16_t(-5), int16_t(32767), int16_t(-32768) }) {
        panel.setPictureAnimDelay(bad);
        EXPECT_EQ(panel.PictureAnimDelay(), 250) << bad;
    }
    ASSERT_EQ(host.messageBoxes.size(), 5u);
    for (const MessageBoxCall& box : host.messageBoxes) {
        EXPECT_EQ(box.text, "The property  value is not valid    ");
        EXPECT_EQ(box.title, "Brisa Panel Error");
        EXPECT_EQ(box.flags, 16); // critical icon, OK button
    }
    EXPECT_TRUE(host.notifications.empty());
    EXPECT_TRUE(Redraws().empty());

    panel.setPictureAnimDelay(1);
    EXPECT_EQ(panel.PictureAnimDelay(), 1);
    panel.setPictureAnimDelay(32000);
    EXPECT_EQ(panel.PictureAnimDelay(), 32000);
    EXPECT_EQ(host.messageBoxes.size(), 5u);
    EXPECT_EQ(host.notifications, (Strings { "PictureAnimDelay", "PictureAnimDelay" }));
}

TEST_F(SetRules, AnimationSwitchWithABitmapRedrawsAndStartsTheTimer)
{
    panel.setPicture(Bitmap(16, 4));
    panel.setPictureAnimDelay(40);
    ClearRecords();
    panel.setPictureAnimEnabled(true); // one frame is enough when switched on at run time
    EXPECT_EQ(host.notifications, (Strings { "PictureAnimEnabled" }));
    EXPECT_EQ(Redraws(), (std::vector<bool> { true }));
    EXPECT_TRUE(panel.Timer2().Enabled());
    EXPECT_EQ(panel.Timer2().Interval(), 40);
    EXPECT_EQ(panel.AnimFrame(), 0);

    // A new delay leaves the running timer alone until the animation is switched on again.
    panel.setPictureAnimDelay(90);
    EXPECT_EQ(panel.Timer2().Interval(), 40);
    panel.setPictureFrames(4);
    host.Advance(80);
    EXPECT_EQ(panel.AnimFrame(), 2); // two ticks at 40 ms

    ClearRecords();
    panel.setPictureAnimEnabled(false);
    EXPECT_FALSE(panel.Timer2().Enabled());
    EXPECT_TRUE(Redraws().empty());
    panel.setPictureAnimEnabled(true);
    EXPECT_EQ(panel.Timer2().Interval(), 90);
}

TEST_F(SetRules, AnimationSwitchWithAnIconStartsNothing)
{
    panel.setPicture(IconPicture());
    ClearRecords();
    panel.setPictureAnimEnabled(true);
    EXPECT_TRUE(panel.PictureAnimEnabled());
    EXPECT_EQ(host.notifications, (Strings { "PictureAnimEnabled" }));
    EXPECT_TRUE(Redraws().empty());
    EXPECT_FALSE(panel.Timer2().Enabled());
}

TEST_F(SetRules, AnimationSwitchWithoutPictureRaisesAfterStoring)
{
    try {
        panel.setPictureAnimEnabled(true);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 91);
    }
    EXPECT_TRUE(panel.PictureAnimEnabled());
    EXPECT_EQ(host.notifications, (Strings { "PictureAnimEnabled" }));
    EXPECT_TRUE(Redraws().empty());
    EXPECT_FALSE(panel.Timer2().Enabled());
    MemoryPropertyBag bag;
    panel.WriteProperties(bag);
    EXPECT_TRUE(SameValue(*bag.Get("PictureAnimEnabled"), true));
}

TEST_F(SetRules, CaptionTextSetsCaptionTooButNotTheOtherWayRound)
{
    panel.setCaptionText("Hola");
    EXPECT_EQ(panel.CaptionText(), "Hola");
    EXPECT_EQ(panel.Caption(), "Hola");
    EXPECT_EQ(host.notifications, (Strings { "Caption", "CaptionText" }));
    EXPECT_EQ(Redraws(), (std::vector<bool> { true }));

    ClearRecords();
    panel.setCaption("Adios");
    EXPECT_EQ(panel.Caption(), "Adios");
    EXPECT_EQ(panel.CaptionText(), "Hola");
    EXPECT_EQ(host.notifications, (Strings { "Caption" }));
}

TEST_F(SetRules, ThreeDLetteringRedrawsOnlyInWindow3D)
{
    for (auto appearance : { TypeAppearance::Windows, TypeAppearance::Custom, TypeAppearance(5) }) {
        panel.setAppearance(appearance);
        ClearRecords();
        panel.setPanelFont3D(TypePanelFont3D::RaisedFont3D);
        panel.setPanelFont3DHighLight(0x111111);
        panel.setPanelFont3DShadow(0x222222);
        EXPECT_EQ(host.notifications, (Strings { "PanelFont3D", "PanelFont3DHighLight", "PanelFont3DShadow" }));
        EXPECT_TRUE(Redraws().empty());
    }
    panel.setAppearance(TypeAppearance::Window3D);
    ClearRecords();
    panel.setPanelFont3D(TypePanelFont3D::ShadowFont3D);
    panel.setPanelFont3DShadow(0x333333);
    EXPECT_EQ(Redraws().size(), 2u);
    EXPECT_EQ(panel.PanelFont3D(), TypePanelFont3D::ShadowFont3D);
    EXPECT_EQ(panel.PanelFont3DShadow(), 0x333333u);
}

TEST_F(SetRules, SurfaceHeldColoursAndFont)
{
    panel.setForeColor(0x0000FF);
    EXPECT_EQ(panel.ForeColor(), 0x0000FFu);
    EXPECT_EQ(surface.ForeColor(), 0x0000FFu);
    panel.setBackColor(0x00FF00);
    EXPECT_EQ(surface.BackColor(), 0x00FF00u);
    EXPECT_EQ(panel.BackColor(), 0x00FF00u);

    platform::FontDesc font { "Arial", 12.0f, true, false, false, false };
    panel.setFont(font);
    EXPECT_EQ(surface.Font(), font);
    panel.setFontItalic(true);
    panel.setFontUnderline(true);
    panel.setFontStrikethru(true);
    panel.setFontSize(9.75f);
    panel.setFontName("Tahoma");
    panel.setFontBold(false);
    platform::FontDesc facets = surface.Font();
    EXPECT_EQ(facets, (platform::FontDesc { "Tahoma", 9.75f, false, true, true, true }));
    EXPECT_EQ(panel.FontName(), "Tahoma");
    EXPECT_FLOAT_EQ(panel.FontSize(), 9.75f);
    EXPECT_EQ(host.notifications, (Strings { "ForeColor", "BackColor", "Font", "FontItalic", "FontUnderline",
                                      "FontStrikethru", "FontSize", "FontName", "FontBold" }));
    EXPECT_EQ(Redraws().size(), 9u);
}

TEST_F(SetRules, HandlesComeFromTheSurface)
{
    EXPECT_EQ(panel.hWnd(), surface.hWnd());
    EXPECT_EQ(panel.hDC(), surface.hDC());
    EXPECT_NE(panel.hWnd(), panel.hDC());
}

TEST_F(SetRules, RefreshPresentsWithoutRepaintingAndAcercaOpensADialog)
{
    panel.Refresh();
    EXPECT_EQ(surface.RefreshCount(), 1);
    EXPECT_TRUE(Redraws().empty());
    panel.Acerca();
    ASSERT_EQ(host.aboutBoxes.size(), 1u);
    EXPECT_EQ(host.aboutBoxes[0].text, "VexPanel\nVersion " VEXPANEL_VERSION "\nCopyright (C) 2026 the VexPanel developers");
    EXPECT_TRUE(host.messageBoxes.empty());
}

TEST_F(SetRules, AFailingSurfaceCallReachesTheCaller)
{
    surface.failClientSize = true;
    EXPECT_THROW(panel.setCaption("x"), RuntimeError);
    EXPECT_EQ(panel.Caption(), "x"); // stored and notified before the redraw failed
}

} // namespace
} // namespace vex::control::testing
