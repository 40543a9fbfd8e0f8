#pragma once
// The pixel operations under the software device context. Every function clips to the bitmap;
// coordinates may lie anywhere in the 32-bit range.

#include <cstdint>

#include "platform/geometry.h"
#include "platform/picture.h"
#include "platform/soft/soft_bitmap.h"

namespace vex::platform::soft {

// Fills [left, right) x [top, bottom); an empty or inverted rectangle fills nothing.
void FillSpanRect(SoftBitmap& target, int64_t left, int64_t top, int64_t right, int64_t bottom, Pixel pixel);

// A one-pixel cosmetic line from `from` up to, but not including, `to`, with GDI's choice of
// pixels in every octant.
void DrawLine(SoftBitmap& target, Point from, Point to, Pixel pixel);

// Copies width x height pixels from source (sourceX, sourceY) to target (x, y). Pixels whose
// source or destination lies outside its bitmap are left alone. target may be source.
void CopyRect(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY);

} // namespace vex::platform::soft

namespace vex::platform::soft {

// SetStretchBltMode values: BLACKONWHITE (AND the pixels a shrink drops), WHITEONBLACK (OR them),
// COLORONCOLOR (drop them), HALFTONE (bilinear).
enum StretchMode : int {
    kStretchAndScans = 1,
    kStretchOrScans = 2,
    kStretchDeleteScans = 3,
    kStretchHalftoneMode = 4,
};

// StretchBlt with SRCCOPY. Equal sizes (signs included) copy; negative sizes mirror, a
// rectangle of width -w at x covering x - w + 1 .. x. Source pixels outside the source bitmap
// are not drawn. target may be source.
void StretchRect(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight, int mode);

// TransparentBlt: the source stretched to the destination size (as a fresh work bitmap does it:
// shrinking ANDs the dropped pixels, areas without source stay black), then every pixel but
// the key copied. The key is compared with whole pixels, fourth byte included (as GDI does onto
// a 32-bit memory surface), and every pixel of the rectangle is left with a zero fourth byte.
// Negative sizes draw nothing.
void TransparentRect(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight, Pixel key);

} // namespace vex::platform::soft

namespace vex::platform::soft {

// DrawIconEx: width/height 0 take the icon's own size. An icon whose colour image carries alpha
// is blended (premultiplied) and its mask is not used; otherwise DI_MASK ANDs the mask (1 = keep)
// and DI_IMAGE then XORs the colour image (copies it without DI_MASK). Scaling is always
// COLORONCOLOR, whatever the context's stretch mode.
void DrawIconImage(SoftBitmap& target, int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height,
    uint32_t flags);

} // namespace vex::platform::soft
