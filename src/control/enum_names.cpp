#include "control/enum_names.h"

#include <array>

namespace vex::control {

namespace {

constexpr EnumMember kAppearance[] = { { "Windows", 0 }, { "Window3D", 1 }, { "Custom", 2 } };
constexpr EnumMember kBorder[] = { { "SquareCornerBorder", 0 }, { "RoundCornerBorder", 1 } };
constexpr EnumMember kWinGradientDirection[] = {
    { "pTopToButtomDirection", 0 }, { "pButtomToTopDirection", 1 }, { "pLeftToRightDirection", 2 },
    { "pRightToLeftDirection", 3 }, { "pVerticalCenterDirection", 4 }, { "pHorizontalCenterDirection", 5 },
};
constexpr EnumMember kWinOptionColor[] = { { "ThemesColorOption", 0 }, { "WinBackColorOption", 1 } };
constexpr EnumMember kWinContrast[] = { { "LowContrast", 0 }, { "MediumContrast", 1 }, { "HighContrast", 2 } };
constexpr EnumMember kWinBorderStyle[] = {
    { "NoneBorder", 0 }, { "LoweredBorder", 1 }, { "RaisedBorder", 2 }, { "ShadowBorder", 3 },
};
constexpr EnumMember kAlignment[] = {
    { "LeftTop", 0 }, { "LeftMiddle", 1 }, { "LeftBottom", 2 }, { "RightTop", 3 }, { "RightMiddle", 4 },
    { "RightBottom", 5 }, { "CenterTop", 6 }, { "CenterMiddle", 7 }, { "CenterBottom", 8 },
};
constexpr EnumMember kPictureBackgroundStyle[] = {
    { "CenteredPicture", 0 }, { "StretchedPicture", 1 }, { "TiledPicture", 2 },
};
constexpr EnumMember kCaptionStyle[] = { { "StandardCaption", 0 }, { "WrappedCaption", 1 } };
constexpr EnumMember kPanel3DStyle[] = {
    { "None3D", 0 }, { "Lowered3D", 1 }, { "Raised3D", 2 }, { "GBLowered3D", 3 }, { "GBRaised3D", 4 },
};
constexpr EnumMember kCustomGradientStyle[] = { { "UseTexture", 0 }, { "UseGradient", 1 } };
constexpr EnumMember kCustomGradientDirection[] = {
    { "TopToButtom", 0 }, { "ButtomToTop", 1 }, { "LeftToRight", 2 }, { "RightToLeft", 3 },
    { "VerticalCenter", 4 }, { "HorizontalCenter", 5 }, { "RetangleCenterToBorder", 6 },
    { "RetangleBorderToCenter", 7 },
};
constexpr EnumMember kBackStyle[] = { { "Transparent", 0 }, { "Opaque", 1 } };
constexpr EnumMember kPanelFont3D[] = {
    { "NoneFont3D", 0 }, { "LoweredFont3D", 1 }, { "RaisedFont3D", 2 }, { "LoweredShadingFont3D", 3 },
    { "RaisedShadingFont3D", 4 }, { "ShadowFont3D", 5 },
};
// Kept as published: "Size NW NS" (not NW SE), a trailing blank in member 13, and 99 after 15.
constexpr EnumMember kMousePointer[] = {
    { "Default", 0 }, { "Arrow", 1 }, { "Cross", 2 }, { "I-Beam", 3 }, { "Icon", 4 }, { "Size", 5 },
    { "Size NE SW", 6 }, { "Size N S", 7 }, { "Size NW NS", 8 }, { "Size W E", 9 }, { "Up Arrow", 10 },
    { "Hourglass", 11 }, { "No Drop", 12 }, { "Arrow and Hourglass ", 13 }, { "Arrow and Question", 14 },
    { "Size All", 15 }, { "Custom", 99 },
};

constexpr std::array kEnumerations = {
    EnumInfo { "TypeAppearance", kAppearance },
    EnumInfo { "TypeBorder", kBorder },
    EnumInfo { "TypeWinGradientDirection", kWinGradientDirection },
    EnumInfo { "TypeWinOptionColor", kWinOptionColor },
    EnumInfo { "TypeWinContrast", kWinContrast },
    EnumInfo { "TypeWinBorderStyle", kWinBorderStyle },
    EnumInfo { "TypeAlignment", kAlignment },
    EnumInfo { "TypePictureBackgroundStyle", kPictureBackgroundStyle },
    EnumInfo { "TypeCaptionStyle", kCaptionStyle },
    EnumInfo { "TypePanel3DStyle", kPanel3DStyle },
    EnumInfo { "TypeCustomGradientStyle", kCustomGradientStyle },
    EnumInfo { "TypeCustomGradientDirection", kCustomGradientDirection },
    EnumInfo { "TypeBackStyle", kBackStyle },
    EnumInfo { "TypePanelFont3D", kPanelFont3D },
    EnumInfo { "TypeMousePointer", kMousePointer },
};

} // namespace

std::span<const EnumInfo> Enumerations() { return kEnumerations; }

const EnumInfo* FindEnumeration(std::string_view name)
{
    for (const EnumInfo& info : kEnumerations)
        if (info.name == name)
            return &info;
    return nullptr;
}

std::string_view MemberName(const EnumInfo& info, int32_t value)
{
    for (const EnumMember& member : info.members)
        if (member.value == value)
            return member.name;
    return {};
}

} // namespace vex::control
