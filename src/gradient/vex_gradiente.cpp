#include "gradient/vex_gradiente.h"

#include <algorithm>

#include "base/numeric.h"
#include "platform/solid_line.h"

namespace vex {

using platform::Brush;
using platform::DeviceContext;
using platform::Rect;

const char* const VexGradiente::kUnequalArraysMessage =
    "Position array and Colour array do not contain equal number of items";

namespace {

// A zero numerator short-circuits as well as a zero divisor; the quotient is single precision.
float SafeDivide(float a, float b)
{
    if (a == 0.0f || b == 0.0f)
        return 0.0f;
    return a / b;
}

int16_t RedOf(int32_t colour) { return ToInt16(colour & 255); }
// The mask keeps bit 24: a colour with it set gives a green of 65536 + g, which does not fit
// 16 bits and raises Overflow. Plain RGB colours are unaffected.
int16_t GreenOf(int32_t colour) { return ToInt16((colour & 0x0100FF00) / 256); }
int16_t BlueOf(int32_t colour) { return ToInt16((colour & 0x00FF0000) / 65536); }

// RGB(): components above 255 become 255, a negative one is an invalid call.
ColorRef RgbOf(int16_t red, int16_t green, int16_t blue)
{
    auto component = [](int16_t value) -> uint32_t {
        if (value < 0)
            Raise(ErrorCode::InvalidProcedureCall);
        return static_cast<uint32_t>(std::min<int16_t>(value, 255));
    };
    return Rgb(component(red), component(green), component(blue));
}

template <typename T>
int32_t UpperBound(const std::vector<T>& array)
{
    if (array.empty())
        Raise(ErrorCode::SubscriptOutOfRange); // never dimensioned
    return static_cast<int32_t>(array.size()) - 1;
}

template <typename T>
T& At(std::vector<T>& array, int64_t index)
{
    if (index < 0 || index >= static_cast<int64_t>(array.size()))
        Raise(ErrorCode::SubscriptOutOfRange);
    return array[static_cast<size_t>(index)];
}

} // namespace

DeviceContext& VexGradiente::dc()
{
    if (!dc_)
        Raise(ErrorCode::ObjectNotSet);
    return *dc_;
}

std::vector<ColorRef> VexGradiente::BuildColourTable(int32_t steps)
{
    if (steps < 0)
        Raise(ErrorCode::SubscriptOutOfRange); // ReDim table(0 To steps) with steps < 0
    std::vector<ColorRef> table(static_cast<size_t>(steps) + 1, 0);
    const int32_t last = UpperBound(colours_);

    if (useColourPositions_) {
        if (positions_.empty() || UpperBound(positions_) != last) {
            if (messageBox_)
                messageBox_(kUnequalArraysMessage);
            // and carry on: a subscript error may follow
        }
    } else {
        positions_.assign(static_cast<size_t>(last) + 1, 0);
        positions_[0] = 0;
        positions_[static_cast<size_t>(last)] = steps;
        const float spacing = SafeDivide(static_cast<float>(steps), static_cast<float>(last));
        for (int32_t i = 1; i < last; ++i)
            positions_[static_cast<size_t>(i)] = CLng(static_cast<double>(spacing) * i);
    }

    int32_t offset = 0;
    for (int32_t k = 0; k < last; ++k) {
        const int32_t distance = Sub32(At(positions_, int64_t{k} + 1), At(positions_, k));
        const int32_t from = colours_[static_cast<size_t>(k)];
        const int32_t to = colours_[static_cast<size_t>(k) + 1];
        const int16_t red0 = RedOf(from), green0 = GreenOf(from), blue0 = BlueOf(from);
        const int16_t red1 = RedOf(to), green1 = GreenOf(to), blue1 = BlueOf(to);
        const auto d = static_cast<float>(distance);
        const float stepRed = SafeDivide(static_cast<float>(red1 - red0), d);
        const float stepGreen = SafeDivide(static_cast<float>(green1 - green0), d);
        const float stepBlue = SafeDivide(static_cast<float>(blue1 - blue0), d);
        // A single times a long is computed in double precision.
        for (int32_t j = 0; j <= distance; ++j) {
            At(table, int64_t{offset} + j) = RgbOf(CInt(static_cast<double>(stepRed) * j + red0),
                CInt(static_cast<double>(stepGreen) * j + green0),
                CInt(static_cast<double>(stepBlue) * j + blue0));
        }
        offset = Add32(offset, distance);
    }
    return table;
}

void VexGradiente::DrawLinearGradient(int32_t Left, int32_t Top, int32_t Width, int32_t Height, bool TopToBottom, bool FlagColor)
{
    const int32_t steps = TopToBottom ? Height : Width;
    std::vector<ColorRef> table = BuildColourTable(steps);
    DeviceContext& target = dc();
    const int32_t first = FlagColor ? CLng(steps / 2.0) : 0;

    if (TopToBottom) {
        // One line per row, Left to Left + Width; each is one span.
        const int32_t right = Add32(Left, Width);
        for (int32_t i = std::max(first, 0); i <= steps; ++i)
            platform::SolidLine(target, Left, Add32(Top, i), right, Add32(Top, i), table[static_cast<size_t>(i)]);
    } else {
        Add32(Top, Height); // the columns' end, checked (an overflow raises)
        DrawColumns(Left, Top, Height, std::max(first, 0), table);
    }
    // The original passes the device context to DestroyWindow here, which fails without effect.
}

// Columns Left + first .. Left + steps, each one line from Top to Top + Height.
void VexGradiente::DrawColumns(int32_t Left, int32_t Top, int32_t Height, int32_t first, const std::vector<ColorRef>& table)
{
    const int32_t steps = static_cast<int32_t>(table.size()) - 1;
    if (first > steps)
        return;
    Add32(Left, steps); // the last column, checked
    if (Height == 0)
        return; // every column is a line of no length, which paints nothing
    const Rect column = platform::AxisLineRect(Left, Top, Left, Add32(Top, Height));
    platform::SolidColumns(dc(), Left + first, column.top, column.bottom, table.data() + first, steps - first + 1);
}

void VexGradiente::DrawRectangularGradients(int32_t CenterX, int32_t CenterY, int32_t Radius)
{
    std::vector<ColorRef> table = BuildColourTable(Radius);
    DeviceContext& target = dc();
    // The squares are outlined with Rectangle, which fills with the selected brush; the panel's
    // surface keeps a hollow one, so every square leaves only its outline.
    const Brush brush = target.SelectBrush(Brush::Hollow());
    target.SelectBrush(brush);
    // The outermost square's corners, checked. An overflow raises before anything is drawn,
    // where one square at a time would have drawn the inner squares first.
    Add32(CenterX, Radius);
    Add32(CenterY, Radius);
    Sub32(CenterX, Radius);
    Sub32(CenterY, Radius);
    if (!brush.hollow || !DrawSquaresByRows(CenterX, CenterY, table)) {
        // Square of half-size 0 is empty and paints nothing; from the centre outward.
        for (int32_t i = 1; i <= Radius; ++i) {
            platform::Pen previous = target.SelectPen(platform::Pen::Solid(table[static_cast<size_t>(i)]));
            target.Rectangle(CenterX - i, CenterY - i, CenterX + i, CenterY + i);
            target.SelectPen(previous);
        }
    }
    // The original passes the device context to DestroyWindow after every square and once more
    // at the end; each call fails without effect.
}

// The squares' outlines tile their bounding box: square r (r >= 1) outlines columns cx - r and
// cx + r - 1 and rows cy - r and cy + r - 1. With rx = cx - x for x < cx and x - cx + 1
// otherwise (ry likewise), pixel (x, y) lies on exactly one square, max(rx, ry). So each row is
// table(ry) in its middle, where rx <= ry, and table(rx) outside it - the same outer pixels as
// the row one step nearer the centre. Rows are built from the centre out: copy the outer parts
// from the previous row, fill the middle. Returns false (nothing drawn) when the centre rows are
// off the surface, where the copies would have nothing to copy from.
bool VexGradiente::DrawSquaresByRows(int32_t cx, int32_t cy, const std::vector<ColorRef>& table)
{
    DeviceContext& target = dc();
    const int32_t radius = static_cast<int32_t>(table.size()) - 1;
    if (radius < 1)
        return true;
    const platform::Size extent = target.Extent();
    if (cy - 1 < 0 || cy >= extent.height)
        return false;
    const int32_t left = std::max(cx - radius, 0);
    const int32_t right = std::min(cx + radius, extent.width);
    auto fill = [&](int32_t x0, int32_t x1, int32_t y, ColorRef colour) {
        x0 = std::max(x0, left);
        x1 = std::min(x1, right);
        if (x0 < x1)
            target.FillRect(Rect { x0, y, x1, y + 1 }, Brush::Solid(colour));
    };
    auto copySides = [&](int32_t ring, int32_t from, int32_t to) {
        // columns with rx > ring: [left, cx - ring) and [cx + ring, right)
        const int32_t leftEnd = std::min(cx - ring, right);
        if (left < leftEnd)
            target.BitBlt(left, to, leftEnd - left, 1, target, left, from);
        const int32_t rightStart = std::max(cx + ring, left);
        if (rightStart < right)
            target.BitBlt(rightStart, to, right - rightStart, 1, target, rightStart, from);
    };

    // Row cy - 1 (ry = 1): every column in its own square's colour, the middle two in table(1).
    const int32_t seed = cy - 1;
    for (int32_t x = left; x < right;) {
        const int32_t ring = x < cx ? cx - x : x - cx + 1;
        const ColorRef colour = table[static_cast<size_t>(std::max(ring, 1))];
        int32_t end = x + 1;
        while (end < right) {
            const int32_t next = end < cx ? cx - end : end - cx + 1;
            if (table[static_cast<size_t>(std::max(next, 1))] != colour)
                break;
            ++end;
        }
        target.FillRect(Rect { x, seed, end, seed + 1 }, Brush::Solid(colour));
        x = end;
    }
    // Row cy has ry = 1 as well.
    if (left < right && cy < extent.height)
        target.BitBlt(left, cy, right - left, 1, target, left, seed);
    // Outward: up from cy - 2 and down from cy + 1, ring = ry.
    for (int32_t ring = 2; ring <= radius; ++ring) {
        const ColorRef colour = table[static_cast<size_t>(ring)];
        const int32_t up = cy - ring;
        if (up >= 0 && up < extent.height) {
            copySides(ring, up + 1, up);
            fill(cx - ring, cx + ring, up, colour);
        }
        const int32_t down = cy + ring - 1;
        if (down >= 0 && down < extent.height) {
            copySides(ring, down - 1, down);
            fill(cx - ring, cx + ring, down, colour);
        }
        if (up < 0 && down >= extent.height)
            break;
    }
    return true;
}

} // namespace vex
