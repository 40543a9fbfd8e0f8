#pragma once
// Image files for the command line: pictures in through the panel's own LoadPNG, a backdrop in
// as PNG or BMP, surfaces out as PNG.

#include <string>

#include "platform/dib.h"
#include "platform/picture.h"

namespace vex::cli {

// Each raises a CommandError naming the file and the reason when it cannot do its work.

// Writes a surface as a PNG (true).
bool WritePng(const std::string& path, const platform::Dib& pixels);

// A PNG file as a bitmap picture through LoadPNG, alpha and transparency composed onto
// `background`.
platform::PictureRef ReadPngPicture(const std::string& path, ColorRef background = Rgb(255, 255, 255));

// A PNG or BMP file as a bitmap picture (the form behind a transparent panel).
platform::PictureRef ReadImagePicture(const std::string& path);

} // namespace vex::cli
