#pragma once
// The fixed system colour scheme of the drawing layer: the classic grey scheme (button face
// 212 208 200), one entry per GetSysColor index 0..30. The software layer answers GetSysColor
// from this table; the Windows test prefix writes the same values into
// HKCU\Control Panel\Colors under the names below, so both sides paint with the same colours.
// Plain constexpr data: usable from every build, the Windows one included.

#include <array>
#include <cstdint>
#include <string_view>

#include "base/ole_color.h"

namespace vex::platform {

struct SystemColorEntry {
    int index;
    std::string_view registryName; // value name under HKCU\Control Panel\Colors ("" = none)
    ColorRef color;
};

inline constexpr int kSystemColorCount = 31;

inline constexpr std::array<SystemColorEntry, kSystemColorCount> kClassicSystemColors { {
    { 0, "Scrollbar", Rgb(212, 208, 200) },
    { 1, "Background", Rgb(58, 110, 165) },
    { 2, "ActiveTitle", Rgb(10, 36, 106) },
    { 3, "InactiveTitle", Rgb(128, 128, 128) },
    { 4, "Menu", Rgb(212, 208, 200) },
    { 5, "Window", Rgb(255, 255, 255) },
    { 6, "WindowFrame", Rgb(0, 0, 0) },
    { 7, "MenuText", Rgb(0, 0, 0) },
    { 8, "WindowText", Rgb(0, 0, 0) },
    { 9, "TitleText", Rgb(255, 255, 255) },
    { 10, "ActiveBorder", Rgb(212, 208, 200) },
    { 11, "InactiveBorder", Rgb(212, 208, 200) },
    { 12, "AppWorkSpace", Rgb(128, 128, 128) },
    { 13, "Hilight", Rgb(10, 36, 106) },
    { 14, "HilightText", Rgb(255, 255, 255) },
    { 15, "ButtonFace", Rgb(212, 208, 200) },
    { 16, "ButtonShadow", Rgb(128, 128, 128) },
    { 17, "GrayText", Rgb(128, 128, 128) },
    { 18, "ButtonText", Rgb(0, 0, 0) },
    { 19, "InactiveTitleText", Rgb(212, 208, 200) },
    { 20, "ButtonHilight", Rgb(255, 255, 255) },
    { 21, "ButtonDkShadow", Rgb(64, 64, 64) },
    { 22, "ButtonLight", Rgb(212, 208, 200) },
    { 23, "InfoText", Rgb(0, 0, 0) },
    { 24, "InfoWindow", Rgb(255, 255, 225) },
    { 25, "ButtonAlternateFace", Rgb(181, 181, 181) },
    { 26, "HotTrackingColor", Rgb(0, 0, 128) },
    { 27, "GradientActiveTitle", Rgb(166, 202, 240) },
    { 28, "GradientInactiveTitle", Rgb(192, 192, 192) },
    { 29, "MenuHilight", Rgb(10, 36, 106) },
    { 30, "MenuBar", Rgb(212, 208, 200) },
} };

// GetSysColor: indices outside 0..30 give 0, as GetSysColor does for unknown indices.
constexpr ColorRef ClassicSystemColor(int index)
{
    if (index < 0 || index >= kSystemColorCount)
        return 0;
    return kClassicSystemColors[static_cast<size_t>(index)].color;
}

} // namespace vex::platform
