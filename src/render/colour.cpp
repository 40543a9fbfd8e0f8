#include "render/colour.h"
#include "render/panel_state.h"

#include <algorithm>

#include "base/numeric.h"

namespace vex::render {

ColorRef TranslateColor(OleColor color, const platform::DeviceContext& dc)
{
    // A value that names no colour leaves the result at 0, black.
    ColorRef result = 0;
    dc.OleTranslateColor(color, result);
    return result;
}

namespace {

int32_t Clamp(int32_t channel, int32_t amount)
{
    if (amount >= 1)
        return std::min(channel, 255);
    if (amount < 0)
        return std::max(channel, 0);
    return channel;
}

} // namespace

ColorRef ShiftColour(ColorRef color, int32_t amount, bool proportional)
{
    int32_t red = static_cast<int32_t>(RedOf(color));
    int32_t green = static_cast<int32_t>(GreenOf(color));
    int32_t blue = static_cast<int32_t>(BlueOf(color));
    red = Add32(red, amount);
    green = Add32(green, amount);
    blue = proportional ? Add32(blue, IntDiv32(Mul32(blue, amount), 192)) : Add32(blue, amount);
    if (amount == 0)
        return color;
    red = Clamp(red, amount);
    green = Clamp(green, amount);
    blue = Clamp(blue, amount);
    return static_cast<ColorRef>(red + green * 256 + blue * 65536);
}

ColorRef BlendTowardWhite(ColorRef color, int32_t amount)
{
    auto blend = [amount](uint32_t channel) {
        int32_t value = Add32(IntDiv32(Mul32(static_cast<int32_t>(channel), Sub32(255, amount)), 255), amount);
        return static_cast<uint32_t>(std::min(value, 255));
    };
    return Rgb(blend(RedOf(color)), blend(GreenOf(color)), blend(BlueOf(color)));
}

WorkingColours PrepareSysColors(const platform::DeviceContext& dc)
{
    WorkingColours colors;
    colors.ButtonFace = dc.GetSysColor(syscolor::ButtonFace);
    colors.ButtonShadow = dc.GetSysColor(syscolor::ButtonShadow);
    colors.Light3D = dc.GetSysColor(syscolor::Light3D);
    colors.DarkShadow3D = dc.GetSysColor(syscolor::DarkShadow3D);
    colors.ButtonHighlight = dc.GetSysColor(syscolor::ButtonHighlight);
    colors.ButtonText = dc.GetSysColor(syscolor::ButtonText);
    colors.Highlight = dc.GetSysColor(syscolor::Highlight);
    colors.HighlightPale = BlendTowardWhite(colors.Highlight, 176);
    colors.ShadedFace = ShiftColour(colors.ButtonFace, 30, true);
    return colors;
}

} // namespace vex::render
