#include "control/dispatch_ids.h"

#include <array>

namespace vex::control {

namespace {

constexpr auto P = MemberKind::Property;
constexpr auto M = MemberKind::Method;
constexpr auto E = MemberKind::Event;

// Properties count down from &H68030040 (ForeColor) to &H68030000 (BackColor), skipping the three
// that carry fixed identifiers (FlagAbout, Caption, CaptionText).
constexpr int32_t Prop(int32_t slot) { return 0x68030000 + slot; }

constexpr std::array kInterface = {
    DispatchMember { "FlagAbout", P, 0x4003005D, false, true },
    DispatchMember { "ForeColor", P, Prop(64) },
    DispatchMember { "Enabled", P, Prop(63) },
    DispatchMember { "Appearance", P, Prop(62) },
    DispatchMember { "BackStyle", P, Prop(61) },
    DispatchMember { "Refresh", M, 0x60030041 },
    DispatchMember { "OptionPic", P, Prop(60) },
    DispatchMember { "OptionPicBackGround", P, Prop(59), false, true },
    DispatchMember { "CustomBorderLeftTopStyle", P, Prop(58) },
    DispatchMember { "CustomBorderRightTopStyle", P, Prop(57) },
    DispatchMember { "CustomBorderLeftBottomStyle", P, Prop(56) },
    DispatchMember { "CustomBorderRightBottomStyle", P, Prop(55) },
    DispatchMember { "CustomBorderRadio", P, Prop(54) },
    DispatchMember { "WinBackColor", P, Prop(53) },
    DispatchMember { "WinGradientDirection", P, Prop(52) },
    DispatchMember { "WinOptionColor", P, Prop(51) },
    DispatchMember { "WinContrast", P, Prop(50) },
    DispatchMember { "WinBorderTopStyle", P, Prop(49) },
    DispatchMember { "WinBorderBottomStyle", P, Prop(48) },
    DispatchMember { "WinBorderLeftStyle", P, Prop(47) },
    DispatchMember { "WinBorderRightStyle", P, Prop(46) },
    DispatchMember { "Caption", P, kDispidCaption },
    DispatchMember { "CaptionAlignment", P, Prop(45) },
    DispatchMember { "Font", P, Prop(44) },
    DispatchMember { "CaptionEfect", P, Prop(43) },
    DispatchMember { "CaptionFontIn", P, Prop(42) },
    DispatchMember { "CaptionFontOut", P, Prop(41) },
    DispatchMember { "CaptionFontShadow", P, Prop(40) },
    DispatchMember { "CaptionGetShadow", P, Prop(39) },
    DispatchMember { "Picture", P, Prop(38) },
    DispatchMember { "PictureAlignment", P, Prop(37) },
    DispatchMember { "PictureAnimEnabled", P, Prop(36) },
    DispatchMember { "PictureAnimDelay", P, Prop(35) },
    DispatchMember { "PictureMaskColor", P, Prop(34) },
    DispatchMember { "PictureUseMask", P, Prop(33) },
    DispatchMember { "PictureFrames", P, Prop(32) },
    DispatchMember { "PictureBackground", P, Prop(31) },
    DispatchMember { "PictureBackgroundStyle", P, Prop(30) },
    DispatchMember { "PictureBackgroundUseMask", P, Prop(29) },
    DispatchMember { "CaptionStyle", P, Prop(28) },
    DispatchMember { "Panel3DBorderStyle", P, Prop(27) },
    DispatchMember { "Panel3DBorderWidth", P, Prop(26) },
    DispatchMember { "Panel3DBorderOffset", P, Prop(25) },
    DispatchMember { "Panel3DHighLight", P, Prop(24) },
    DispatchMember { "Panel3DShadow", P, Prop(23) },
    DispatchMember { "Panel3DOffsetColor", P, Prop(22) },
    DispatchMember { "CustomBorderWidth", P, Prop(21) },
    DispatchMember { "CustomBorderColor", P, Prop(20) },
    DispatchMember { "CustomGradientStart", P, Prop(19) },
    DispatchMember { "CustomGradientEnds", P, Prop(18) },
    DispatchMember { "CustomGradientDirection", P, Prop(17) },
    DispatchMember { "CustomGradientStyle", P, Prop(16) },
    DispatchMember { "PanelFont3D", P, Prop(15) },
    DispatchMember { "PanelFont3DHighLight", P, Prop(14) },
    DispatchMember { "PanelFont3DShadow", P, Prop(13) },
    DispatchMember { "hWnd", P, Prop(12), true, true },
    DispatchMember { "MouseIcon", P, Prop(11) },
    DispatchMember { "MousePointer", P, Prop(10) },
    DispatchMember { "FontUnderline", P, Prop(9) },
    DispatchMember { "FontStrikethru", P, Prop(8) },
    DispatchMember { "FontSize", P, Prop(7) },
    DispatchMember { "FontName", P, Prop(6) },
    DispatchMember { "FontItalic", P, Prop(5) },
    DispatchMember { "FontBold", P, Prop(4) },
    DispatchMember { "CaptionText", P, kDispidValue, false, true },
    DispatchMember { "Panel3DBorderOption", P, Prop(3) },
    DispatchMember { "Panel3DBorderColor", P, Prop(2) },
    DispatchMember { "Acerca", M, kDispidAboutBox },
    DispatchMember { "DrawControl", M, 0x60030078 },
    DispatchMember { "hDC", P, Prop(1), true },
    DispatchMember { "BackColor", P, Prop(0) },
};

constexpr std::array kEvents = {
    DispatchMember { "Click", E, 1 },
    DispatchMember { "DblClick", E, 2 },
    DispatchMember { "KeyDown", E, 3 },
    DispatchMember { "KeyPress", E, 4 },
    DispatchMember { "KeyUp", E, 5 },
    DispatchMember { "MouseDown", E, 6 },
    DispatchMember { "MouseMove", E, 7 },
    DispatchMember { "MouseUp", E, 8 },
    DispatchMember { "MouseExit", E, 9 },
    DispatchMember { "MouseEnter", E, 10 },
};

} // namespace

std::span<const DispatchMember> InterfaceMembers() { return kInterface; }
std::span<const DispatchMember> EventMembers() { return kEvents; }

const DispatchMember* FindMember(std::string_view name)
{
    for (const DispatchMember& member : kInterface)
        if (member.name == name)
            return &member;
    for (const DispatchMember& member : kEvents)
        if (member.name == name)
            return &member;
    return nullptr;
}

} // namespace vex::control
