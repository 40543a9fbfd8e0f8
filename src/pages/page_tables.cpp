#include "pages/page_tables.h"

#include <array>

namespace vex::pages {

namespace {

using enum EditorKind;

// ---- List items. The texts are the pages' own, leading numbers and blanks as they stand. ----

constexpr std::string_view kAppearance[] = { "0 - Windows", "1 - 3D", "2 - Custom" };
constexpr std::string_view kCaptionAlignment[] = { "0 - Left Top", "1 - Left Middle", "2 - Left Bottom",
    "3 - Right Top", "4 - Right Middle", "5 - Right Bottom", "6 - Center Top", "7 - Center Middle",
    "8 - Center Bottom" };
constexpr std::string_view kCaptionStyle[] = { "0 - Standard", "0 - Wrapped" };
constexpr std::string_view kBackStyle[] = { "0 - Transparent", "1 - Opaque" };

constexpr std::string_view kPanel3DStyle[] = { "0 - None", "1 - Lowered", "2 - Raised", "3 - GB Lowered", "4 - GB Raised" };
constexpr std::string_view kPanelFont3D[] = { "0 - None", "1 - Lowered", "2 - Raised", "3 - Lowered Shading",
    "4 - Raised Shading", "5 - Shadow" };
constexpr std::string_view kWinBorderStyle[] = { "0 - None", "1 - Lowered", "2 - Raised", "3 - Shadow" };
constexpr std::string_view kWinContrast[] = { "0 - Low", "1 - Medium", "2 - High" };
constexpr std::string_view kWinGradientDirection[] = { "0 - Top to Buttom", "1 - Buttom to Top", "2 - Left to Right",
    "3 - Right to Left", "4 - Vertical Center", "5 - Horizontal Center", "6 - Retangle Top to Border",
    "7 - Retangle Border to Top" };
constexpr std::string_view kWinOptionColor[] = { "0 - Themes", "0 - BackColor" };

constexpr std::string_view kPictureAlignment[] = { "0 - Left Top", "1 - Left Middle", "2- Left Bottom",
    "3 - Right Top", "4 - Right Middle", "5 - Right Bottom", "6 - Center Top", "7 - Center Middle",
    "8 - Center Bottom" };
constexpr std::string_view kPictureBackgroundStyle[] = { "0 - Centered", "1 - Stretched", "2 - Tiled" };

constexpr std::string_view kCornerStyle[] = { "0 - Square Corner", "1 - Round Corner" };
constexpr std::string_view kCustomGradientDirection[] = { "0 - Top to Buttom", "1 - Buttom to Top",
    "2 - Left to Right", "3 - Right to Left", "4 - Vertical Center", "5 - Horizontal Center",
    "6 - Retangle Center To Border", "7 - Retangle Border To Center" };
constexpr std::string_view kCustomGradientStyle[] = { "0 - Use Texture", "1 - Use Gradient" };

// The system colours a colour editor offers, by index (colour &H800000nn&).
constexpr std::string_view kSystemColors[] = { "Scroll Bars", "Desktop", "Active Title Bar", "Inactive Title Bar",
    "Menu Bar", "Window Background", "Window Frame", "Menu Text", "Window Text", "Active Title Bar Text",
    "Active Border", "Inactive Border", "Application Workspace", "Highlight", "Highlight Text", "Button Face",
    "Button Shadow", "Disabled Text", "Button Text", "Inactive Title Bar Text", "Button Highlight",
    "Button Dark Shadow", "Button Light Shadow", "ToolTip Text", "ToolTip" };

constexpr std::string_view kPictureTargets[] = { "Picture", "PictureBackground", "MouseIcon" };

// ---- The pages ----------------------------------------------------------------------------------

constexpr EditorSpec kPanelGeneral[] = {
    { "chkCaptionGetShadow", CheckBox, "CaptionGetShadow" },
    { "chkCaptionEfect", CheckBox, "CaptionEfect" },
    { "txtCaption", TextBox, "Caption" },
    { "chkEnabled", CheckBox, "Enabled" },
    { "cboAppearance", ComboBox, "Appearance", kAppearance },
    { "cboCaptionAlignment", ComboBox, "CaptionAlignment", kCaptionAlignment },
    { "cboCaptionStyle", ComboBox, "CaptionStyle", kCaptionStyle },
    { "cboBackStyle", ComboBox, "BackStyle", kBackStyle },
};

constexpr EditorSpec kPanel3D[] = {
    { "txtPanel_3DBorderOffset", TextBox, "Panel3DBorderOffset" },
    { "txtPanel_3DBorderWidth", TextBox, "Panel3DBorderWidth" },
    { "cboPanel3DBorderStyle", ComboBox, "Panel3DBorderStyle", kPanel3DStyle },
    { "cboPanelFont3D", ComboBox, "PanelFont3D", kPanelFont3D },
    { "cboWinBorderBottomStyle", ComboBox, "WinBorderBottomStyle", kWinBorderStyle },
    { "cboWinBorderLeftStyle", ComboBox, "WinBorderLeftStyle", kWinBorderStyle },
    { "cboWinBorderRightStyle", ComboBox, "WinBorderRightStyle", kWinBorderStyle },
    { "cboWinBorderTopStyle", ComboBox, "WinBorderTopStyle", kWinBorderStyle },
    { "cboWinContrast", ComboBox, "WinContrast", kWinContrast },
    { "cboWinGradientDirection", ComboBox, "WinGradientDirection", kWinGradientDirection },
    { "cboWinOptionColor", ComboBox, "WinOptionColor", kWinOptionColor },
};

constexpr EditorSpec kCustom[] = {
    { "txtCustom_BorderWidth", TextBox, "CustomBorderWidth" },
    { "txtCustom_BorderRadio", TextBox, "CustomBorderRadio" },
    { "cboCustomBorderLeftBottomStyle", ComboBox, "CustomBorderLeftBottomStyle", kCornerStyle },
    { "cboCustomBorderLeftTopStyle", ComboBox, "CustomBorderLeftTopStyle", kCornerStyle },
    { "cboCustomBorderRightBottomStyle", ComboBox, "CustomBorderRightBottomStyle", kCornerStyle },
    { "cboCustomBorderRightTopStyle", ComboBox, "CustomBorderRightTopStyle", kCornerStyle },
    { "cboCustomGradientDirection", ComboBox, "CustomGradientDirection", kCustomGradientDirection },
    { "cboCustomGradientStyle", ComboBox, "CustomGradientStyle", kCustomGradientStyle },
};

constexpr EditorSpec kLongPicture[] = {
    { "chkPictureBackgroundUseMask", CheckBox, "PictureBackgroundUseMask" },
    { "txtPictureFrames", TextBox, "PictureFrames" },
    { "chkPictureUseMask", CheckBox, "PictureUseMask" },
    { "txtPictureAnimDelay", TextBox, "PictureAnimDelay" },
    { "chkPictureAnimEnabled", CheckBox, "PictureAnimEnabled" },
    { "cboPictureAlignment", ComboBox, "PictureAlignment", kPictureAlignment },
    { "cboPictureBackgroundStyle", ComboBox, "PictureBackgroundStyle", kPictureBackgroundStyle },
};

// Every colour property, in the order of the interface.
constexpr EditorSpec kStandardColor[] = {
    { "clrForeColor", ColorBox, "ForeColor", kSystemColors },
    { "clrWinBackColor", ColorBox, "WinBackColor", kSystemColors },
    { "clrCaptionFontIn", ColorBox, "CaptionFontIn", kSystemColors },
    { "clrCaptionFontOut", ColorBox, "CaptionFontOut", kSystemColors },
    { "clrCaptionFontShadow", ColorBox, "CaptionFontShadow", kSystemColors },
    { "clrPictureMaskColor", ColorBox, "PictureMaskColor", kSystemColors },
    { "clrPanel3DHighLight", ColorBox, "Panel3DHighLight", kSystemColors },
    { "clrPanel3DShadow", ColorBox, "Panel3DShadow", kSystemColors },
    { "clrPanel3DOffsetColor", ColorBox, "Panel3DOffsetColor", kSystemColors },
    { "clrCustomBorderColor", ColorBox, "CustomBorderColor", kSystemColors },
    { "clrCustomGradientStart", ColorBox, "CustomGradientStart", kSystemColors },
    { "clrCustomGradientEnds", ColorBox, "CustomGradientEnds", kSystemColors },
    { "clrPanelFont3DHighLight", ColorBox, "PanelFont3DHighLight", kSystemColors },
    { "clrPanelFont3DShadow", ColorBox, "PanelFont3DShadow", kSystemColors },
    { "clrPanel3DBorderColor", ColorBox, "Panel3DBorderColor", kSystemColors },
    { "clrBackColor", ColorBox, "BackColor", kSystemColors },
};

constexpr EditorSpec kStandardFont[] = {
    { "txtFontName", TextBox, "FontName" },
    { "txtFontSize", TextBox, "FontSize" },
    { "chkFontBold", CheckBox, "FontBold" },
    { "chkFontItalic", CheckBox, "FontItalic" },
    { "chkFontUnderline", CheckBox, "FontUnderline" },
    { "chkFontStrikethru", CheckBox, "FontStrikethru" },
};

// The picture page's own settings: where the picture goes, the file, and how a PNG is composed.
constexpr EditorSpec kImagePNG[] = {
    { "cboTarget", ComboBox, "", kPictureTargets },
    { "txtFileName", TextBox, "" },
    { "chkPNGTransparency", CheckBox, "" },
    { "chkPNGAlpha", CheckBox, "" },
    { "chkPNGOwnBackground", CheckBox, "" },
    { "clrPNGBackground", ColorBox, "", kSystemColors },
    { "chkIconAsBitmap", CheckBox, "" },
};

constexpr std::array<PageSpec, 7> kPages = { {
    { "PanelGeneral", "General", kPanelGeneral },
    { "Panel3D", "3D", kPanel3D },
    { "Custom", "Custom", kCustom },
    { "LongPicture", "Picture", kLongPicture },
    { "StandardColor", "Color", kStandardColor },
    { "StandardFont", "Font", kStandardFont },
    { "ImagePNG", "Image", kImagePNG },
} };

} // namespace

std::string_view KindName(EditorKind kind)
{
    switch (kind) {
    case CheckBox: return "check";
    case TextBox: return "text";
    case ComboBox: return "list";
    case ColorBox: return "colour";
    }
    return "?";
}

std::span<const PageSpec> Pages() { return kPages; }

const PageSpec* FindPage(std::string_view name)
{
    for (const PageSpec& page : kPages)
        if (page.name == name)
            return &page;
    return nullptr;
}

} // namespace vex::pages
