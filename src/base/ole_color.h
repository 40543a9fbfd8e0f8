#pragma once
// OLE colours: a 32-bit value. With the high bit set it names a system colour (the low byte is
// the system colour index, e.g. 0x8000000F button face); otherwise it is 0x00BBGGRR.

#include <cstdint>

namespace vex {

using OleColor = uint32_t; // as stored in properties; may name a system colour
using ColorRef = uint32_t; // a plain 0x00BBGGRR colour, ready for drawing

constexpr bool IsSystemColor(OleColor color) { return (color & 0x80000000u) != 0; }
constexpr int SystemColorIndex(OleColor color) { return static_cast<int>(color & 0xFFu); }
constexpr OleColor SystemColor(int index) { return 0x80000000u | static_cast<uint32_t>(index & 0xFF); }

constexpr ColorRef Rgb(uint32_t red, uint32_t green, uint32_t blue)
{
    return (red & 0xFFu) | ((green & 0xFFu) << 8) | ((blue & 0xFFu) << 16);
}
constexpr uint32_t RedOf(ColorRef color) { return color & 0xFFu; }
constexpr uint32_t GreenOf(ColorRef color) { return (color >> 8) & 0xFFu; }
constexpr uint32_t BlueOf(ColorRef color) { return (color >> 16) & 0xFFu; }

// The host's system colour indices (GetSysColor numbering) that the panel uses.
namespace syscolor {
inline constexpr int Highlight = 13;
inline constexpr int ButtonFace = 15;
inline constexpr int ButtonShadow = 16;
inline constexpr int ButtonText = 18;
inline constexpr int ButtonHighlight = 20;
inline constexpr int DarkShadow3D = 21;
inline constexpr int Light3D = 22;
} // namespace syscolor

} // namespace vex
