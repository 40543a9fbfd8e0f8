#pragma once
// Closed forms of the two Bresenham walks the layer uses, so that a clipped walk can start in the
// middle. Both count how many minor-axis steps have been taken before major step k.

#include <cstdint>

namespace vex::platform::soft {

using Wide = __int128;

inline int64_t CeilDiv(Wide numerator, Wide denominator) // denominator > 0
{
    Wide quotient = numerator / denominator;
    if (numerator % denominator != 0 && numerator > 0)
        ++quotient;
    return static_cast<int64_t>(quotient);
}

// A line: error 2m - M at k = 0, step when err + bias > 0.
inline int64_t LineMinorSteps(int64_t k, int64_t dMajor, int64_t dMinor, int bias)
{
    return CeilDiv(Wide { 2 } * k * dMinor + bias - dMajor, Wide { 2 } * dMajor);
}

// A one-dimensional stretch or shrink: error 3m - 2M at k = 0, step when err > 0. This is the
// line walk with bias m - M, i.e. sampling at pixel centres with ties going to the lower pixel:
//     n(k) = ceil((2k + 1) m / 2M) - 1
inline int64_t ScaleMinorSteps(int64_t k, int64_t dMajor, int64_t dMinor)
{
    return CeilDiv(Wide { 2 * k + 1 } * dMinor, Wide { 2 } * dMajor) - 1;
}

// The step range [first, last] (narrowed in place) whose coordinate start + inc * f(k) lies in
// [low, high), for a non-decreasing step function f. Returns false when it is empty.
template <typename StepFunction>
bool ClipSteps(int64_t& first, int64_t& last, int64_t start, int64_t inc, int64_t low, int64_t high, StepFunction f)
{
    if (first > last)
        return false;
    auto inside = [&](int64_t k) {
        int64_t v = start + inc * f(k);
        return v >= low && v < high;
    };
    auto before = [&](int64_t k) {
        int64_t v = start + inc * f(k);
        return inc > 0 ? v < low : v >= high;
    };
    int64_t lo = first, hi = last + 1;
    while (lo < hi) {
        int64_t mid = lo + (hi - lo) / 2;
        if (before(mid))
            lo = mid + 1;
        else
            hi = mid;
    }
    if (lo > last || !inside(lo))
        return false;
    int64_t newFirst = lo;
    lo = newFirst;
    hi = last;
    while (lo < hi) {
        int64_t mid = lo + (hi - lo + 1) / 2;
        if (inside(mid))
            lo = mid;
        else
            hi = mid - 1;
    }
    first = newFirst;
    last = lo;
    return true;
}

} // namespace vex::platform::soft
