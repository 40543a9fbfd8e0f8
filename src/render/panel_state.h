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

namespace vex {
class VexGradiente;
}

namespace vex::render {

// The property store: one field per stored property, with the defaults that a saved panel
// without keys loads (a freshly placed panel differs in Caption and CaptionFontShadow).
// Enumerations and 16-bit properties are int16_t and may hold any 16-bit value, named or not.
struct PanelProperties {
    OleColor ForeColor = 0x80000012;
    bool Enabled = true;
    int16_t Appearance = 1;
    int16_t BackStyle = 1;
    int16_t CustomBorderLeftTopStyle = 0;
    int16_t CustomBorderRightTopStyle = 0;
    int16_t CustomBorderLeftBottomStyle = 0;
    int16_t CustomBorderRightBottomStyle = 0;
    int16_t CustomBorderRadio = 20;
    OleColor WinBackColor = 0xC0E0FF;
    int16_t WinGradientDirection = 0;
    int16_t WinOptionColor = 0;
    int16_t WinContrast = 1;
    int16_t WinBorderTopStyle = 1;
    int16_t WinBorderBottomStyle = 1;
    int16_t WinBorderLeftStyle = 1;
    int16_t WinBorderRightStyle = 1;
    std::string Caption;
    int16_t CaptionAlignment = 7;
    bool CaptionEfect = false;
    OleColor CaptionFontIn = 0xFFC0C0;
    OleColor CaptionFontOut = 0;
    OleColor CaptionFontShadow = 0;
    bool CaptionGetShadow = false;
    platform::PictureRef Picture;
    int16_t PictureAlignment = 0;
    bool PictureAnimEnabled = false;
    int16_t PictureAnimDelay = 100;
    OleColor PictureMaskColor = 0xFF00FF;
    bool PictureUseMask = false;
    int16_t PictureFrames = 1;
    platform::PictureRef PictureBackground;
    int16_t PictureBackgroundStyle = 0;
    bool PictureBackgroundUseMask = false;
    int16_t CaptionStyle = 0;
    int16_t Panel3DBorderStyle = 0;
    int16_t Panel3DBorderWidth = 1;
    int16_t Panel3DBorderOffset = 3;
    OleColor Panel3DHighLight = 0x80000014;
    OleColor Panel3DShadow = 0x80000010;
    OleColor Panel3DOffsetColor = 0x8000000F;
    int16_t CustomBorderWidth = 1;
    OleColor CustomBorderColor = 0xA88562;
    OleColor CustomGradientStart = 0xE4A88A;
    OleColor CustomGradientEnds = 0xF7E5DC;
    int16_t CustomGradientDirection = 4;
    int16_t CustomGradientStyle = 1;
    int16_t PanelFont3D = 0;
    OleColor PanelFont3DHighLight = 0x80000014;
    OleColor PanelFont3DShadow = 0x80000010;
    std::string CaptionText;
    bool Panel3DBorderOption = false;
    OleColor Panel3DBorderColor = 0xA88562;
    bool OptionPic = false;
    bool OptionPicBackGround = false;
};

// Filled by DrawControl at the start of each paint; read by every painter.
struct PaintState {
    platform::Rect ClientRect;
    int32_t ClientWidth = 0;
    int32_t ClientHeight = 0;
    std::array<ColorRef, 11> SysColors {};
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
