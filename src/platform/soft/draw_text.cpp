#include "platform/soft/draw_text.h"

namespace vex::platform::soft {

// FIXME: text is not drawn yet; the layout and FreeType glyphs come next.
int32_t DrawTextOn(SoftBitmap&, std::string_view, Rect&, uint32_t, const TextStyle&)
{
    return 0;
}

} // namespace vex::platform::soft
