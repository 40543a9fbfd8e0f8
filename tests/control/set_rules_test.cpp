// Property sets: every row of the property table through the by-name entry (its rule's store,
// notification and redraw, its clamp, and the persisted key it fills), enumeration narrowing,
// the host's value types, the PictureAnimDelay message box, the animation switch, CaptionText
// and the 3D lettering.
#include "model/property_table.h"
#include "panel_fixture.h"
#include "vexpanel/version.h"

namespace vex::control::testing {
namespace {

using Strings = std::vector<std::string>;
using model::kProperties;
using model::PropertyInfo;
using model::SetRule;
using model::ValueKind;

// A value a host could pass that differs from the property's default.
PropertyValue Sample(const PropertyInfo& info, VexPanel& panel)
{
    switch (info.kind) {
    case ValueKind::Byte: return int32_t(200);
    case ValueKind::Boolean: return !AsBoolean(panel.GetProperty(info.name));
    case ValueKind::Int16: return int32_t(250);
    case ValueKind::Colour: return int32_t(0x123456);
    case ValueKind::Enumeration: return int32_t(7); // named in few enumerations, kept by all
    case ValueKind::Single: return 9.75f;
    case ValueKind::String: return std::string("Hola");
    case ValueKind::Font: return platform::FontDesc { "Arial", 12.0f, true, false, false, false };
    case ValueKind::Picture:
        return platform::Picture::FromBitmap(platform::Dib(16, 4, 32));
    default: return int32_t(1);
    }
}

// Each property in turn, from the Window3D appearance (where the 3D lettering shows): what its
// rule stores, reports and redraws, and that the value set is the one its persisted key saves.
TEST_F(PanelTest, EveryPropertyFollowsItsRule)
{
    for (const PropertyInfo& info : kProperties) {
        SCOPED_TRACE(std::string(info.name));
        if (info.rule == SetRule::ReadOnly) {
            EXPECT_EQ(RaisedBy([&] { panel.SetProperty(info.name, int32_t(1)); }), 383);
            continue;
        }
        panel.setAppearance(TypeAppearance::Window3D);
        if (info.rule == SetRule::AnimSwitch)
            panel.setPicture(Bitmap(16, 4));
        ClearRecords();

        const PropertyValue value = Sample(info, panel);
        panel.SetProperty(info.name, value);
        EXPECT_TRUE(SameValue(panel.GetProperty(info.name), value));

        Strings notified { std::string(info.name) };
        size_t redraws = 1;
        switch (info.rule) {
        case SetRule::Plain: notified.clear(); redraws = 0; break;
        case SetRule::P:
        case SetRule::Cursor: redraws = 0; break;
        case SetRule::CaptionText:
            notified.insert(notified.begin(), "Caption");
            EXPECT_EQ(panel.Caption(), "Hola");
            break;
        default: break;
        }
        EXPECT_EQ(host.notifications, notified);
        EXPECT_EQ(Redraws(), std::vector<bool>(redraws, true));
        if (info.rule == SetRule::Cursor) {
            EXPECT_EQ(surface.CursorPointer(), static_cast<int16_t>(panel.MousePointer()));
        }
        if (info.rule == SetRule::AnimSwitch) {
            EXPECT_TRUE(panel.Timer2().Enabled());
        }
        if (info.persist != model::PersistAs::None) {
            EXPECT_TRUE(SameValue(panel.PersistedValue(info.name), value));
        }
    }
}

// The clamped properties and their limits, stated here rather than read from the table, so that a
// row with the wrong rule is caught.
TEST_F(PanelTest, ClampsStoreTheLimitAndPersistIt)
{
    const std::pair<std::string_view, int16_t> clamps[] = { { "CustomBorderRadio", 0 }, { "CustomBorderWidth", 0 },
        { "PictureFrames", 1 }, { "Panel3DBorderWidth", 1 }, { "Panel3DBorderOffset", 0 } };
    for (const auto& [name, limit] : clamps) {
        for (int16_t below : { int16_t(limit - 1), int16_t(-32768) }) {
            panel.SetProperty(name, below);
            EXPECT_EQ(AsInt16(panel.PersistedValue(name)), limit) << name;
        }
        panel.SetProperty(name, limit);
        EXPECT_EQ(AsInt16(panel.GetProperty(name)), limit) << name;
    }
    const auto isClamp = [](const PropertyInfo& info) { return info.rule == SetRule::AtLeast0 || info.rule == SetRule::AtLeast1; };
    EXPECT_EQ(std::count_if(std::begin(kProperties), std::end(kProperties), isClamp), std::ssize(clamps));
}

TEST_F(PanelTest, EnumerationsKeepAnySixteenBitValueAndOverflowBeyond)
{
    for (const PropertyInfo& info : kProperties) {
        if (info.kind != ValueKind::Enumeration)
            continue;
        SCOPED_TRACE(std::string(info.name));
        panel.SetProperty(info.name, int32_t(-32768));
        ClearRecords();
        EXPECT_EQ(RaisedBy([&] { panel.SetProperty(info.name, int32_t(40000)); }), 6);
        EXPECT_EQ(RaisedBy([&] { panel.SetProperty(info.name, int32_t(-32769)); }), 6);
        EXPECT_EQ(AsInt16(panel.PersistedValue(info.name)), -32768);
        EXPECT_TRUE(host.notifications.empty());
        EXPECT_TRUE(Redraws().empty());
    }
}

// A font size must fit the font's Currency, so that whatever is set can be saved and read back.
TEST_F(PanelTest, FontSizesBeyondTheFontsRangeOverflowAndStoreNothing)
{
    const float before = panel.FontSize();
    for (float size : { std::numeric_limits<float>::max(), std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN() })
        EXPECT_EQ(RaisedBy([&] { panel.setFontSize(size); }), 6);
    EXPECT_EQ(RaisedBy([&] { panel.setFont(platform::FontDesc { "Arial", std::numeric_limits<float>::infinity() }); }), 6);
    EXPECT_EQ(panel.FontSize(), before);
}

TEST_F(PanelTest, ByNameTakesTheHostsValueTypes)
{
    panel.SetProperty("PictureFrames", std::string(" 12 "));
    EXPECT_EQ(panel.PictureFrames(), 12);
    panel.SetProperty("Enabled", std::string("False"));
    EXPECT_FALSE(panel.Enabled());
    panel.SetProperty("CaptionFontIn", 2.5f); // rounds half to even
    EXPECT_EQ(panel.CaptionFontIn(), 2u);
    panel.SetProperty("Caption", int16_t(42));
    EXPECT_EQ(panel.Caption(), "42");
    EXPECT_EQ(AsInt32(panel.GetProperty("hWnd")), surface.hWnd());
    EXPECT_EQ(AsInt32(panel.GetProperty("hDC")), surface.hDC());
    EXPECT_EQ(RaisedBy([&] { panel.SetProperty("FlagAbout", int32_t(256)); }), 6);
    EXPECT_EQ(RaisedBy([&] { panel.SetProperty("FlagAbout", true); }), 6); // True is -1: not a byte
    EXPECT_EQ(RaisedBy([&] { panel.SetProperty("WinBackColor", std::string("red")); }), 13);
    EXPECT_EQ(RaisedBy([&] { panel.SetProperty("Picture", int32_t(0)); }), 13);
    EXPECT_EQ(RaisedBy([&] { panel.SetProperty("Colour", int32_t(0)); }), 438);
    EXPECT_EQ(RaisedBy([&] { panel.GetProperty("Refresh"); }), 438);
}

TEST_F(PanelTest, AnimDelayOutOfRangeShowsTheMessageBoxAndKeepsTheOldValue)
{
    panel.setPictureAnimDelay(250);
    ClearRecords();
    for (int16_t bad : { int16_t(0), int16_t(32001), int16_t(-5), int16_t(-32768) }) {
        panel.setPictureAnimDelay(bad);
        EXPECT_EQ(panel.PictureAnimDelay(), 250) << bad;
    }
    ASSERT_EQ(host.messageBoxes.size(), 4u);
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
    EXPECT_EQ(host.messageBoxes.size(), 4u);
}

TEST_F(PanelTest, AnimationSwitchWithABitmapRedrawsAndStartsTheTimer)
{
    panel.setPicture(Bitmap(16, 4));
    panel.setPictureAnimDelay(40);
    panel.setPictureAnimEnabled(true); // one frame is enough when switched on at run time
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

TEST_F(PanelTest, AnimationSwitchWithAnIconStartsNothingAndWithoutPictureRaisesAfterStoring)
{
    panel.setPicture(IconPicture());
    ClearRecords();
    panel.setPictureAnimEnabled(true);
    EXPECT_TRUE(Redraws().empty());
    EXPECT_FALSE(panel.Timer2().Enabled());

    panel.setPicture(nullptr);
    panel.setPictureAnimEnabled(false);
    ClearRecords();
    EXPECT_EQ(RaisedBy([&] { panel.setPictureAnimEnabled(true); }), 91);
    EXPECT_TRUE(panel.PictureAnimEnabled());
    EXPECT_EQ(host.notifications, (Strings { "PictureAnimEnabled" }));
    EXPECT_TRUE(Redraws().empty());
    EXPECT_FALSE(panel.Timer2().Enabled());
}

TEST_F(PanelTest, SettingCaptionLeavesCaptionTextAlone)
{
    panel.setCaptionText("Hola");
    panel.setCaption("Adios");
    EXPECT_EQ(panel.CaptionText(), "Hola");
}

TEST_F(PanelTest, ThreeDLetteringRedrawsOnlyInWindow3D)
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
}

TEST_F(PanelTest, RefreshPresentsWithoutRepaintingAndAcercaOpensADialog)
{
    ClearRecords();
    panel.Refresh();
    EXPECT_EQ(surface.RefreshCount(), 1);
    EXPECT_TRUE(Redraws().empty());
    panel.Acerca();
    ASSERT_EQ(host.aboutBoxes.size(), 1u);
    EXPECT_EQ(host.aboutBoxes[0].text, "VexPanel\nVersion " VEXPANEL_VERSION "\nCopyright (C) 2026 the VexPanel developers");
    EXPECT_TRUE(host.messageBoxes.empty());
}

TEST_F(PanelTest, AFailingSurfaceCallReachesTheCaller)
{
    surface.failClientSize = true;
    EXPECT_THROW(panel.setCaption("x"), RuntimeError);
    EXPECT_EQ(panel.Caption(), "x"); // stored and notified before the redraw failed
}

} // namespace
} // namespace vex::control::testing
