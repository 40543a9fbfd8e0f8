#pragma once
// DrawText on a software bitmap: user32's layout rules with glyphs from FreeType.
//
// Layout, line by line, as user32 does it: '&' marks the next character as the access key
// (underlined; "&&" is a literal '&'); CR, LF, CR LF and LF CR end a line unless the text is a
// single line; with word breaking a line that does not fit breaks at the last break
// opportunity that fits (a word longer than the width is kept whole and clipped); left-aligned
// lines keep the spaces that fit before the break, centred and right-aligned ones drop the
// last of them. A single line is placed vertically by the rectangle; lines after the one that
// reaches past the bottom are not drawn. Without dt::CalcRect the text is clipped to the
// rectangle. The returned height is the distance from the top to below the last line (at
// least 1); an empty text returns 0 and leaves the rectangle alone.

#include <cstdint>
#include <string_view>

#include "base/ole_color.h"
#include "platform/font.h"
#include "platform/geometry.h"
#include "platform/soft/soft_bitmap.h"

namespace vex::platform::soft {

struct TextStyle {
    FontDesc font;
    ColorRef textColor = 0;
    ColorRef backgroundColor = 0x00FFFFFF;
    bool opaque = true; // OPAQUE background mode fills each line's cell with the background colour
};

// DrawTextA with the dt:: flags; returns the text height as DrawText does. The access-key
// underscore is a MoveToEx/LineTo on the context, so drawing one leaves `position` at its end.
int32_t DrawTextOn(SoftBitmap& target, std::string_view text, Rect& rect, uint32_t format, const TextStyle& style,
    Point& position);

} // namespace vex::platform::soft
