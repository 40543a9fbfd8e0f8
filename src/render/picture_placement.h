#pragma once
// Shared by the foreground picture painters of the three appearances and the animation tick.

#include <cstdint>

#include "render/painters.h"

namespace vex::render {

struct FrameSize {
    int32_t stripWidth = 0; // the whole picture, in pixels
    int32_t width = 0;      // one frame: stripWidth \ PictureFrames
    int32_t height = 0;
};

FrameSize PictureFrameSize(const PanelProperties& props); // props.Picture must be set

// The picture's position by PictureAlignment with the given margin; false (x, y untouched) for
// a value outside the nine positions.
bool PlacePicture(const PaintContext& context, int32_t margin, const FrameSize& frame, int32_t& x, int32_t& y);

// Frame 0 at the stored position, placed anew first when `placed` is true.
void RenderPicture(PaintContext& context, bool placed, int32_t margin);

} // namespace vex::render
