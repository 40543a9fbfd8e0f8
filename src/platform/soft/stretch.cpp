// StretchBlt's pixel rules.
//
// Each axis is a Bresenham walk in (source, destination) space that samples pixel centres
// (ties go to the lower source pixel). Growing, every destination pixel takes one source pixel.
// Shrinking, a run of source pixels falls on one destination pixel and the stretch mode decides:
// COLORONCOLOR keeps the *last* pixel of a run across a row but the *first* row of a run of
// rows; BLACKONWHITE ANDs all of them, WHITEONBLACK ORs them. When both axes grow the mode does
// not matter. The fourth byte of a 32-bit pixel goes along: copied, picked, ANDed or ORed.
//
// HALFTONE at a different size interpolates bilinearly in single precision over the visible
// parts of both rectangles, stepping the source position by (visible source / visible
// destination) from one pixel to the next, each channel rounded after each of the two linear
// steps — the arithmetic of the GDI we compare against under Wine; it writes 0 in the fourth
// byte. At equal size it is a copy, fourth byte included.

#include <algorithm>
#include <vector>

#include "platform/soft/bresenham.h"
#include "platform/soft/raster.h"

namespace vex::platform::soft {
namespace {

// One visible destination pixel along an axis and the source run that falls on it, listed in
// walking order (srcFirst is walked first; step is the source direction).
struct AxisGroup {
    int32_t dst;
    int32_t srcFirst;
    int32_t srcLast;
};

struct AxisMap {
    bool grows = true;
    int step = 1;
    std::vector<AxisGroup> groups;
};

AxisMap MapAxis(int64_t dstStart, int64_t dstLength, int64_t dstLimit,
    int64_t srcStart, int64_t srcLength, int64_t srcLimit)
{
    AxisMap map;
    int64_t dstInc = dstLength < 0 ? -1 : 1;
    int64_t srcInc = srcLength < 0 ? -1 : 1;
    int64_t dstCount = dstLength < 0 ? -dstLength : dstLength;
    int64_t srcCount = srcLength < 0 ? -srcLength : srcLength;
    map.step = static_cast<int>(srcInc);
    if (dstCount == 0 || srcCount == 0)
        return map;
    map.grows = srcCount <= dstCount;
    if (map.grows) {
        auto sourceSteps = [&](int64_t j) { return ScaleMinorSteps(j, dstCount, srcCount); };
        int64_t first = 0, last = dstCount - 1;
        if (!ClipSteps(first, last, dstStart, dstInc, 0, dstLimit, [](int64_t j) { return j; }))
            return map;
        if (!ClipSteps(first, last, srcStart, srcInc, 0, srcLimit, sourceSteps))
            return map;
        map.groups.reserve(static_cast<size_t>(last - first + 1));
        for (int64_t j = first; j <= last; ++j) {
            auto source = static_cast<int32_t>(srcStart + srcInc * sourceSteps(j));
            map.groups.push_back({ static_cast<int32_t>(dstStart + dstInc * j), source, source });
        }
    } else {
        auto destinationSteps = [&](int64_t i) { return ScaleMinorSteps(i, srcCount, dstCount); };
        int64_t first = 0, last = srcCount - 1;
        if (!ClipSteps(first, last, srcStart, srcInc, 0, srcLimit, [](int64_t i) { return i; }))
            return map;
        if (!ClipSteps(first, last, dstStart, dstInc, 0, dstLimit, destinationSteps))
            return map;
        int64_t current = -1;
        for (int64_t i = first; i <= last; ++i) {
            int64_t d = destinationSteps(i);
            auto source = static_cast<int32_t>(srcStart + srcInc * i);
            if (d != current) {
                map.groups.push_back({ static_cast<int32_t>(dstStart + dstInc * d), source, source });
                current = d;
            } else {
                map.groups.back().srcLast = source;
            }
        }
    }
    return map;
}

// GDI's bounding rectangle of (x, width): a negative width covers x + width + 1 .. x.
struct Span {
    int64_t low, high; // [low, high)
    bool empty() const { return low >= high; }
};

Span Bounding(int64_t start, int64_t length)
{
    return length >= 0 ? Span { start, start + length } : Span { start + length + 1, start + 1 };
}

Span Intersect(Span a, Span b) { return Span { std::max(a.low, b.low), std::min(a.high, b.high) }; }

void NearestStretch(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight, int mode)
{
    AxisMap columns = MapAxis(x, width, target.width(), sourceX, sourceWidth, source.width());
    AxisMap rows = MapAxis(y, height, target.height(), sourceY, sourceHeight, source.height());
    if (columns.groups.empty() || rows.groups.empty())
        return;
    if (rows.grows && columns.grows)
        mode = kStretchDeleteScans;
    if (mode != kStretchAndScans && mode != kStretchOrScans)
        mode = kStretchDeleteScans;

    for (const AxisGroup& row : rows.groups) {
        Pixel* out = target.row(row.dst);
        if (mode == kStretchDeleteScans) {
            const Pixel* in = source.row(row.srcFirst);
            for (const AxisGroup& column : columns.groups)
                out[column.dst] = in[column.srcLast];
            continue;
        }
        for (const AxisGroup& column : columns.groups) {
            Pixel value = mode == kStretchAndScans ? ~Pixel { 0 } : 0;
            for (int32_t r = row.srcFirst;; r += rows.step) {
                const Pixel* in = source.row(r);
                for (int32_t c = column.srcFirst;; c += columns.step) {
                    value = mode == kStretchAndScans ? (value & in[c]) : (value | in[c]);
                    if (c == column.srcLast)
                        break;
                }
                if (r == row.srcLast)
                    break;
            }
            out[column.dst] = value; // the fourth bytes are combined like the colours
        }
    }
}

uint8_t LinearInterpolate(uint8_t start, uint8_t end, float delta)
{
    return static_cast<uint8_t>(static_cast<float>(start) + static_cast<float>(end - start) * delta + 0.5f);
}

float Clamp(float value, float low, float high) { return value < low ? low : (value > high ? high : value); }

// The halftone stretch between two already clipped rectangles.
//
// The source position steps by a single-precision increment from one destination pixel to the
// next, clamped to the source, on both axes. The column positions are the same on every row,
// so they are computed once; each source row is interpolated across once (the first of the two
// linear steps, which is per row) and reused while the destination rows still fall on it.
void Halftone(SoftBitmap& target, Span dstX, Span dstY, const SoftBitmap& source, Span srcX, Span srcY,
    bool mirroredX, bool mirroredY)
{
    auto srcWidth = static_cast<float>(srcX.high - srcX.low);
    auto srcHeight = static_cast<float>(srcY.high - srcY.low);
    auto dstWidth = static_cast<int32_t>(dstX.high - dstX.low);
    auto dstHeight = static_cast<int32_t>(dstY.high - dstY.low);
    auto startX = static_cast<int32_t>(mirroredX ? srcX.high - 1 : srcX.low);
    auto startY = static_cast<int32_t>(mirroredY ? srcY.high - 1 : srcY.low);
    float incX = mirroredX ? -srcWidth / static_cast<float>(dstWidth) : srcWidth / static_cast<float>(dstWidth);
    float incY = mirroredY ? -srcHeight / static_cast<float>(dstHeight) : srcHeight / static_cast<float>(dstHeight);
    auto left = static_cast<int32_t>(srcX.low), right = static_cast<int32_t>(srcX.high - 1);
    auto top = static_cast<int32_t>(srcY.low), bottom = static_cast<int32_t>(srcY.high - 1);

    struct Column {
        int32_t x0, x1;
        float dx;
    };
    std::vector<Column> columns(static_cast<size_t>(dstWidth));
    float floatX = static_cast<float>(startX);
    for (Column& column : columns) {
        floatX = Clamp(floatX, static_cast<float>(left), static_cast<float>(right));
        column.x0 = static_cast<int32_t>(floatX);
        column.x1 = std::clamp(column.x0 + 1, left, right);
        column.dx = floatX - static_cast<float>(column.x0);
        floatX += incX;
    }
    // A source row interpolated across: three channel bytes per destination column.
    auto across = [&](int32_t y, std::vector<uint8_t>& out) {
        const Pixel* row = source.row(y);
        out.resize(static_cast<size_t>(dstWidth) * 3);
        for (size_t i = 0; i < columns.size(); ++i) {
            Pixel a = row[columns[i].x0], b = row[columns[i].x1];
            for (int c = 0; c < 3; ++c)
                out[i * 3 + static_cast<size_t>(c)] = LinearInterpolate(static_cast<uint8_t>(a >> (8 * c)), static_cast<uint8_t>(b >> (8 * c)), columns[i].dx);
        }
    };
    std::vector<uint8_t> upper, lower;
    int32_t upperRow = -1, lowerRow = -1;

    float floatY = static_cast<float>(startY);
    for (int32_t j = 0; j < dstHeight; ++j) {
        floatY = Clamp(floatY, static_cast<float>(top), static_cast<float>(bottom));
        auto y0 = static_cast<int32_t>(floatY);
        int32_t y1 = std::clamp(y0 + 1, top, bottom);
        float dy = floatY - static_cast<float>(y0);
        if (upperRow != y0) {
            if (lowerRow == y0) {
                std::swap(upper, lower);
                std::swap(upperRow, lowerRow);
            } else {
                across(y0, upper);
                upperRow = y0;
            }
        }
        if (lowerRow != y1) {
            across(y1, lower);
            lowerRow = y1;
        }
        int64_t row = dstY.low + j;
        if (row >= 0 && row < target.height()) {
            Pixel* out = target.row(static_cast<int32_t>(row));
            int64_t first = std::max<int64_t>(0, -dstX.low), last = std::min<int64_t>(dstWidth, target.width() - dstX.low);
            for (int64_t i = first; i < last; ++i) {
                const uint8_t* a = &upper[static_cast<size_t>(i) * 3];
                const uint8_t* b = &lower[static_cast<size_t>(i) * 3];
                out[dstX.low + i] = Pixel { LinearInterpolate(a[0], b[0], dy) } | Pixel { LinearInterpolate(a[1], b[1], dy) } << 8
                    | Pixel { LinearInterpolate(a[2], b[2], dy) } << 16;
            }
        }
        floatY += incY;
    }
}

void HalftoneStretch(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
    int32_t originalSourceWidth, int32_t originalSourceHeight)
{
    // Visible rectangles: each clipped to its bitmap; the destination also to where the visible
    // source lands (one pixel of slack on each side).
    Span srcVisX = Intersect(Bounding(sourceX, originalSourceWidth), Span { 0, source.width() });
    Span srcVisY = Intersect(Bounding(sourceY, originalSourceHeight), Span { 0, source.height() });
    Span dstVisX = Intersect(Bounding(x, width), Span { 0, target.width() });
    Span dstVisY = Intersect(Bounding(y, height), Span { 0, target.height() });
    if (srcVisX.empty() || srcVisY.empty() || dstVisX.empty() || dstVisY.empty())
        return;
    auto mapped = [](Span visible, int64_t start, int64_t length, int64_t dstStart, int64_t dstLength) {
        int64_t low = visible.low - start - (length < 0 ? 1 : 0);
        int64_t high = visible.high - start - (length < 0 ? 1 : 0);
        low = low * dstLength / length;
        high = high * dstLength / length;
        if (low > high)
            std::swap(low, high);
        return Span { low - 1 + dstStart, high + 1 + dstStart };
    };
    dstVisX = Intersect(dstVisX, mapped(srcVisX, sourceX, originalSourceWidth, x, width));
    dstVisY = Intersect(dstVisY, mapped(srcVisY, sourceY, originalSourceHeight, y, height));
    if (dstVisX.empty() || dstVisY.empty())
        return;
    // And the visible destination maps back to the part of the source it shows (one pixel of
    // slack again): a destination cut by the target's edge interpolates over that part only.
    srcVisX = Intersect(srcVisX, mapped(dstVisX, x, width, sourceX, originalSourceWidth));
    srcVisY = Intersect(srcVisY, mapped(dstVisY, y, height, sourceY, originalSourceHeight));
    if (srcVisX.empty() || srcVisY.empty())
        return;
    // FIXME: a mirrored source that sticks out of its bitmap also shifts the destination in
    // GDI; that case is not reproduced.
    Span srcX = Intersect(Bounding(sourceX, sourceWidth), srcVisX);
    Span srcY = Intersect(Bounding(sourceY, sourceHeight), srcVisY);
    if (srcX.empty() || srcY.empty())
        return;
    Halftone(target, dstVisX, dstVisY, source, srcX, srcY, (width < 0) != (sourceWidth < 0), (height < 0) != (sourceHeight < 0));
}

} // namespace

void StretchRect(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight, int mode)
{
    if (width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0)
        return;
    if (width == sourceWidth && height == sourceHeight) {
        Span dx = Bounding(x, width), dy = Bounding(y, height);
        Span sx = Bounding(sourceX, sourceWidth), sy = Bounding(sourceY, sourceHeight);
        CopyRect(target, static_cast<int32_t>(dx.low), static_cast<int32_t>(dy.low), static_cast<int32_t>(dx.high - dx.low),
            static_cast<int32_t>(dy.high - dy.low), source, static_cast<int32_t>(sx.low), static_cast<int32_t>(sy.low));
        return;
    }
    // Stretching reads the whole source before writing, so a context may stretch onto itself.
    SoftBitmap copy(0, 0);
    const SoftBitmap* from = &source;
    if (&source == &target) {
        copy = source;
        from = &copy;
    }
    // A one-pixel-wide destination samples one source pixel less (as the GDI under test does).
    int32_t originalSourceWidth = sourceWidth, originalSourceHeight = sourceHeight;
    if (width == 1 && sourceWidth > 1)
        --sourceWidth;
    if (height == 1 && sourceHeight > 1)
        --sourceHeight;
    if (mode == kStretchHalftoneMode)
        HalftoneStretch(target, x, y, width, height, *from, sourceX, sourceY, sourceWidth, sourceHeight,
            originalSourceWidth, originalSourceHeight);
    else
        NearestStretch(target, x, y, width, height, *from, sourceX, sourceY, sourceWidth, sourceHeight, mode);
}

void TransparentRect(SoftBitmap& target, int32_t x, int32_t y, int32_t width, int32_t height,
    const SoftBitmap& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight, Pixel key)
{
    if (width <= 0 || height <= 0 || sourceWidth <= 0 || sourceHeight <= 0)
        return;
    // Only the part of the work bitmap that lands on the target matters: the stretch is made
    // into a work bitmap of that size, shifted so that its pixels are the same.
    int64_t left = std::max<int64_t>(0, x), right = std::min<int64_t>(target.width(), int64_t { x } + width);
    int64_t top = std::max<int64_t>(0, y), bottom = std::min<int64_t>(target.height(), int64_t { y } + height);
    if (left >= right || top >= bottom)
        return;
    SoftBitmap work(static_cast<int32_t>(right - left), static_cast<int32_t>(bottom - top));
    StretchRect(work, static_cast<int32_t>(x - left), static_cast<int32_t>(y - top), width, height, source, sourceX, sourceY,
        sourceWidth, sourceHeight, kStretchAndScans);
    for (int64_t ty = top; ty < bottom; ++ty) {
        const Pixel* in = work.row(static_cast<int32_t>(ty - top));
        Pixel* out = target.row(static_cast<int32_t>(ty));
        // Whole pixels are compared, so a key colour with a non-zero fourth byte is drawn; the
        // masking that composes the result leaves 0 in the fourth byte of every pixel of the
        // rectangle, drawn or seen through.
        for (int64_t tx = left; tx < right; ++tx) {
            Pixel p = in[tx - left];
            out[tx] = (p != key ? p : out[tx]) & 0x00FFFFFFu;
        }
    }
}

} // namespace vex::platform::soft
