#pragma once
// What the ancillary chunks contribute: the bKGD colour, the tIME text and the layout of the
// tEXt/zTXt strings. Byte vectors are chunk payloads exactly as read.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/ole_color.h"
#include "png/png_header.h"

namespace vex::png {

// Byte i of a payload, 0 past its end. The fixed-layout chunks (IHDR, gAMA, tIME) are read
// through this, so a short chunk reads as if padded with zeros.
inline uint8_t ByteAt(const std::vector<uint8_t>& bytes, size_t index)
{
    return index < bytes.size() ? bytes[index] : 0;
}

// The background colour a bKGD payload gives under the IHDR read before it, or nothing for the
// colour types that assign no colour (1, 5 and above). A payload of the wrong length gives 0.
//   grey (0, 4): 2 bytes, the ramp entry of the grey value (0 when past the ramp)
//   RGB (2, 6):  6 bytes, each 16-bit channel scaled to 0..255, rounded half to even
//   palette (3): 1 byte, the palette entry; indices past (palette bytes - 2) give 0. The bound
//                is on bytes, not entries, so an index just past the last entry reads past the
//                palette and raises Subscript out of range (9).
// Depth 0 divides by zero (2^0 - 1) and raises the host's division error, as the formula does.
std::optional<ColorRef> BackgroundColorFromChunk(const PngHeader& header, const std::vector<uint8_t>& payload,
                                                 const std::vector<uint8_t>& palette);

// The grey ramp of a depth: 2^depth entries of i * step, step = 255 / (2^depth - 1) rounded
// half to even (255, 85, 17, 1); depth 16 uses the 256-entry ramp of step 1.
uint8_t GreyRampStep(int depth);

// tIME as "dd.mm.yyyy hh:mm:ss", the year unpadded: 2004-07-09 08:05:03 -> 09.07.2004 08:05:03.
std::string ModificationTimeText(const std::vector<uint8_t>& payload);

// A tEXt payload appended to the accumulated text: the bytes as they stand, then one NUL.
void AppendText(std::string& text, const std::vector<uint8_t>& payload);

// Splits a zTXt payload: appends the keyword and a NUL to `text` and returns the compressed
// stream (5 bytes past the keyword: its NUL, the method byte and the 2-byte zlib header), a view
// into the payload, and the output capacity to give the inflate (12 times the payload's last
// index).
struct CompressedTextStream {
    std::span<const uint8_t> stream;
    int32_t capacity = 0;
};
CompressedTextStream SplitCompressedText(std::string& text, const std::vector<uint8_t>& payload);

} // namespace vex::png
