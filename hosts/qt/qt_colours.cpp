#include "qt/qt_colours.h"

#include "platform/system_colors.h"

namespace vex::qt {

namespace {

constexpr int kPlainAlpha = 255;
constexpr int kNamedSystemAlpha = kPlainAlpha - 1; // index 0; lower alphas for higher indices
constexpr int kFirstNamedSystemAlpha = kNamedSystemAlpha - (platform::kSystemColorCount - 1);

constexpr bool IsNamedSystemColour(OleColor colour)
{
    return (colour & 0xFFFFFF00u) == 0x80000000u && SystemColorIndex(colour) < platform::kSystemColorCount;
}

QColor FromColorRef(ColorRef rgb, int alpha = kPlainAlpha)
{
    return QColor(static_cast<int>(RedOf(rgb)), static_cast<int>(GreenOf(rgb)), static_cast<int>(BlueOf(rgb)), alpha);
}

} // namespace

QColor ToQColor(OleColor colour)
{
    if (IsNamedSystemColour(colour)) {
        const int index = SystemColorIndex(colour);
        return FromColorRef(platform::ClassicSystemColor(index), kNamedSystemAlpha - index);
    }
    const int highByte = static_cast<int>(colour >> 24);
    const bool keptInAlpha = highByte > 0 && highByte < kFirstNamedSystemAlpha;
    return FromColorRef(colour & 0xFFFFFFu, keptInAlpha ? highByte : kPlainAlpha);
}

OleColor ToOleColor(const QColor& colour)
{
    const QColor rgb = colour.toRgb();
    const int alpha = rgb.alpha();
    if (alpha >= kFirstNamedSystemAlpha && alpha < kPlainAlpha)
        return SystemColor(kNamedSystemAlpha - alpha);
    const OleColor low = Rgb(static_cast<uint32_t>(rgb.red()), static_cast<uint32_t>(rgb.green()), static_cast<uint32_t>(rgb.blue()));
    return alpha == kPlainAlpha ? low : (static_cast<OleColor>(alpha) << 24) | low;
}

} // namespace vex::qt
