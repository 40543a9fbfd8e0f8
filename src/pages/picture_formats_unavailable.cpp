// GIF and JPEG where this build has no decoder for them (the Windows cross build).
#include "picture_formats.h"

namespace vex::pages::formats {

platform::Dib ReadGif(std::span<const uint8_t>) { BadPicture("GIF", "not supported by this build"); }
platform::Dib ReadJpeg(std::span<const uint8_t>) { BadPicture("JPEG", "not supported by this build"); }

} // namespace vex::pages::formats
