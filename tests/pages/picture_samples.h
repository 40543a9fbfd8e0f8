#pragma once
// Small picture files for the import tests, built from a grid of colours: BMP and ICO laid out
// byte by byte as their headers describe them, GIF and JPEG written by giflib and libjpeg, PNG
// by libpng. Each pixel (x, y) of a sample is Colour(x, y).

#include <cstdint>
#include <vector>

#include "base/ole_color.h"

namespace vex::pages::testing {

inline ColorRef Colour(int x, int y) { return Rgb(40u * x, 200 - 50u * y, (x + y) % 2 ? 255 : 0); }

// A 24-bit BMP (bottom-up), or with palette = true a 4-bit one (top-down) whose palette holds the
// grid's colours.
std::vector<uint8_t> SampleBmp(int width, int height, bool palette);
// An icon of one 4-bit image; its mask is 1 (clear) on the diagonal x == y. cursor: a CUR file.
std::vector<uint8_t> SampleIcon(int width, int height, bool cursor);
std::vector<uint8_t> SampleGif(int width, int height, bool interlaced);
std::vector<uint8_t> SampleJpeg(int width, int height);
std::vector<uint8_t> SamplePng(int width, int height);

} // namespace vex::pages::testing
