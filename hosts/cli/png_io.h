#pragma once
// PNG files for the command line: pictures in through the panel's own LoadPNG, surfaces out
// through libpng.

#include <string>

#include "platform/dib.h"
#include "platform/picture.h"

namespace vex::cli {

// Writes a 32-bit top-down DIB as an 8-bit RGB PNG; false (and a message on standard error)
// when the file cannot be written.
bool WritePng(const std::string& path, const platform::Dib& pixels);

// A PNG file as a bitmap picture through LoadPNG, alpha and transparency composed onto
// `background`; nullptr (and a message) when the file cannot be decoded.
platform::PictureRef ReadPngPicture(const std::string& path, ColorRef background = Rgb(255, 255, 255));

} // namespace vex::cli
