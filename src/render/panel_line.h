#pragma once
// The painters' one-pixel line and the insets that the 3D border takes from each edge.

#include <cstdint>

#include "render/painters.h"

namespace vex::render {

// A one-pixel solid line from (x1, y1) to (x2, y2) on the surface, end point not painted.
void DrawPanelLine(PaintContext& context, int32_t x1, int32_t y1, int32_t x2, int32_t y2, ColorRef colour);

// What the 3D border takes from each edge: 0 for None3D, W for Lowered3D and Raised3D, 2W + O
// for the two GB styles (16-bit arithmetic). False for a style outside 0..4.
bool Border3DInset(const PanelProperties& props, int16_t& inset);

} // namespace vex::render
