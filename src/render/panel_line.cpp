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
    switch (props.Panel3DBorderStyle) {
    case 0:
        inset = 0;
        return true;
    case 1:
    case 2:
        inset = props.Panel3DBorderWidth;
        return true;
    case 3:
    case 4:
        inset = Add16(Mul16(2, props.Panel3DBorderWidth), props.Panel3DBorderOffset);
        return true;
    default:
        return false;
    }
}

} // namespace vex::render
