#include "png/compose.h"

namespace vex::png {

void ComposeRow(const uint8_t* bgra, const uint8_t* background, uint8_t* out, size_t width)
{
    for (size_t x = 0; x < width; ++x) {
        uint8_t alpha = bgra[3];
        out[0] = ComposeChannel(bgra[0], background[0], alpha);
        out[1] = ComposeChannel(bgra[1], background[1], alpha);
        out[2] = ComposeChannel(bgra[2], background[2], alpha);
        bgra += 4;
        background += 3;
        out += 3;
    }
}

} // namespace vex::png
