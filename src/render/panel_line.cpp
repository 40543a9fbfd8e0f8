#include "render/panel_line.h"

#include "base/numeric.h"
#include "platform/solid_line.h"

namespace vex::render {

void DrawPanelLine(PaintContext& context, int32_t x1, int32_t y1, int32_t x2, int32_t y2, ColorRef colour)
{
    platform::SolidLine(context.services.Dc(), x1, y1, x2, y2, colour);
}

bool Border3DInset(const PanelProperties& props, int16_t& inset)
{
    using enum TypePanel3DStyle;
    switch (props.Panel3DBorderStyle) {
    case None3D:
        inset = 0;
        return true;
    case Lowered3D:
    case Raised3D:
        inset = props.Panel3DBorderWidth;
        return true;
    case GBLowered3D:
    case GBRaised3D:
        inset = Add16(Mul16(2, props.Panel3DBorderWidth), props.Panel3DBorderOffset);
        return true;
    default:
        return false;
    }
}

} // namespace vex::render
