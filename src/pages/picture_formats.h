#pragma once
// The readers behind picture_import.h, one file each. Each takes the whole file in memory and
// raises Invalid picture (481) through BadPicture for anything damaged or unsupported.

#include <cstdint>
#include <span>
#include <string>

#include "platform/picture.h"

namespace vex::pages::formats {

[[noreturn]] void BadPicture(const std::string& format, const std::string& what);
// Refuses sizes that are not positive or hold more than kMaxImportPixels.
void CheckSize(const std::string& format, int64_t width, int64_t height);

// Little-endian fields, read only after the caller checked that they lie inside the bytes.
inline uint16_t Little16(const uint8_t* p) { return static_cast<uint16_t>(p[0] | (p[1] << 8)); }
inline uint32_t Little32(const uint8_t* p)
{
    return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t { p[3] } << 24);
}

// A DIB as it is stored after a BITMAPINFOHEADER (or a later version) at the start of bytes:
// palette, then pixels at pixelsAt (counted from the start of bytes; 0 = right after the palette).
// rows overrides the header's height (an icon's header counts its mask's rows too).
platform::Dib ReadDib(std::span<const uint8_t> bytes, size_t pixelsAt, const std::string& format, int32_t rows = 0);

platform::Dib ReadBmp(std::span<const uint8_t> bytes);
platform::PictureRef ReadIconFile(std::span<const uint8_t> bytes);
platform::Dib ReadGif(std::span<const uint8_t> bytes);
platform::Dib ReadJpeg(std::span<const uint8_t> bytes);

} // namespace vex::pages::formats
