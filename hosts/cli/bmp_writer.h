#pragma once
// Writes a device-independent bitmap to a .bmp file exactly as it is built: its bit count, its
// palette (as many entries as it has, "colours used"), its rows in their stored order (a
// negative height for top-row-first bitmaps) and stride, and 32-bit alpha bytes as they stand.

#include <string>

#include "platform/dib.h"

namespace vex::cli {

// False when the file cannot be written.
bool WriteBmpFile(const std::string& path, const platform::Dib& dib);

} // namespace vex::cli
