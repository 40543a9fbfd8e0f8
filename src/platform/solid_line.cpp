#include "platform/solid_line.h"

#include <algorithm>

#include "base/numeric.h"

namespace vex::platform {

namespace {

// The half-open pixel range a LineTo covers along one axis: from `from` toward `to`, the end
// excluded. Drawn backwards it is (to, from], which is [to + 1, from + 1).
void Span(int32_t from, int32_t to, int32_t& first, int32_t& last)
{
    if (to >= from) {
        first = from;
        last = to;
    } else {
        first = Add32(to, 1);
        last = Add32(from, 1);
    }
}

} // namespace

Rect AxisLineRect(int32_t x1, int32_t y1, int32_t x2, int32_t y2)
{
    Rect rect;
    if (y1 == y2) {
        Span(x1, x2, rect.left, rect.right);
        rect.top = y1;
        rect.bottom = Add32(y1, 1);
    } else {
        Span(y1, y2, rect.top, rect.bottom);
        rect.left = x1;
        rect.right = Add32(x1, 1);
    }
    return rect;
}

void SolidLine(DeviceContext& dc, int32_t x1, int32_t y1, int32_t x2, int32_t y2, ColorRef color)
{
    if (x1 == x2 && y1 == y2)
        return; // a LineTo to where the pen stands paints nothing
    if (x1 == x2 || y1 == y2) {
        Rect rect = AxisLineRect(x1, y1, x2, y2);
        dc.FillRect(rect, Brush::Solid(color));
        return;
    }
    dc.MoveToEx(x1, y1);
    Pen previous = dc.SelectPen(Pen::Solid(color));
    dc.LineTo(x2, y2);
    dc.SelectPen(previous);
}

} // namespace vex::platform

namespace vex::platform {

void SolidColumns(DeviceContext& dc, int32_t left, int32_t top, int32_t bottom, const ColorRef* colours, int32_t count)
{
    const Size extent = dc.Extent();
    const int32_t firstRow = std::max(top, 0);
    const int32_t lastRow = std::min(bottom, extent.height);
    const int64_t firstColumn = std::max<int64_t>(left, 0);
    const int64_t lastColumn = std::min<int64_t>(int64_t { left } + count, extent.width);
    if (firstRow >= lastRow || firstColumn >= lastColumn)
        return; // nothing of it lies on the surface

    // The first visible row, one span per run of equal colours.
    for (auto x = static_cast<int32_t>(firstColumn); x < lastColumn;) {
        const ColorRef colour = colours[x - left];
        int32_t end = x + 1;
        while (end < lastColumn && colours[end - left] == colour)
            ++end;
        dc.FillRect(Rect { x, firstRow, end, firstRow + 1 }, Brush::Solid(colour));
        x = end;
    }
    const auto x = static_cast<int32_t>(firstColumn);
    const auto width = static_cast<int32_t>(lastColumn - firstColumn);
    const int32_t rows = lastRow - firstRow;
    for (int32_t done = 1; done < rows;) {
        const int32_t batch = std::min(done, rows - done);
        dc.BitBlt(x, firstRow + done, width, batch, dc, x, firstRow);
        done += batch;
    }
}

} // namespace vex::platform
