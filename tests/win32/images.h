#pragma once
// PNG files of battery results, for looking at a difference (native side only).

#include <string>

#include "platform/dib.h"

namespace vex::drawtest {

// `scale` > 1 draws each pixel as a scale x scale square, to look at single pixels.
bool WritePng(const std::string& path, const platform::Dib& pixels, int scale = 1);

// An image the size of both inputs (the larger of each dimension): pixels that agree are shown
// dimmed in grey, pixels that differ in red, and pixels present in only one image in blue.
platform::Dib DiffImage(const platform::Dib& a, const platform::Dib& b);

} // namespace vex::drawtest
