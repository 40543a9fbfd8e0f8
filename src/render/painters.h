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

void DrawCapturedBackground(PaintContext& context);
void DrawWindowsAppearance(PaintContext& context);
void DrawBackgroundPicture(PaintContext& context);
void DrawPicture(PaintContext& context);
void Draw3DBorder(PaintContext& context);
void DrawPicture3D(PaintContext& context);
void DrawCaption(PaintContext& context);
void DrawCaption3D(PaintContext& context);
void DrawCustomGradient(PaintContext& context); // the gradient, then its frame
void DrawCustomTexture(PaintContext& context);
void DrawCustomFrame(PaintContext& context);    // the flat border rings
void DrawCustomPicture(PaintContext& context);
void AnimatePicture(PaintContext& context);     // one tick of the frame animation

// The layers of one paint after the captured background, in the fixed order of the current
// appearance (listed above); an Appearance outside 0..2 paints nothing.
void PaintLayers(PaintContext& context);

} // namespace vex::render
