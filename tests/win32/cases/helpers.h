#pragma once
// Small builders the cases share: patterned source bitmaps and a memory DC holding one.

#include <memory>

#include "../battery.h"

namespace vex::drawtest {

using platform::Brush;
using platform::Dib;
using platform::Pen;
using platform::Rect;

// Distinct, saturated colours for telling overlapping shapes apart.
ColorRef Hue(int index);

// A width x height picture of the given depth whose every pixel differs from its neighbours:
// palette depths get a palette of distinct colours and a diagonal index pattern.
Dib PatternDib(int32_t width, int32_t height, int bitCount, bool topDown = true);

// A memory DC with `dib` selected as a compatible bitmap (CreateDIBitmap + SelectObject).
struct Source {
    std::unique_ptr<DeviceContext> dc;
    platform::BitmapRef bitmap;
};
Source MakeSource(DeviceContext& target, const Dib& dib);

// A source drawn with the interface itself: background, a frame and a few bars, so blits of it
// show orientation and edges.
Source MakeDrawnSource(DeviceContext& target, int32_t width, int32_t height);

// A size x size icon: a chequered disc inside a white ring, the rest kept by the mask; no alpha.
platform::Icon MakeIcon(int32_t size);
// A size x size icon whose straight colours carry alpha rising from left to right.
platform::Icon MakeAlphaIcon(int32_t size);

} // namespace vex::drawtest
