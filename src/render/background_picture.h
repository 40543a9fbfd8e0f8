#pragma once
// The background picture renderer, shared by the Windows and 3D appearances (inset from the 3D
// border) and by the Custom appearance's texture (inset from the Custom frame).

#include <cstdint>

#include "render/painters.h"

namespace vex::render {

// PictureBackground centred, stretched or tiled by PictureBackgroundStyle. `insetKnown` false
// (a 3D style outside 0..4) leaves out the stretched picture and tiles from (0, 0).
void RenderBackgroundPicture(PaintContext& context, bool insetKnown, int32_t inset);

} // namespace vex::render
