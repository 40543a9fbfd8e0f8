#include "render/background_coverage.h"

#include <algorithm>
#include <cmath>

namespace vex::render {

namespace {

// The Custom squares cover the client when the outermost square reaches past every edge:
// square r outlines columns cx - r and cx + r - 1, rows cy - r and cy + r - 1.
bool SquaresCover(int32_t width, int32_t height, double scaleWidth, double scaleHeight)
{
    const double cx = std::nearbyint(scaleWidth / 2);
    const double cy = std::nearbyint(scaleHeight / 2);
    double radius = std::nearbyint(scaleWidth / 2);
    if (scaleHeight / 2 > radius)
        radius = std::nearbyint(scaleHeight / 2);
    return cx - radius <= 0 && cy - radius <= 0 && cx + radius >= width && cy + radius >= height;
}

} // namespace

bool BackgroundCoversClient(const PanelProperties& props, const PaintState& state, double scaleWidth, double scaleHeight)
{
    const int32_t width = state.ClientWidth;
    const int32_t height = state.ClientHeight;
    if (width <= 0 || height <= 0 || width > 32767 || height > 32767)
        return false;
    // The painters skip their background while a transparent panel shows its capture.
    if (state.CaptureBackground != 0 && props.BackStyle != 1)
        return false;
    switch (props.Appearance) {
    case 0: // every direction draws rows 0..H across the width or columns 0..W down the height
        switch (props.WinGradientDirection) {
        case 0:
        case 1:
        case 2:
        case 3:
            return true;
        case 4: // a half of 0 rows is a division by zero
            return height >= 2;
        case 5:
            return width >= 2;
        default:
            return false;
        }
    case 2: {
        if (props.CustomGradientStyle != 1 || props.CustomGradientDirection < 0 || props.CustomGradientDirection > 7)
            return false;
        // The gradient is as large as the surface's scale size, which must be the client's.
        if (std::nearbyint(scaleWidth) != width || std::nearbyint(scaleHeight) != height)
            return false;
        if (props.CustomGradientDirection >= 6)
            return SquaresCover(width, height, scaleWidth, scaleHeight);
        return true;
    }
    default: // the 3D appearance paints no background of its own
        return false;
    }
}

} // namespace vex::render
