#pragma once
// A one-pixel solid line as MoveToEx + LineTo with a width-1 PS_SOLID pen paints it: from the
// start point up to, but not including, the end point. Horizontal and vertical lines (all the
// panel ever draws) become one FillRect of the same pixels, which is much cheaper than a pen
// per line on every backend; other lines go through a real pen.

#include <cstdint>

#include "platform/device_context.h"

namespace vex::platform {

void SolidLine(DeviceContext& dc, int32_t x1, int32_t y1, int32_t x2, int32_t y2, ColorRef color);

// The pixels of a horizontal or vertical LineTo as a rectangle (empty when start == end).
Rect AxisLineRect(int32_t x1, int32_t y1, int32_t x2, int32_t y2);

} // namespace vex::platform

namespace vex::platform {

// count one-pixel columns from x = left, column i in colours[i], each covering rows top to
// bottom - 1: the pixels of one vertical line per column. Painted as the first visible row
// followed by copies of it (doubling), so a surface of h rows costs log2(h) blits instead of a
// pen per column; the pixels are the same because every column is one colour top to bottom.
void SolidColumns(DeviceContext& dc, int32_t left, int32_t top, int32_t bottom, const ColorRef* colours, int32_t count);

} // namespace vex::platform
