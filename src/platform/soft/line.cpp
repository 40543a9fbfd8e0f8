// Cosmetic lines as GDI draws them.
//
// Axis-parallel lines are spans. Other lines use Bresenham's algorithm with GDI's tie-breaking:
// for the major axis step i (0 = start point), the minor axis has moved
//     n(i) = ceil((2 * i * dMinor + bias - dMajor) / (2 * dMajor))
// steps, where bias is 1 for the octants that round ties the other way (going left and up when
// x-major, or going left when y-major: octants 3, 5, 6 and 8 counted clockwise from +x with y
// pointing down) and 0 otherwise. The incremental loop below keeps the usual error term
//     err(i) = 2 dMinor - dMajor + 2 i dMinor - 2 n(i) dMajor
// and steps the minor axis when err + bias > 0. The closed form lets a clipped line start in
// the middle without walking the invisible part.

#include <algorithm>
#include <cstdlib>

#include "platform/soft/bresenham.h"
#include "platform/soft/raster.h"

namespace vex::platform::soft {
namespace {

struct LineWalk {
    int64_t major0, minor0;     // start point, in (major, minor) axes
    int64_t majorInc, minorInc; // +1 or -1
    int64_t dMajor, dMinor;     // absolute extents, dMajor > 0
    int bias;
    int64_t length; // pixels painted: dMajor (the end point is not)

    int64_t MinorSteps(int64_t i) const { return LineMinorSteps(i, dMajor, dMinor, bias); }
};

void DrawSlantedLine(SoftBitmap& target, Point from, Point to, Pixel pixel)
{
    int64_t dx = int64_t { to.x } - from.x;
    int64_t dy = int64_t { to.y } - from.y;
    bool xMajor = std::llabs(dx) > std::llabs(dy);
    // Octants 3, 5, 6 and 8 (clockwise from +x, y down) take the bias: x-major lines going up
    // (octants 5 and 8) and y-major lines going left (octants 3 and 6).
    bool biased = xMajor ? dy < 0 : dx < 0;

    LineWalk walk {};
    walk.major0 = xMajor ? from.x : from.y;
    walk.minor0 = xMajor ? from.y : from.x;
    int64_t dMajorSigned = xMajor ? dx : dy;
    int64_t dMinorSigned = xMajor ? dy : dx;
    walk.majorInc = dMajorSigned > 0 ? 1 : -1;
    walk.minorInc = dMinorSigned > 0 ? 1 : -1;
    walk.dMajor = std::llabs(dMajorSigned);
    walk.dMinor = std::llabs(dMinorSigned);
    walk.bias = biased ? 1 : 0;
    walk.length = walk.dMajor;

    int64_t majorSize = xMajor ? target.width() : target.height();
    int64_t minorSize = xMajor ? target.height() : target.width();
    int64_t first = 0, last = walk.length - 1;
    if (!ClipSteps(first, last, walk.major0, walk.majorInc, 0, majorSize, [](int64_t i) { return i; }))
        return;
    if (!ClipSteps(first, last, walk.minor0, walk.minorInc, 0, minorSize, [&](int64_t i) { return walk.MinorSteps(i); }))
        return;

    int64_t n = walk.MinorSteps(first);
    // The terms are huge for a far-away start, their sum is within a few dMajor.
    auto err = static_cast<int64_t>(Wide { 2 } * walk.dMinor - walk.dMajor + Wide { 2 } * first * walk.dMinor - Wide { 2 } * n * walk.dMajor);
    int64_t major = walk.major0 + walk.majorInc * first;
    int64_t minor = walk.minor0 + walk.minorInc * n;
    int64_t errStep = 2 * walk.dMinor - 2 * walk.dMajor;
    int64_t errFlat = 2 * walk.dMinor;
    for (int64_t i = first; i <= last; ++i) {
        if (xMajor)
            target.row(static_cast<int32_t>(minor))[major] = pixel;
        else
            target.row(static_cast<int32_t>(major))[minor] = pixel;
        if (err + walk.bias > 0) {
            minor += walk.minorInc;
            err += errStep;
        } else {
            err += errFlat;
        }
        major += walk.majorInc;
    }
}

} // namespace

void DrawLine(SoftBitmap& target, Point from, Point to, Pixel pixel)
{
    if (from.y == to.y) {
        // From x0 toward x1, x1 excluded: [x0, x1) going right, (x1, x0] going left.
        int64_t left = from.x < to.x ? from.x : int64_t { to.x } + 1;
        int64_t right = from.x < to.x ? to.x : int64_t { from.x } + 1;
        FillSpanRect(target, left, from.y, right, int64_t { from.y } + 1, pixel);
        return;
    }
    if (from.x == to.x) {
        int64_t top = from.y < to.y ? from.y : int64_t { to.y } + 1;
        int64_t bottom = from.y < to.y ? to.y : int64_t { from.y } + 1;
        FillSpanRect(target, from.x, top, int64_t { from.x } + 1, bottom, pixel);
        return;
    }
    DrawSlantedLine(target, from, to, pixel);
}

} // namespace vex::platform::soft
