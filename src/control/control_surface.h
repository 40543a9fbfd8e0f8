#pragma once
// The panel's own window and device context, as the host provides them: client size, hDC,
// back and fore colours, font, mouse pointer and icon, Cls, Refresh, the window's enabled state,
// and the few window queries that mouse tracking needs.

#include <cstdint>

#include "base/ole_color.h"
#include "platform/device_context.h"
#include "platform/font.h"
#include "platform/geometry.h"
#include "platform/picture.h"

namespace vex::control {

class ControlSurface {
public:
    virtual ~ControlSurface() = default;

    virtual platform::DeviceContext& Dc() = 0;
    virtual int32_t hDC() = 0;
    virtual int32_t hWnd() = 0;
    virtual platform::Size ClientSize() = 0; // GetClientRect of the window
    virtual double ScaleWidth() = 0;         // the inner size in the surface's units (pixels)
    virtual double ScaleHeight() = 0;

    virtual OleColor BackColor() = 0;
    virtual void SetBackColor(OleColor color) = 0;
    virtual OleColor ForeColor() = 0;
    virtual void SetForeColor(OleColor color) = 0;
    virtual platform::FontDesc Font() = 0;
    virtual void SetFont(const platform::FontDesc& font) = 0;
    virtual int16_t MousePointer() = 0;
    virtual void SetMousePointer(int16_t pointer) = 0;
    virtual platform::PictureRef MouseIcon() = 0;
    virtual void SetMouseIcon(platform::PictureRef icon) = 0;

    virtual void Cls() = 0;     // fill with the back colour
    virtual void Refresh() = 0; // repaint now (the host sends Paint)
    virtual void SetWindowEnabled(bool enabled) = 0;
    // Deletes the window regions the Custom appearance keeps between paints (none is harmless).
    virtual void ReleaseWindowRegions() = 0;
    virtual bool WindowEnabled() = 0;

    virtual platform::Point ClientToScreen(platform::Point point) = 0;
    virtual platform::Point CursorPos() = 0;                           // screen pixels
    virtual int32_t WindowFromPoint(platform::Point screenPoint) = 0; // a window handle, 0 for none
};

} // namespace vex::control
