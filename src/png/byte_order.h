#pragma once
// PNG stores every multi-byte number big-endian. These two turn a 4-byte and a 2-byte value
// round into host order; the 4-byte one gives a signed 32-bit value as the file declares it
// (a length with the top bit set reads as negative, which the chunk reader relies on).

#include <cstdint>

namespace vex::png {

inline int32_t ReverseLong(const uint8_t* bytes)
{
    uint32_t value = (uint32_t{bytes[0]} << 24) | (uint32_t{bytes[1]} << 16) | (uint32_t{bytes[2]} << 8) | bytes[3];
    return static_cast<int32_t>(value);
}

inline int32_t ReverseInt(const uint8_t* bytes)
{
    return static_cast<int32_t>((uint32_t{bytes[0]} << 8) | bytes[1]);
}

} // namespace vex::png
