#include "platform/soft/soft_bitmap.h"

#include <algorithm>

namespace vex::platform::soft {

bool SoftBitmap::SizeAllowed(int32_t width, int32_t height)
{
    return width >= 0 && height >= 0 && int64_t{width} * height <= kMaxPixels;
}

SoftBitmap::SoftBitmap(int32_t width, int32_t height)
    : width_(std::max(width, 0))
    , height_(std::max(height, 0))
    , pixels_(static_cast<size_t>(width_) * static_cast<size_t>(height_), 0)
{
}

void SoftBitmap::Resize(int32_t width, int32_t height)
{
    SoftBitmap resized(width, height);
    int32_t keepWidth = std::min(width_, resized.width_);
    int32_t keepHeight = std::min(height_, resized.height_);
    for (int32_t y = 0; y < keepHeight; ++y)
        std::copy_n(row(y), keepWidth, resized.row(y));
    *this = std::move(resized);
}

} // namespace vex::platform::soft
