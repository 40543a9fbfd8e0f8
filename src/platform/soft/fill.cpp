#include <algorithm>

#include "platform/soft/raster.h"

namespace vex::platform::soft {

void FillSpanRect(SoftBitmap& target, int64_t left, int64_t top, int64_t right, int64_t bottom, Pixel pixel)
{
    left = std::max<int64_t>(left, 0);
    top = std::max<int64_t>(top, 0);
    right = std::min<int64_t>(right, target.width());
    bottom = std::min<int64_t>(bottom, target.height());
    if (left >= right || top >= bottom)
        return;
    auto count = static_cast<size_t>(right - left);
    for (auto y = static_cast<int32_t>(top); y < bottom; ++y)
        std::fill_n(target.row(y) + left, count, pixel);
}

} // namespace vex::platform::soft
