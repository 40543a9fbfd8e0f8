#pragma once
// The colour routines every painter shares: OLE colour translation, the channel shift of the
// shaded backgrounds, the blend toward white, and the working colour table of a paint.

#include <array>
#include <cstdint>

#include "base/ole_color.h"
#include "platform/device_context.h"

namespace vex::render {

// An OLE colour as plain 0x00BBGGRR: system colours come from the device's system colour
// table; 0x00BBGGRR, 0x01000000 | index and 0x02BBGGRR keep their low 24 bits. Anything else is
// not a colour and translates to black, as a failed translation leaves the output at 0.
ColorRef TranslateColor(OleColor color, const platform::DeviceContext& dc);

// Shifts red and green by amount, and blue by amount (plain) or by blue * amount \ 192
// (proportional). Channels are capped at 255 for a positive amount and floored at 0 for a
// negative one; an amount of 0 returns the colour unchanged.
ColorRef ShiftColour(ColorRef color, int32_t amount, bool proportional);

// Each channel v becomes v * (255 - amount) \ 255 + amount, capped at 255.
ColorRef BlendTowardWhite(ColorRef color, int32_t amount);

// The working colour table of a paint, filled from the device's system colours.
struct WorkingColours;
WorkingColours PrepareSysColors(const platform::DeviceContext& dc);

} // namespace vex::render
