#pragma once
// GDI's geometry: a RECT with exclusive right and bottom edges, points and sizes in pixels.

#include <cstdint>

namespace vex::platform {

struct Point {
    int32_t x = 0;
    int32_t y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int32_t width = 0;
    int32_t height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

// left/top inclusive, right/bottom exclusive, as a Windows RECT. Nothing normalises it: an
// inverted rectangle stays inverted and each operation treats it as GDI does.
struct Rect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;

    int32_t width() const { return right - left; }
    int32_t height() const { return bottom - top; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace vex::platform
