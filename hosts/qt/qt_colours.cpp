#include "qt/qt_colours.h"

#include "platform/system_colors.h"

namespace vex::qt {

namespace {

constexpr int kNoSystemAlpha = 255;

} // namespace

QColor ToQColor(OleColor colour)
{
    const bool system = IsSystemColor(colour) && (colour & 0x7FFFFF00u) == 0
        && SystemColorIndex(colour) < platform::kSystemColorCount;
    if (system) {
        const int index = SystemColorIndex(colour);
        const ColorRef shown = platform::ClassicSystemColor(index);
        return QColor(static_cast<int>(RedOf(shown)), static_cast<int>(GreenOf(shown)), static_cast<int>(BlueOf(shown)),
            kNoSystemAlpha - 1 - index);
    }
    return QColor(static_cast<int>(RedOf(colour)), static_cast<int>(GreenOf(colour)), static_cast<int>(BlueOf(colour)));
}

OleColor ToOleColor(const QColor& colour)
{
    const QColor rgb = colour.toRgb();
    const int index = kNoSystemAlpha - 1 - rgb.alpha();
    if (index >= 0 && index < platform::kSystemColorCount)
        return SystemColor(index);
    return Rgb(static_cast<uint32_t>(rgb.red()), static_cast<uint32_t>(rgb.green()), static_cast<uint32_t>(rgb.blue()));
}

} // namespace vex::qt
