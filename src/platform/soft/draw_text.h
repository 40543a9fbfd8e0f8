#pragma once
// DrawText on a software bitmap: user32's layout rules with glyphs from FreeType.

#include <cstdint>
#include <string_view>

#include "base/ole_color.h"
#include "platform/font.h"
#include "platform/geometry.h"
#include "platform/soft/soft_bitmap.h"

namespace vex::platform::soft {

// FIXME: false until DrawText draws; the GDI comparison skips its text cases meanwhile.
inline constexpr bool kSoftTextReady = false;

struct TextStyle {
    FontDesc font;
    ColorRef textColor = 0;
    ColorRef backgroundColor = 0x00FFFFFF;
    bool opaque = true; // OPAQUE background mode fills each line's cell with the background colour
};

// DrawTextA with the dt:: flags; returns the text height as DrawText does.
int32_t DrawTextOn(SoftBitmap& target, std::string_view text, Rect& rect, uint32_t format, const TextStyle& style);

} // namespace vex::platform::soft
