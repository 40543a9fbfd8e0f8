#pragma once
// What the painters read and write: the panel's stored properties, the paint state that
// DrawControl fills at the start of every paint, the run-time state the painters keep between
// paints, and the few services they ask of the control's surface and container.
//
// The control (src/control) owns one of each and hands them to the painters; the painters know
// nothing else of the control.

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "base/ole_color.h"
#include "platform/device_context.h"
#include "platform/font.h"
#include "platform/geometry.h"
#include "platform/picture.h"
#include "model/property_store.h"

namespace vex {
class VexGradiente;
}

namespace vex::render {

// The property store and the enumerations live in the model, below the painters.
using model::PanelProperties;
#define VEX_USE_ENUMERATION(Enum) using model::Enum;
VEX_ENUMERATIONS(VEX_USE_ENUMERATION)
#undef VEX_USE_ENUMERATION

// The working colour table of a paint, filled from the device's system colours at the start of
// every paint. The table the painters were written against has eleven entries, two of which
// repeat another (button face, button text); each colour is one member here.
struct WorkingColours {
    ColorRef ShadedFace = 0;      // button face shifted by 30, blue in proportion
    ColorRef ButtonFace = 0;
    ColorRef ButtonShadow = 0;
    ColorRef Light3D = 0;
    ColorRef DarkShadow3D = 0;
    ColorRef ButtonHighlight = 0;
    ColorRef ButtonText = 0;
    ColorRef Highlight = 0;
    ColorRef HighlightPale = 0;   // the highlight blended toward white by 176

    friend bool operator==(const WorkingColours&, const WorkingColours&) = default;
};

// Filled by DrawControl at the start of each paint; read by every painter.
struct PaintState {
    platform::Rect ClientRect;
    int32_t ClientWidth = 0;
    int32_t ClientHeight = 0;
    WorkingColours SysColors;
    int32_t PaintLoopIndex = 0; // the shared loop counter; left at its last value
    uint8_t CaptureBackground = 0;
};

// Kept by the painters between paints; owned by the control.
struct PainterMemory {
    // The saved background under an animated picture (PainterState != 0 in the original):
    // a memory context holding the pixels under the picture. Reset on resize and on every
    // Appearance set, which makes the next paint capture anew.
    std::unique_ptr<platform::DeviceContext> savedBackground;
    int16_t AnimFrame = 0;
    int32_t pictureLeft = 0; // where the last paint put the picture; the animation draws there
    int32_t pictureTop = 0;
    bool backgroundCaptured = false; // the transparent capture is taken once per instance
    platform::PictureRef capturedBackground;
    std::shared_ptr<VexGradiente> gradient; // created on first use
};

// What the painters ask of the control's surface and its container.
class PaintServices {
public:
    virtual ~PaintServices() = default;
    virtual platform::DeviceContext& Dc() = 0;    // the surface's hDC
    virtual platform::Size ClientSize() = 0;      // GetClientRect of the control's window
    virtual double ScaleWidth() = 0;              // the surface's inner size in pixels
    virtual double ScaleHeight() = 0;
    virtual ColorRef BackColorRgb() = 0;          // TranslateColor(BackColor)
    virtual platform::FontDesc Font() = 0;        // the surface's font
    virtual void DoEvents() = 0;                  // let pending host messages run
    virtual void SetExtenderVisible(bool visible) = 0;
    virtual void Refresh() = 0;                   // the surface's refresh (repaint request)
    // The pixels that lie behind the control on its parent, width x height from the control's
    // client origin: what a hidden control would let through.
    virtual platform::PictureRef CaptureBehind(int32_t width, int32_t height) = 0;
    // A message box through the host (text, title, icon and buttons as the host numbers them).
    virtual void MessageBox(const std::string& text, const std::string& title, int32_t flags) = 0;
};

} // namespace vex::render
