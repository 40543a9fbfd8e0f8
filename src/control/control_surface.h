#pragma once
// The panel's own window, as the host provides it: window services only. The device context and
// client size, Refresh (present what has been painted), the window's enabled state, the mouse
// cursor to show, and the few window queries that mouse tracking needs. The colours, font and
// mouse pointer are the control's properties; the control sets up the context before it paints.

#include <cstdint>

#include "platform/device_context.h"
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

    virtual void Refresh() = 0; // repaint now (the host sends Paint)
    virtual void SetWindowEnabled(bool enabled) = 0;
    virtual bool WindowEnabled() = 0;
    // The cursor the window shows while the pointer is over it: one of the host's standard
    // pointer codes, or with 99 (custom) the icon.
    virtual void SetCursor(int16_t pointer, const platform::PictureRef& icon) = 0;
    // Deletes the window regions the Custom appearance keeps between paints (none is harmless).
    virtual void ReleaseWindowRegions() = 0;

    virtual platform::Point ClientToScreen(platform::Point point) = 0;
    virtual platform::Point CursorPos() = 0;                           // screen pixels
    virtual int32_t WindowFromPoint(platform::Point screenPoint) = 0; // a window handle, 0 for none
};

} // namespace vex::control
