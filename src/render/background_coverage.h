#pragma once
// Whether the first painter of an appearance paints every pixel of the client area opaquely,
// so that clearing the surface before it cannot change a single pixel of the result. The
// pipeline uses this to skip a clear that would be painted over at once.

#include "render/painters.h"

namespace vex::render {

// props and the paint state as DrawControl has them before the painters run (client size and
// CaptureBackground); scaleWidth and scaleHeight are the surface's, as the Custom gradient
// reads them.
bool BackgroundCoversClient(const PanelProperties& props, const PaintState& state, double scaleWidth, double scaleHeight);

} // namespace vex::render
