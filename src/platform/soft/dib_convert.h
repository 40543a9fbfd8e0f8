#pragma once
// Between device-independent bitmaps (any layout a Dib allows) and the software bitmap.

#include <memory>

#include "platform/dib.h"
#include "platform/soft/soft_bitmap.h"

namespace vex::platform::soft {

// The DIB's pixels with palettes resolved (an index past the palette gives black). nullptr
// when the size is not allowed.
std::shared_ptr<SoftBitmap> BitmapFromDib(const Dib& dib);

// A 32-bit top-down DIB of the bitmap, alpha bytes 0.
Dib DibFromBitmap(const SoftBitmap& bitmap);

} // namespace vex::platform::soft
