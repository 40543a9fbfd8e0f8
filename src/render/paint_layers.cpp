// The order in which the painters overdraw each other, for each appearance, and what every paint
// does before them.
#include "render/colour.h"
#include "render/painters.h"

namespace vex::render {

namespace {

void PaintCustom(PaintContext& context)
{
    const PanelProperties& props = context.props;
    if (props.CustomGradientStyle != TypeCustomGradientStyle::UseTexture) {
        DrawCustomGradient(context); // the gradient ends with its own frame
    } else {
        // A transparent panel that is capturing shows the captured background, not the texture.
        if (context.state.CaptureBackground == 0 || props.BackStyle == TypeBackStyle::Opaque)
            DrawCustomTexture(context);
        DrawCustomFrame(context);
    }
    DrawCustomPicture(context);
    DrawCaption(context);
}

} // namespace

void PreparePaint(PaintContext& context, bool clear)
{
    PaintState& state = context.state;
    platform::DeviceContext& dc = context.services.Dc();
    const platform::Size client = context.services.ClientSize();
    state.ClientRect = platform::Rect { 0, 0, client.width, client.height };
    state.ClientWidth = state.ClientRect.right;
    state.ClientHeight = state.ClientRect.bottom;
    // The clear is left out when the first layer is about to paint every pixel anyway: the result
    // is the same, and a clear costs as much as the background itself.
    if (clear && !BackgroundCoversClient(context))
        dc.FillRect(state.ClientRect, platform::Brush::Solid(context.services.BackColorRgb()));

    state.SysColors = PrepareSysColors(dc);
    // Captions are drawn over the layers below them, and the square gradients leave only their
    // outlines: text is drawn transparently, fills use a hollow brush, whatever the host's device
    // context started with.
    dc.SetTextColor(TranslateColor(context.props.ForeColor, dc));
    dc.SetBkMode(platform::kBkTransparent);
    dc.SelectBrush(platform::Brush::Hollow());

    if (state.CaptureBackground == 1)
        DrawCapturedBackground(context);
}

bool BackgroundCoversClient(PaintContext& context)
{
    const int32_t width = context.state.ClientWidth;
    const int32_t height = context.state.ClientHeight;
    if (width <= 0 || height <= 0 || width > 32767 || height > 32767)
        return false;
    switch (context.props.Appearance) {
    case TypeAppearance::Windows:
        return WindowsAppearanceCoversClient(context);
    case TypeAppearance::Custom:
        // The texture is a picture that may leave pixels out; the gradient is checked.
        return context.props.CustomGradientStyle != TypeCustomGradientStyle::UseTexture
            && CustomGradientCoversClient(context);
    default:
        return false; // the 3D appearance paints no background of its own
    }
}

void PaintLayers(PaintContext& context)
{
    switch (context.props.Appearance) {
    case TypeAppearance::Windows:
        DrawWindowsAppearance(context);
        DrawBackgroundPicture(context);
        DrawPicture(context);
        DrawCaption(context);
        break;
    case TypeAppearance::Window3D:
        DrawBackgroundPicture(context);
        Draw3DBorder(context);
        DrawPicture3D(context);
        DrawCaption3D(context);
        break;
    case TypeAppearance::Custom:
        PaintCustom(context);
        break;
    default:
        break; // no painter matches: the surface keeps what was there
    }
}

} // namespace vex::render
