#pragma once
// The drawing layer: exactly the GDI operations the painters and the picture output use, behind
// one interface with two implementations that give the same pixels (platform/soft in memory,
// platform/win32 over real GDI) and a recording decorator for tests.
//
// GDI's pixel rules hold in every implementation:
//  - LineTo paints from the current position up to, but not including, its end point;
//  - Rectangle outlines with the pen and fills the inside with the brush (a hollow brush fills
//    nothing); right and bottom are exclusive;
//  - FrameRect paints a one-pixel frame just inside its rectangle;
//  - FillRect fills left..right-1, top..bottom-1.
// Pens and brushes are values here: selecting one is cheap and creates no object, so a painter
// may "create, select, use, deselect, delete" a pen per line at no cost.

#include <cstdint>
#include <memory>
#include <string_view>

#include "base/ole_color.h"
#include "platform/dib.h"
#include "platform/font.h"
#include "platform/geometry.h"
#include "platform/picture.h"

namespace vex::platform {

// A solid pen of width 1 (PS_SOLID), or the null pen (PS_NULL) that draws nothing.
struct Pen {
    bool null = false;
    ColorRef color = 0;
    static Pen Solid(ColorRef color) { return Pen { false, color }; }
    static Pen Null() { return Pen { true, 0 }; }
    friend bool operator==(const Pen&, const Pen&) = default;
};

// A solid brush, or the hollow brush (NULL_BRUSH / BS_HOLLOW).
struct Brush {
    bool hollow = false;
    ColorRef color = 0;
    static Brush Solid(ColorRef color) { return Brush { false, color }; }
    static Brush Hollow() { return Brush { true, 0 }; }
    friend bool operator==(const Brush&, const Brush&) = default;
};

// DrawText format bits (the subset the caption renderer uses).
namespace dt {
inline constexpr uint32_t Left = 0x0;
inline constexpr uint32_t Center = 0x1;
inline constexpr uint32_t Right = 0x2;
inline constexpr uint32_t Top = 0x0;
inline constexpr uint32_t VCenter = 0x4;
inline constexpr uint32_t Bottom = 0x8;
inline constexpr uint32_t WordBreak = 0x10;
inline constexpr uint32_t SingleLine = 0x20;
inline constexpr uint32_t CalcRect = 0x400;
} // namespace dt

inline constexpr int kBkTransparent = 1; // SetBkMode
inline constexpr int kBkOpaque = 2;
inline constexpr int kStretchHalftone = 4; // SetStretchBltMode (HALFTONE)
inline constexpr int kStretchColorOnColor = 3;
inline constexpr uint32_t kDrawIconNormal = 3; // DrawIconEx DI_NORMAL

// A device-dependent ("compatible") bitmap of the implementation: 32 bits per pixel.
class Bitmap {
public:
    virtual ~Bitmap() = default;
    virtual Size size() const = 0;
};
using BitmapRef = std::shared_ptr<Bitmap>;

class DeviceContext {
public:
    virtual ~DeviceContext() = default;

    // ---- Objects ---------------------------------------------------------------------------
    virtual std::unique_ptr<DeviceContext> CreateCompatibleDC() = 0;
    virtual BitmapRef CreateCompatibleBitmap(int32_t width, int32_t height) = 0;
    // CreateDIBitmap with CBM_INIT: a compatible bitmap holding the DIB's pixels.
    virtual BitmapRef CreateBitmapFromDib(const Dib& dib) = 0;
    // The bitmap for a bitmap picture (implementations may cache it with the picture).
    virtual BitmapRef BitmapOf(const Picture& picture) = 0;
    // Memory contexts only: selects a bitmap and returns the one it displaced (the initial
    // 1x1 monochrome stock bitmap is represented by an empty reference).
    virtual BitmapRef SelectBitmap(BitmapRef bitmap) = 0;
    // The drawable size: the selected bitmap's, or the window's client size.
    virtual Size Extent() const = 0;

    // ---- State ---------------------------------------------------------------------------------
    virtual Pen SelectPen(Pen pen) = 0;         // returns the previous pen
    virtual Brush SelectBrush(Brush brush) = 0; // returns the previous brush
    virtual FontDesc SelectFont(const FontDesc& font) = 0; // returns the previous font
    virtual ColorRef SetTextColor(ColorRef color) = 0;     // returns the previous colour
    virtual int SetBkMode(int mode) = 0;
    virtual int SetStretchBltMode(int mode) = 0;
    virtual ColorRef GetSysColor(int index) const = 0; // the platform's system colour table
    // OleTranslateColor with no palette: false for a value that names no colour. Windows asks
    // the platform; elsewhere the rule measured there: a system colour (high byte 0x80) is
    // looked up by its low byte alone, up to index 30; a value with high byte 0, 1 (palette
    // index) or 2 (palette-relative) comes back as it is, for the drawing calls to resolve.
    virtual bool OleTranslateColor(OleColor color, ColorRef& out) const
    {
        switch (color >> 24) {
        case 0x80:
            if ((color & 0xFFu) > 30)
                return false;
            out = GetSysColor(static_cast<int>(color & 0xFFu));
            return true;
        case 0x00:
        case 0x01:
        case 0x02:
            out = color;
            return true;
        default:
            return false;
        }
    }

    // ---- Drawing ---------------------------------------------------------------------------------
    virtual Point MoveToEx(int32_t x, int32_t y) = 0; // returns the previous position
    virtual void LineTo(int32_t x, int32_t y) = 0;
    virtual void Rectangle(int32_t left, int32_t top, int32_t right, int32_t bottom) = 0;
    virtual void FrameRect(const Rect& rect, Brush brush) = 0;
    virtual void FillRect(const Rect& rect, Brush brush) = 0;
    virtual ColorRef GetPixel(int32_t x, int32_t y) const = 0; // CLR_INVALID (0xFFFFFFFF) outside

    // ---- Blits (source copy) -----------------------------------------------------------------
    virtual void BitBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY) = 0;
    virtual void StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight) = 0;
    virtual void TransparentBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
        uint32_t transparentColor) = 0;
    virtual void DrawIconEx(int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height, uint32_t flags) = 0;

    // ---- Text -------------------------------------------------------------------------------------
    // DrawTextA: text is UTF-8 here; it is drawn as the system code page (Windows-1252) would
    // show it. With dt::CalcRect nothing is drawn and rect is set to the text's extent.
    // Returns the height of the text, as DrawText does.
    virtual int32_t DrawText(std::string_view text, Rect& rect, uint32_t format) = 0;

    // ---- Reading back ------------------------------------------------------------------------------
    // The drawable's pixels as a 32-bit top-down DIB (alpha bytes 0).
    virtual Dib Snapshot() const = 0;
};

} // namespace vex::platform
