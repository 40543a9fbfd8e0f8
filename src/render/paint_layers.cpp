// The order in which the painters overdraw each other, for each appearance.
#include "render/painters.h"

namespace vex::render {

namespace {

enum Appearance : int16_t { Windows = 0, Window3D = 1, Custom = 2 };
constexpr int16_t kUseTexture = 0;
constexpr int16_t kOpaque = 1;

void PaintCustom(PaintContext& context)
{
    const PanelProperties& props = context.props;
    if (props.CustomGradientStyle != kUseTexture) {
        DrawCustomGradient(context); // the gradient ends with its own frame
    } else {
        // A transparent panel that is capturing shows the captured background, not the texture.
        if (context.state.CaptureBackground == 0 || props.BackStyle == kOpaque)
            DrawCustomTexture(context);
        DrawCustomFrame(context);
    }
    DrawCustomPicture(context);
    DrawCaption(context);
}

} // namespace

void PaintLayers(PaintContext& context)
{
    switch (context.props.Appearance) {
    case Windows:
        DrawWindowsAppearance(context);
        DrawBackgroundPicture(context);
        DrawPicture(context);
        DrawCaption(context);
        break;
    case Window3D:
        DrawBackgroundPicture(context);
        Draw3DBorder(context);
        DrawPicture3D(context);
        DrawCaption3D(context);
        break;
    case Custom:
        PaintCustom(context);
        break;
    default:
        break; // no painter matches: the surface keeps what was there
    }
}

} // namespace vex::render
