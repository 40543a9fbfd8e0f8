// FIXME: placeholder bodies so that the control links while the painters are being written;
// each painter replaces its line here with its own file.
#include "render/painters.h"

namespace vex::render {

void DrawCapturedBackground(PaintContext&) { }
void DrawWindowsAppearance(PaintContext&) { }
void DrawBackgroundPicture(PaintContext&) { }
void DrawPicture(PaintContext&) { }
void Draw3DBorder(PaintContext&) { }
void DrawPicture3D(PaintContext&) { }
void DrawCaption(PaintContext&) { }
void DrawCaption3D(PaintContext&) { }
void DrawCustomGradient(PaintContext&) { }
void DrawCustomTexture(PaintContext&) { }
void DrawCustomFrame(PaintContext&) { }
void DrawCustomPicture(PaintContext&) { }
void AnimatePicture(PaintContext&) { }

} // namespace vex::render
