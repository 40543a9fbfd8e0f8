#include <algorithm>
#include <cstring>

#include "platform/soft/raster.h"

namespace vex::platform::soft {

void CopyRect(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY)
{
    // Clip in 64 bits against both bitmaps; each cut moves both rectangles together.
    int64_t dx = x, dy = y, sx = sourceX, sy = sourceY, w = width, h = height;
    auto cut = [&](int64_t& a, int64_t& b, int64_t& extent, int64_t low) {
        if (a < low) {
            int64_t skip = low - a;
            a += skip;
            b += skip;
            extent -= skip;
        }
    };
    cut(sx, dx, w, 0);
    cut(dx, sx, w, 0);
    cut(sy, dy, h, 0);
    cut(dy, sy, h, 0);
    w = std::min({ w, int64_t { source.width() } - sx, int64_t { target.width() } - dx });
    h = std::min({ h, int64_t { source.height() } - sy, int64_t { target.height() } - dy });
    if (w <= 0 || h <= 0)
        return;
    auto count = static_cast<size_t>(w) * sizeof(Pixel);
    auto copyRow = [&](int64_t r) {
        std::memmove(target.row(static_cast<int32_t>(dy + r)) + dx, source.row(static_cast<int32_t>(sy + r)) + sx, count);
    };
    // Overlapping copies within one bitmap: walk rows away from the overlap.
    if (&target == &source && dy > sy) {
        for (int64_t r = h - 1; r >= 0; --r)
            copyRow(r);
    } else {
        for (int64_t r = 0; r < h; ++r)
            copyRow(r);
    }
}

} // namespace vex::platform::soft
