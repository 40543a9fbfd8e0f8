#pragma once
// Picture import: a picture file or its bytes in memory as a picture object for Picture,
// PictureBackground or MouseIcon. The format is recognised by its first bytes, not its name:
//   PNG       through LoadPNG, with its settings (transparency, alpha composed onto the file's
//             background colour or onto one of our choice)
//   BMP/DIB   uncompressed 1, 4, 8, 16, 24 and 32 bits per pixel (bit fields too), kept at their
//             depth with their palette where a DIB can hold it
//   ICO, CUR  the largest, deepest image of the file, as an icon picture (colour + AND mask)
//   GIF       the first image on its canvas, as an 8-bit bitmap with the file's colours
//   JPEG      baseline and progressive, grey, colour and CMYK, as a 32-bit bitmap
// A damaged or unknown file raises Invalid picture (481) with what is wrong in the description,
// and nothing is produced; a file that cannot be read raises the host's file errors (53, 75...).

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/ole_color.h"
#include "platform/device_context.h"
#include "platform/picture.h"

namespace vex::pages {

enum class PictureFormat { Unknown, Png, Bmp, Icon, Cursor, Gif, Jpeg };

std::string_view FormatName(PictureFormat format); // "PNG", "BMP", ...
PictureFormat DetectFormat(std::span<const uint8_t> bytes);

// How a PNG is turned into a bitmap (LoadPNG's output settings).
struct PngSettings {
    bool transparency = false;  // SetTrans
    bool alpha = false;         // SetAlpha
    bool ownBackground = false; // compose onto background instead of the file's bKGD colour
    OleColor background = 0;    // a plain 0x00BBGGRR colour
};

// Larger pictures are refused before anything is allocated for them.
inline constexpr int64_t kMaxImportPixels = int64_t { 1 } << 26;

platform::PictureRef LoadPictureFromMemory(std::span<const uint8_t> bytes, const PngSettings& png = {});
platform::PictureRef LoadPictureFile(const std::string& path, const PngSettings& png = {});

// An icon drawn onto a bitmap of its size filled with background, as DrawIconEx draws it on
// the platform of reference (a device context of the surface the picture is meant for).
// A bitmap picture comes back as it is.
platform::PictureRef IconToBitmap(const platform::PictureRef& picture, ColorRef background,
    platform::DeviceContext& reference);

// The file-open dialog's filters: a label and the patterns it shows, "All pictures" first.
struct PictureFilter {
    std::string_view label;
    std::string_view patterns; // "*.png;*.bmp"
};
std::span<const PictureFilter> PictureFilters();

} // namespace vex::pages
