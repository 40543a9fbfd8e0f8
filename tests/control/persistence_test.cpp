// InitProperties, ReadProperties and WriteProperties through the in-memory bag: key order, value
// types, defaults, "no key at its default", and loading without the set rules.
#include <fstream>
#include <sstream>

#include "control/memory_property_bag.h"
#include "control/persisted_keys.h"
#include "control/vxp_format.h"
#include "panel_fixture.h"
#include "render/colour.h"
#include "testing/logging_property_bag.h"

namespace vex::control::testing {
namespace {

using Strings = std::vector<std::string>;

// The keys of one kind of operation, in the order logged, each with the default it came with, as
// .vxp lines (which show the default's type: 0 is an Integer, 0& a Long, False a Boolean).
std::string Listing(const LoggingPropertyBag& bag, BagOperation::Kind kind)
{
    MemoryPropertyBag defaults;
    for (const BagOperation& operation : bag.Log())
        if (operation.kind == kind)
            defaults.Set(operation.name, operation.defaultValue);
    return FormatVxp(defaults);
}

// The persisted keys in the order they are read and in the order they are written, with their
// defaults: tests/control/persisted_keys.vxp holds both lists as reviewed.
TEST_F(PanelTest, KeysAreReadAndWrittenInTheirOrderWithTheirDefaults)
{
    LoggingPropertyBag read;
    panel.ReadProperties(read);
    LoggingPropertyBag written;
    panel.WriteProperties(written);
    std::ifstream file(VEX_SOURCE_DIR "/tests/control/persisted_keys.vxp");
    std::stringstream golden;
    golden << file.rdbuf();
    EXPECT_EQ("# read\n" + Listing(read, BagOperation::Read) + "# written\n" + Listing(written, BagOperation::Write), golden.str());
    // A panel loaded from an empty bag writes nothing back.
    EXPECT_TRUE(written.Entries().empty());
}

TEST_F(PanelTest, AnEmptyBagLoadsExactlyTheDefaults)
{
    LoggingPropertyBag bag;
    panel.ReadProperties(bag);
    for (const BagOperation& read : bag.Log())
        EXPECT_TRUE(SameValue(panel.PersistedValue(read.name), read.defaultValue)) << read.name;
    EXPECT_EQ(panel.Caption(), "");
    EXPECT_EQ(panel.CaptionFontShadow(), 0u);
    EXPECT_EQ(panel.Font(), host.AmbientFont());
}

TEST_F(PanelTest, AFreshlyPlacedPanelDiffersInCaptionAndCaptionFontShadowOnly)
{
    host.displayName = "VexPanel3";
    panel.InitProperties();
    LoggingPropertyBag bag;
    panel.WriteProperties(bag);
    ASSERT_EQ(bag.Entries().size(), 2u);
    EXPECT_EQ(bag.Entries()[0].first, "CaptionFontShadow"); // written in its place, before the tail
    EXPECT_EQ(bag.Entries()[1].first, "Caption");
    EXPECT_EQ(std::get<std::string>(*bag.Get("Caption")), "VexPanel3");
    // Button shadow brightened by 15 on each channel.
    ColorRef shadow = dc().GetSysColor(16);
    ColorRef expected = Rgb(std::min(255u, RedOf(shadow) + 15), std::min(255u, GreenOf(shadow) + 15),
        std::min(255u, BlueOf(shadow) + 15));
    EXPECT_EQ(panel.CaptionFontShadow(), expected);
    EXPECT_EQ(std::get<int32_t>(*bag.Get("CaptionFontShadow")), static_cast<int32_t>(expected));
    EXPECT_EQ(panel.CaptionText(), "");
}

TEST_F(PanelTest, InitPropertiesNotifiesOnlyCaptionAndRedrawsOnce)
{
    panel.setPictureFrames(9);
    ClearRecords();
    panel.InitProperties();
    EXPECT_EQ(host.notifications, Strings { "Caption" });
    EXPECT_EQ(Redraws(), (std::vector<bool> { true }));
    EXPECT_EQ(panel.PictureFrames(), 1);
    EXPECT_FALSE(panel.Timer2().Enabled());
}

TEST_F(PanelTest, BlackCaptionFontShadowIsNeverWritten)
{
    panel.InitProperties();
    panel.setCaptionFontShadow(0);
    LoggingPropertyBag bag;
    panel.WriteProperties(bag);
    EXPECT_FALSE(bag.Contains("CaptionFontShadow"));
}

TEST_F(PanelTest, WrittenValuesCarryTheirFieldsTypes)
{
    panel.setCaptionEfect(true);
    panel.setAppearance(TypeAppearance::Custom);
    panel.setWinBackColor(0x80000005);
    panel.setEnabled(false);
    panel.setMousePointer(TypeMousePointer::Hourglass);
    panel.setBackColor(0x010203);
    LoggingPropertyBag bag;
    panel.WriteProperties(bag);
    EXPECT_EQ(TypeOf(*bag.Get("CaptionEfect")), ValueType::Boolean);
    EXPECT_EQ(std::get<int16_t>(*bag.Get("Appearance")), 2);
    EXPECT_EQ(std::get<int32_t>(*bag.Get("WinBackColor")), static_cast<int32_t>(0x80000005));
    EXPECT_EQ(std::get<bool>(*bag.Get("Enabled")), false);
    EXPECT_EQ(std::get<int16_t>(*bag.Get("MousePointer")), 11);
    EXPECT_EQ(std::get<int32_t>(*bag.Get("BackColor")), 0x010203);
}

TEST_F(PanelTest, LoadingTakesValuesAsTheyStand)
{
    const std::pair<std::string, PropertyValue> saved[] = { { "PictureFrames", int16_t(0) }, { "PictureAnimDelay", int16_t(0) },
        { "Panel3DBorderWidth", int16_t(-4) }, { "CustomBorderRadio", int16_t(-9) }, { "Appearance", int16_t(9) },
        { "ForeColor", int32_t(0x00ABCDEF) }, { "BackColor", int32_t(0x00FEDCBA) }, { "MousePointer", int16_t(99) },
        { "CaptionText", std::string("solo") } };
    LoggingPropertyBag bag;
    for (const auto& [key, value] : saved)
        bag.Set(key, value);
    bag.Set("CaptionEfect", int16_t(5)); // any non-zero number is True
    panel.ReadProperties(bag);
    for (const auto& [key, value] : saved)
        EXPECT_TRUE(SameValue(panel.PersistedValue(key), value)) << key;
    EXPECT_TRUE(panel.CaptionEfect());
    EXPECT_EQ(surface.CursorPointer(), 99); // what the window shows
    EXPECT_EQ(panel.Caption(), "");
    EXPECT_TRUE(Redraws().empty());
    EXPECT_TRUE(host.messageBoxes.empty());
    // Only MouseIcon is loaded through its set, which reports it.
    EXPECT_EQ(host.notifications, Strings { "MouseIcon" });
    // A later set applies the rules.
    panel.setPictureFrames(panel.PictureFrames());
    EXPECT_EQ(panel.PictureFrames(), 1);
}

TEST_F(PanelTest, LoadingAnOutOfRangeValueOverflowsKeepingEarlierKeys)
{
    LoggingPropertyBag bag;
    bag.Set("WinBackColor", int32_t(0x445566));
    bag.Set("WinContrast", int32_t(70000));
    bag.Set("CaptionAlignment", int16_t(1));
    EXPECT_EQ(RaisedBy([&] { panel.ReadProperties(bag); }), 6);
    EXPECT_EQ(panel.WinBackColor(), 0x445566u);
    EXPECT_EQ(panel.CaptionAlignment(), TypeAlignment::CenterMiddle);
}

TEST_F(PanelTest, AWrongTypeInTheBagIsATypeMismatch)
{
    LoggingPropertyBag bag;
    bag.Set("Appearance", std::string("two"));
    EXPECT_EQ(RaisedBy([&] { panel.ReadProperties(bag); }), 13);
    // Text converts as the host converts a String.
    MemoryPropertyBag numeric;
    numeric.Set("Appearance", std::string(" (-2)"));
    numeric.Set("BackColor", std::string("&HC0E0FF"));
    numeric.Set("CaptionEfect", std::string("#TRUE#"));
    numeric.Set("PictureAnimDelay", std::string("1,000"));
    panel.ReadProperties(numeric);
    EXPECT_EQ(static_cast<int>(panel.Appearance()), -2);
    EXPECT_EQ(panel.BackColor(), 0xC0E0FFu);
    EXPECT_TRUE(panel.CaptionEfect());
    EXPECT_EQ(panel.PictureAnimDelay(), 1000);
}

TEST_F(PanelTest, AParentThatIsNotAFormFailsBeforeAnyKeyIsRead)
{
    host.parentIsForm = false;
    LoggingPropertyBag bag;
    EXPECT_EQ(RaisedBy([&] { panel.ReadProperties(bag); }), 13);
    EXPECT_TRUE(bag.Log().empty());
    host.userMode = false; // at design time the parent is not looked at
    EXPECT_NO_THROW(panel.ReadProperties(bag));
}

TEST_F(PanelTest, EverythingRoundTripsThroughAVxpText)
{
    panel.InitProperties();
    panel.setAppearance(TypeAppearance::Custom);
    panel.setCaptionText("Line \"one\"\nand \\two\\");
    panel.setCaption("C\xE9sar"); // Windows-1252 bytes pass through
    panel.setFont(platform::FontDesc { "Courier New", 10.5f, true, true, false, true });
    platform::Dib strip(6, 3, 8, false);
    strip.palette() = { { 1, 2, 3, 0 }, { 200, 100, 50, 0 } };
    for (size_t at = 0; at < strip.bits().size(); ++at)
        strip.bits()[at] = static_cast<uint8_t>(at % 2);
    panel.setPicture(platform::Picture::FromBitmap(strip));
    panel.setMouseIcon(IconPicture());
    panel.setPictureFrames(3);
    panel.setPanel3DShadow(0x80000015);
    panel.setOptionPicBackGround(true);
    panel.setPictureAnimDelay(32000);

    MemoryPropertyBag saved;
    panel.WriteProperties(saved);
    MemoryPropertyBag loaded = ParseVxp(FormatVxp(saved));

    HeadlessHost otherHost;
    HeadlessSurface otherSurface(std::make_unique<NullDeviceContext>(), { 100, 50 });
    VexPanel other(otherHost, otherSurface);
    other.ReadProperties(loaded);
    // Every key that differs from its default is written again, the same (pictures bit for bit).
    MemoryPropertyBag again;
    other.WriteProperties(again);
    EXPECT_EQ(FormatVxp(again), FormatVxp(saved));
    EXPECT_EQ(saved.Entries().size(), 11u);
}

} // namespace
} // namespace vex::control::testing
