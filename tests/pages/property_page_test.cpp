// The page models: each editor loads from and writes to the right property by the pages' rules.
#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "headless/headless_surface.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"
#include "pages/panel_access.h"
#include "pages/property_page.h"
#include "raises.h"

namespace vex::pages {
namespace {

using control::PropertyValue;

struct Panel {
    control::HeadlessHost host;
    control::HeadlessSurface surface { platform::Size { 60, 30 } };
    control::VexPanel panel { host, surface };
    Panel() { panel.InitProperties(); }
};

class PageTest : public ::testing::Test {
protected:
    std::unique_ptr<PropertyPage> Open(std::string_view name)
    {
        auto page = CreatePage(*FindPage(name));
        page->Initialize();
        control::VexPanel* selection[] = { &first.panel, &second.panel };
        page->SelectionChanged(selection);
        return page;
    }
    static size_t At(const PropertyPage& page, std::string_view editor) { return page.Find(editor).value(); }

    Panel first, second;
};

TEST_F(PageTest, LoadingAndApplyingUnchangedKeepsEveryProperty)
{
    first.panel.setCaption("Kept");
    first.panel.setCaptionEfect(true);
    first.panel.setBackColor(0x80000005);
    first.panel.setWinBackColor(0x123456);
    for (const PageSpec& spec : Pages()) {
        auto page = Open(spec.name);
        std::vector<PropertyValue> before;
        for (const EditorSpec& editor : spec.editors)
            if (!editor.property.empty())
                before.push_back(GetProperty(first.panel, editor.property));
        page->ApplyChanges();
        size_t i = 0;
        for (const EditorSpec& editor : spec.editors) {
            if (editor.property.empty())
                continue;
            EXPECT_TRUE(control::SameValue(before[i++], GetProperty(first.panel, editor.property)))
                << spec.name << " " << editor.name;
        }
    }
}

TEST_F(PageTest, LoadRules)
{
    first.panel.setCaptionEfect(true);
    first.panel.setCaptionStyle(control::TypeCaptionStyle::WrappedCaption);
    first.panel.setPanel3DBorderWidth(7);
    first.panel.setForeColor(0x80000012);
    first.panel.setBackColor(0x00C0FFEE);
    auto general = Open("PanelGeneral");
    EXPECT_EQ(general->Editor(At(*general, "chkCaptionEfect")).check, 1);
    EXPECT_EQ(general->Editor(At(*general, "CaptionStyle")).listIndex, 1);
    EXPECT_EQ(general->Editor(At(*general, "CaptionStyle")).list[1], "0 - Wrapped");
    EXPECT_EQ(Open("Panel3D")->Editor(1).text, "7");
    auto colours = Open("StandardColor");
    EXPECT_EQ(colours->Editor(At(*colours, "ForeColor")).listIndex, 18);
    EXPECT_EQ(colours->Editor(At(*colours, "ForeColor")).text, "&H80000012&");
    EXPECT_EQ(colours->Editor(At(*colours, "BackColor")).listIndex, -1);
    EXPECT_EQ(colours->Editor(At(*colours, "BackColor")).text, "&H00C0FFEE&");
}

// One user edit, applied: what the property then holds.
struct EditCase {
    std::string_view page, editor;
    char action; // 'c' check, 't' type, 'l' choose from the list
    int number;
    std::string_view text;
    std::string_view property;
    double expected;
};

TEST_F(PageTest, EditsApplyByThePagesRules)
{
    const EditCase cases[] = {
        { "PanelGeneral", "cboCaptionStyle", 'l', 1, "", "CaptionStyle", 1 },
        { "PanelGeneral", "chkCaptionEfect", 'c', 2, "", "CaptionEfect", 0 }, // greyed is False
        { "PanelGeneral", "chkEnabled", 'c', 0, "", "Enabled", 0 },
        { "PanelGeneral", "cboAppearance", 'l', -1, "", "Appearance", -1 },
        { "Panel3D", "cboWinGradientDirection", 'l', 7, "", "WinGradientDirection", 7 },
        { "Panel3D", "cboWinOptionColor", 'l', 1, "", "WinOptionColor", 1 },
        { "Panel3D", "txtPanel_3DBorderWidth", 't', 0, " 5 ", "Panel3DBorderWidth", 5 },
        { "Custom", "txtCustom_BorderRadio", 't', 0, "12.5", "CustomBorderRadio", 12 },
        { "Custom", "txtCustom_BorderWidth", 't', 0, "-4", "CustomBorderWidth", 0 },
        { "LongPicture", "txtPictureFrames", 't', 0, "0", "PictureFrames", 1 },
        { "LongPicture", "cboPictureBackgroundStyle", 'l', 2, "", "PictureBackgroundStyle", 2 },
        { "StandardColor", "clrBackColor", 'l', 5, "", "BackColor", double(0x80000005u) },
        { "StandardColor", "clrCaptionFontIn", 't', 0, "&HFF&", "CaptionFontIn", 255 },
        { "StandardColor", "clrCustomBorderColor", 't', 0, "65280", "CustomBorderColor", 65280 },
        { "StandardFont", "txtFontSize", 't', 0, "12", "FontSize", 12 },
        { "StandardFont", "chkFontBold", 'c', 1, "", "FontBold", -1 },
    };
    for (const EditCase& test : cases) {
        auto page = Open(test.page);
        size_t editor = At(*page, test.editor);
        EXPECT_FALSE(page->Changed());
        if (test.action == 'c')
            page->Check(editor, test.number);
        else if (test.action == 't')
            page->Type(editor, std::string(test.text));
        else
            page->Choose(editor, test.number);
        EXPECT_TRUE(page->Changed());
        page->ApplyChanges();
        EXPECT_FALSE(page->Changed());
        PropertyValue value = GetProperty(first.panel, test.property);
        double stored = control::TypeOf(value) == control::ValueType::Int32
            ? double(static_cast<uint32_t>(std::get<int32_t>(value)))
            : control::AsSingle(value);
        EXPECT_EQ(stored, test.expected) << test.page << " " << test.editor;
    }
}

TEST_F(PageTest, AConversionErrorStopsApplyAfterTheEditorsBeforeIt)
{
    auto page = Open("LongPicture");
    page->Check(At(*page, "chkPictureBackgroundUseMask"), 1);
    page->Type(At(*page, "txtPictureFrames"), "abc");
    page->Check(At(*page, "chkPictureUseMask"), 1);
    page->Type(At(*page, "txtPictureAnimDelay"), "250");
    EXPECT_EQ(vex::testing::RaisedBy([&] { page->ApplyChanges(); }), 13);
    EXPECT_TRUE(first.panel.PictureBackgroundUseMask());
    EXPECT_EQ(first.panel.PictureFrames(), 1);
    EXPECT_FALSE(first.panel.PictureUseMask());
    EXPECT_EQ(first.panel.PictureAnimDelay(), 100);
    EXPECT_TRUE(page->Changed());

    page->Type(At(*page, "txtPictureFrames"), "40000");
    EXPECT_THROW(page->ApplyChanges(), RuntimeError); // Overflow
}

TEST_F(PageTest, AnimDelayOutOfRangeShowsTheMessageBoxAndTheRestIsWritten)
{
    auto page = Open("LongPicture");
    page->Type(At(*page, "txtPictureAnimDelay"), "32001");
    page->Choose(At(*page, "PictureAlignment"), 8);
    page->ApplyChanges();
    ASSERT_EQ(first.host.messageBoxes.size(), 1u);
    EXPECT_EQ(first.host.messageBoxes[0].title, control::kErrorTitle);
    EXPECT_EQ(first.panel.PictureAnimDelay(), 100);
    EXPECT_EQ(first.panel.PictureAlignment(), control::TypeAlignment::CenterBottom);
}

TEST_F(PageTest, OnlyTheFirstSelectedControlIsReadAndWritten)
{
    second.panel.setCaption("second");
    first.panel.setCaption("first");
    auto page = Open("PanelGeneral");
    EXPECT_EQ(page->Editor(At(*page, "txtCaption")).text, "first");
    page->Type(At(*page, "txtCaption"), "edited");
    second.host.ClearRecords();
    page->ApplyChanges();
    EXPECT_EQ(first.panel.Caption(), "edited");
    EXPECT_EQ(second.panel.Caption(), "second");
    EXPECT_TRUE(second.host.notifications.empty());

    page->SelectionChanged({});
    EXPECT_EQ(page->Target(), nullptr);
    page->ApplyChanges(); // nothing selected: nothing to write
}

TEST_F(PageTest, EditsAnEditorCannotHoldAreRefused)
{
    auto page = Open("PanelGeneral");
    const std::pair<std::string_view, int> cases[] = {
        { "chkEnabled", 3 }, { "chkEnabled", -1 }, { "cboAppearance", 3 }, { "cboAppearance", -2 },
    };
    for (auto [editor, value] : cases) {
        size_t index = At(*page, editor);
        auto act = [&] { editor.starts_with("chk") ? page->Check(index, value) : page->Choose(index, value); };
        EXPECT_THROW(act(), RuntimeError) << editor << " " << value;
    }
    EXPECT_THROW(page->Type(At(*page, "chkEnabled"), "1"), RuntimeError);
    EXPECT_FALSE(page->Changed());
    EXPECT_THROW(ColourFromText("&HXYZ&"), RuntimeError);
    EXPECT_THROW(ColourFromText("&H123456789"), RuntimeError);
    EXPECT_THROW(ColourFromText("&"), RuntimeError);
}

TEST(ColourText, ReadsWhatTheBoxShowsAndWhatTheHostReadsAsALong)
{
    const std::pair<std::string_view, OleColor> cases[] = {
        { "&H8000000F&", 0x8000000Fu }, { " &hc0e0ff& ", 0xC0E0FFu }, { "&HFFFF", 0xFFFFu }, { "255", 255u },
        { "1,000", 1000u }, { "-1", 0xFFFFFFFFu },
    };
    for (auto [text, colour] : cases)
        EXPECT_EQ(ColourFromText(text), colour) << text;
    EXPECT_EQ(ColourFromText(ColourText(0x80000012u)), 0x80000012u);
}

} // namespace
} // namespace vex::pages
