#pragma once
// Image files for tools and tests: a DIB written as PNG (libpng), and PNG or BMP files read
// back as 32-bit top-down DIBs (a backdrop for a tool, an expected image for a test). Native
// builds only: the Windows cross build has no libpng. LoadPNG (src/png) does not use these.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/dib.h"

namespace vex::platform {

// The DIB as an 8-bit RGB PNG (palettes resolved, alpha bytes ignored).
std::vector<uint8_t> EncodePng(const Dib& dib);
// Writes EncodePng's bytes; false (and a message in *error) when the file cannot be written.
bool WritePng(const std::string& path, const Dib& dib, std::string* error = nullptr);

// A PNG (any kind libpng reads; alpha composed onto black) or an uncompressed BMP (1, 4, 8,
// 24 or 32 bits) as a 32-bit top-down DIB with alpha 0. nullopt and a message on failure.
std::optional<Dib> ReadImage(const std::string& path, std::string* error = nullptr);

} // namespace vex::platform
