#pragma once
// Alpha composition of a pixel onto a background, channel by channel:
//   alpha 255: the source; alpha 0: the background;
//   otherwise (s * a + b * (255 - a) + 255) / 256, integer division.
// The +255 and the division by 256 (not 255) are the decoder's own rounding and are kept.

#include <cstddef>
#include <cstdint>

namespace vex::png {

constexpr uint8_t ComposeChannel(uint8_t source, uint8_t background, uint8_t alpha)
{
    if (alpha == 255)
        return source;
    if (alpha == 0)
        return background;
    return static_cast<uint8_t>((unsigned{source} * alpha + unsigned{background} * (255u - alpha) + 255u) >> 8);
}

// Composes `width` B, G, R, A pixels onto `background` (B, G, R) and writes B, G, R to `out`.
void ComposeRow(const uint8_t* bgra, const uint8_t* background, uint8_t* out, size_t width);

} // namespace vex::png
