// InitProperties, ReadProperties and WriteProperties through the in-memory bag: key order, value
// types, defaults, "no key at its default", and loading without the set rules.
#include "control/memory_property_bag.h"
#include "control/persisted_keys.h"
#include "control/vxp_format.h"
#include "panel_fixture.h"
#include "render/colour.h"
#include "testing/logging_property_bag.h"

namespace vex::control::testing {
namespace {

using Strings = std::vector<std::string>;

const Strings kReadOrder = {
    "ForeColor", "Enabled", "Appearance", "BackStyle", "CustomBorderLeftTopStyle", "CustomBorderRightTopStyle",
    "CustomBorderLeftBottomStyle", "CustomBorderRightBottomStyle", "CustomBorderRadio", "WinBackColor",
    "WinGradientDirection", "WinOptionColor", "WinContrast", "WinBorderTopStyle", "WinBorderBottomStyle",
    "WinBorderLeftStyle", "WinBorderRightStyle", "Caption", "CaptionAlignment", "Font", "CaptionEfect",
    "CaptionFontIn", "CaptionFontOut", "CaptionFontShadow", "CaptionGetShadow", "Picture", "PictureAlignment",
    "PictureAnimEnabled", "PictureAnimDelay", "PictureMaskColor", "PictureUseMask", "PictureFrames",
    "PictureBackground", "PictureBackgroundStyle", "PictureBackgroundUseMask", "CaptionStyle", "Panel3DBorderStyle",
    "Panel3DBorderWidth", "Panel3DBorderOffset", "Panel3DHighLight", "Panel3DShadow", "Panel3DOffsetColor",
    "CustomBorderWidth", "CustomBorderColor", "CustomGradientStart", "CustomGradientEnds",
    "CustomGradientDirection", "CustomGradientStyle", "PanelFont3D", "PanelFont3DHighLight", "PanelFont3DShadow",
    "MouseIcon", "MousePointer", "CaptionText", "Panel3DBorderOption", "Panel3DBorderColor", "OptionPic",
    "OptionPicBackGround", "BackColor",
};

Strings WriteOrderFromReadOrder()
{
    Strings order;
    for (const std::string& key : kReadOrder)
        if (key != "Caption" && key != "Picture" && key != "CaptionText")
            order.push_back(key);
    order.insert(order.end(), { "Picture", "Caption", "CaptionText" });
    return order;
}

Strings Keys(const LoggingPropertyBag& bag, BagOperation::Kind kind)
{
    Strings keys;
    for (const BagOperation& operation : bag.Log())
        if (operation.kind == kind)
            keys.push_back(operation.name);
    return keys;
}

const BagOperation& Operation(const LoggingPropertyBag& bag, const std::string& key)
{
    for (const BagOperation& operation : bag.Log())
        if (operation.name == key)
            return operation;
    throw std::runtime_error("no operation on " + key);
}

TEST_F(PanelTest, ReadsAllKeysInOrderWithTheirDefaultTypes)
{
    LoggingPropertyBag bag;
    panel.ReadProperties(bag);
    EXPECT_EQ(Keys(bag, BagOperation::Read), kReadOrder);
    // Booleans persisted against a 16-bit 0 rather than False, and the colour that is too.
    for (const char* key : { "CaptionEfect", "PictureAnimEnabled", "PictureUseMask", "PictureBackgroundUseMask",
             "Panel3DBorderOption", "OptionPic", "OptionPicBackGround", "CaptionFontShadow", "MousePointer" })
        EXPECT_EQ(TypeOf(Operation(bag, key).defaultValue), ValueType::Int16) << key;
    for (const char* key : { "Enabled", "CaptionGetShadow" })
        EXPECT_EQ(TypeOf(Operation(bag, key).defaultValue), ValueType::Boolean) << key;
    for (const char* key : { "ForeColor", "WinBackColor", "CaptionFontIn", "Panel3DHighLight", "BackColor" })
        EXPECT_EQ(TypeOf(Operation(bag, key).defaultValue), ValueType::Int32) << key;
    EXPECT_EQ(TypeOf(Operation(bag, "Font").defaultValue), ValueType::Font);
    EXPECT_EQ(TypeOf(Operation(bag, "Picture").defaultValue), ValueType::Picture);
    EXPECT_TRUE(SameValue(Operation(bag, "ForeColor").defaultValue, int32_t(0x80000012)));
    EXPECT_TRUE(SameValue(Operation(bag, "CustomGradientEnds").defaultValue, int32_t(0xF7E5DC)));
    EXPECT_TRUE(SameValue(Operation(bag, "PictureAnimDelay").defaultValue, int16_t(100)));
}

TEST_F(PanelTest, WritesAllKeysInTheWriteOrderWithTheSameDefaults)
{
    LoggingPropertyBag readBag;
    panel.ReadProperties(readBag);
    LoggingPropertyBag bag;
    panel.WriteProperties(bag);
    EXPECT_EQ(Keys(bag, BagOperation::Write), WriteOrderFromReadOrder());
    for (const std::string& key : kReadOrder)
        EXPECT_TRUE(SameValue(Operation(bag, key).defaultValue, Operation(readBag, key).defaultValue)) << key;
    // A panel loaded from an empty bag writes nothing back.
    EXPECT_TRUE(bag.Entries().empty());
    EXPECT_EQ(std::vector<std::string_view>(ReadOrder().begin(), ReadOrder().end()).size(), 59u);
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
    EXPECT_FALSE(Operation(bag, "CaptionFontShadow").stored);
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
    LoggingPropertyBag bag;
    bag.Set("PictureFrames", int16_t(0));
    bag.Set("PictureAnimDelay", int16_t(0));
    bag.Set("Panel3DBorderWidth", int16_t(-4));
    bag.Set("CustomBorderRadio", int16_t(-9));
    bag.Set("Appearance", int16_t(9));
    bag.Set("CaptionEfect", int16_t(5)); // any non-zero number is True
    bag.Set("ForeColor", int32_t(0x00ABCDEF));
    bag.Set("BackColor", int32_t(0x00FEDCBA));
    bag.Set("MousePointer", int16_t(99));
    bag.Set("CaptionText", std::string("solo"));
    panel.ReadProperties(bag);
    EXPECT_EQ(panel.PictureFrames(), 0);
    EXPECT_EQ(panel.PictureAnimDelay(), 0);
    EXPECT_EQ(panel.Panel3DBorderWidth(), -4);
    EXPECT_EQ(panel.CustomBorderRadio(), -9);
    EXPECT_EQ(static_cast<int>(panel.Appearance()), 9);
    EXPECT_TRUE(panel.CaptionEfect());
    EXPECT_EQ(panel.ForeColor(), 0x00ABCDEFu);
    EXPECT_EQ(panel.BackColor(), 0x00FEDCBAu);
    EXPECT_EQ(surface.CursorPointer(), 99); // what the window shows
    EXPECT_EQ(panel.CaptionText(), "solo");
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
    try {
        panel.ReadProperties(bag);
        FAIL() << "no overflow";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 6);
    }
    EXPECT_EQ(panel.WinBackColor(), 0x445566u);
    EXPECT_EQ(panel.CaptionAlignment(), TypeAlignment::CenterMiddle);
}

TEST_F(PanelTest, AWrongTypeInTheBagIsATypeMismatch)
{
    LoggingPropertyBag bag;
    bag.Set("Appearance", std::string("two"));
    try {
        panel.ReadProperties(bag);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 13);
    }
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
    try {
        panel.ReadProperties(bag);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 13);
    }
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
    for (std::string_view key : ReadOrder()) {
        PropertyValue mine = panel.PersistedValue(key);
        PropertyValue theirs = other.PersistedValue(key);
        if (auto* picture = std::get_if<platform::PictureRef>(&mine)) {
            auto* copy = std::get_if<platform::PictureRef>(&theirs);
            ASSERT_TRUE(copy);
            ASSERT_EQ(!*picture, !*copy) << key;
            if (!*picture)
                continue;
            EXPECT_EQ((*picture)->type(), (*copy)->type()) << key;
            EXPECT_EQ((*picture)->pixelWidth(), (*copy)->pixelWidth()) << key;
            const platform::Dib& a = (*picture)->type() == platform::PictureType::Icon ? (*picture)->icon().mask : (*picture)->bitmap();
            const platform::Dib& b = (*copy)->type() == platform::PictureType::Icon ? (*copy)->icon().mask : (*copy)->bitmap();
            EXPECT_EQ(a.bits(), b.bits()) << key;
            EXPECT_EQ(a.palette(), b.palette()) << key;
            EXPECT_EQ(a.topDown(), b.topDown()) << key;
            continue;
        }
        EXPECT_TRUE(SameValue(mine, theirs)) << key << ": " << DescribeValue(mine) << " vs " << DescribeValue(theirs);
    }
}

} // namespace
} // namespace vex::control::testing
