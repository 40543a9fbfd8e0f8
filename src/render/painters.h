#pragma once
// The painters that DrawControl calls, in the order it calls them for each appearance:
//   Windows:  [captured background] windows appearance, background picture, picture, caption
//   Window3D: [captured background] background picture, 3D border, picture (3D), caption (3D)
//   Custom:   [captured background] gradient-with-frame, or texture then frame; picture; caption
// Each reads the stored properties and the paint state and draws on the surface's device context.

#include "render/panel_state.h"

namespace vex::render {

struct PaintContext {
    const PanelProperties& props;
    PaintState& state;
    PainterMemory& memory;
    PaintServices& services;
};

// What every paint does before the painters: the client rectangle and the working colour
// table into the paint state; the surface cleared to the back colour when clear is set (left
// out when the first layer paints every pixel anyway); transparent text in the fore colour and
// a hollow brush on the device context; then the pending capture of the background.
void PreparePaint(PaintContext& context, bool clear);
// Whether the first layer of the current appearance paints every pixel of the client area
// opaquely (the client rectangle already in the paint state), so that a clear before it cannot
// change a pixel of the result.
bool BackgroundCoversClient(PaintContext& context);

void DrawCapturedBackground(PaintContext& context);
void DrawWindowsAppearance(PaintContext& context);
bool WindowsAppearanceCoversClient(PaintContext& context); // every pixel, opaquely?
void DrawBackgroundPicture(PaintContext& context);
void DrawPicture(PaintContext& context);
void Draw3DBorder(PaintContext& context);
void DrawPicture3D(PaintContext& context);
void DrawCaption(PaintContext& context);
void DrawCaption3D(PaintContext& context);
void DrawCustomGradient(PaintContext& context); // the gradient, then its frame
bool CustomGradientCoversClient(PaintContext& context); // every pixel, opaquely?
void DrawCustomTexture(PaintContext& context);
void DrawCustomFrame(PaintContext& context);    // the flat border rings
void DrawCustomPicture(PaintContext& context);
void AnimatePicture(PaintContext& context);     // one tick of the frame animation

// The layers of one paint after the captured background, in the fixed order of the current
// appearance (listed above); an Appearance outside 0..2 paints nothing.
void PaintLayers(PaintContext& context);

} // namespace vex::render
