#pragma once
// VexPanel: the panel control. Public property pairs (Caption() / setCaption(v)), the methods
// Refresh, DrawControl and Acerca, the host's notifications (On...), and the events it raises to
// a PanelEvents sink.
//
// The control's code is split by concern:
//   vex_panel.cpp              construction, surface-held properties, methods
//   vex_panel_properties.cpp   the stored properties and their set rules
//   vex_panel_persistence.cpp  InitProperties, ReadProperties, WriteProperties
//   vex_panel_lifecycle.cpp    host notifications, parent form, timers, input and mouse tracking
//   draw_control.cpp           the drawing pipeline

#include <cstdint>
#include <memory>
#include <string>

#include "base/ole_color.h"
#include "control/control_surface.h"
#include "control/host.h"
#include "control/panel_events.h"
#include "control/property_bag.h"
#include "model/enums.h"
#include "platform/font.h"
#include "platform/picture.h"
#include "render/painters.h"
#include "render/panel_state.h"

namespace vex::control {

#define VEX_USE_ENUMERATION(Enum) using model::Enum;
VEX_ENUMERATIONS(VEX_USE_ENUMERATION)
#undef VEX_USE_ENUMERATION

// The text, title and flags of the message box that rejects a PictureAnimDelay.
inline constexpr const char* kInvalidValueText = "The property  value is not valid    ";
inline constexpr const char* kErrorTitle = "Brisa Panel Error";

class PanelServices;

class VexPanel {
public:
    VexPanel(Host& host, ControlSurface& surface);
    ~VexPanel();
    VexPanel(const VexPanel&) = delete;
    VexPanel& operator=(const VexPanel&) = delete;

    void SetEventSink(PanelEvents* sink) { events_ = sink; }

    // ---- Properties, in the order of the interface ----------------------------------------------
    uint8_t FlagAbout() const { return props_.FlagAbout; }
    void setFlagAbout(uint8_t value) { props_.FlagAbout = value; }
    OleColor ForeColor() const { return props_.ForeColor; }
    void setForeColor(OleColor value);
    bool Enabled() const { return props_.Enabled; }
    void setEnabled(bool value);
    TypeAppearance Appearance() const { return TypeAppearance(props_.Appearance); }
    void setAppearance(TypeAppearance value);
    TypeBackStyle BackStyle() const { return TypeBackStyle(props_.BackStyle); }
    void setBackStyle(TypeBackStyle value);
    bool OptionPic() const { return props_.OptionPic; }
    void setOptionPic(bool value);
    bool OptionPicBackGround() const { return props_.OptionPicBackGround; }
    void setOptionPicBackGround(bool value);
    TypeBorder CustomBorderLeftTopStyle() const { return TypeBorder(props_.CustomBorderLeftTopStyle); }
    void setCustomBorderLeftTopStyle(TypeBorder value);
    TypeBorder CustomBorderRightTopStyle() const { return TypeBorder(props_.CustomBorderRightTopStyle); }
    void setCustomBorderRightTopStyle(TypeBorder value);
    TypeBorder CustomBorderLeftBottomStyle() const { return TypeBorder(props_.CustomBorderLeftBottomStyle); }
    void setCustomBorderLeftBottomStyle(TypeBorder value);
    TypeBorder CustomBorderRightBottomStyle() const { return TypeBorder(props_.CustomBorderRightBottomStyle); }
    void setCustomBorderRightBottomStyle(TypeBorder value);
    int16_t CustomBorderRadio() const { return props_.CustomBorderRadio; }
    void setCustomBorderRadio(int16_t value);
    OleColor WinBackColor() const { return props_.WinBackColor; }
    void setWinBackColor(OleColor value);
    TypeWinGradientDirection WinGradientDirection() const { return TypeWinGradientDirection(props_.WinGradientDirection); }
    void setWinGradientDirection(TypeWinGradientDirection value);
    TypeWinOptionColor WinOptionColor() const { return TypeWinOptionColor(props_.WinOptionColor); }
    void setWinOptionColor(TypeWinOptionColor value);
    TypeWinContrast WinContrast() const { return TypeWinContrast(props_.WinContrast); }
    void setWinContrast(TypeWinContrast value);
    TypeWinBorderStyle WinBorderTopStyle() const { return TypeWinBorderStyle(props_.WinBorderTopStyle); }
    void setWinBorderTopStyle(TypeWinBorderStyle value);
    TypeWinBorderStyle WinBorderBottomStyle() const { return TypeWinBorderStyle(props_.WinBorderBottomStyle); }
    void setWinBorderBottomStyle(TypeWinBorderStyle value);
    TypeWinBorderStyle WinBorderLeftStyle() const { return TypeWinBorderStyle(props_.WinBorderLeftStyle); }
    void setWinBorderLeftStyle(TypeWinBorderStyle value);
    TypeWinBorderStyle WinBorderRightStyle() const { return TypeWinBorderStyle(props_.WinBorderRightStyle); }
    void setWinBorderRightStyle(TypeWinBorderStyle value);
    const std::string& Caption() const { return props_.Caption; }
    void setCaption(const std::string& value);
    TypeAlignment CaptionAlignment() const { return TypeAlignment(props_.CaptionAlignment); }
    void setCaptionAlignment(TypeAlignment value);
    platform::FontDesc Font() const;
    void setFont(const platform::FontDesc& value);
    bool CaptionEfect() const { return props_.CaptionEfect; }
    void setCaptionEfect(bool value);
    OleColor CaptionFontIn() const { return props_.CaptionFontIn; }
    void setCaptionFontIn(OleColor value);
    OleColor CaptionFontOut() const { return props_.CaptionFontOut; }
    void setCaptionFontOut(OleColor value);
    OleColor CaptionFontShadow() const { return props_.CaptionFontShadow; }
    void setCaptionFontShadow(OleColor value);
    bool CaptionGetShadow() const { return props_.CaptionGetShadow; }
    void setCaptionGetShadow(bool value);
    platform::PictureRef Picture() const { return props_.Picture; }
    void setPicture(platform::PictureRef value);
    TypeAlignment PictureAlignment() const { return TypeAlignment(props_.PictureAlignment); }
    void setPictureAlignment(TypeAlignment value);
    bool PictureAnimEnabled() const { return props_.PictureAnimEnabled; }
    void setPictureAnimEnabled(bool value);
    int16_t PictureAnimDelay() const { return props_.PictureAnimDelay; }
    void setPictureAnimDelay(int16_t value);
    OleColor PictureMaskColor() const { return props_.PictureMaskColor; }
    void setPictureMaskColor(OleColor value);
    bool PictureUseMask() const { return props_.PictureUseMask; }
    void setPictureUseMask(bool value);
    int16_t PictureFrames() const { return props_.PictureFrames; }
    void setPictureFrames(int16_t value);
    platform::PictureRef PictureBackground() const { return props_.PictureBackground; }
    void setPictureBackground(platform::PictureRef value);
    TypePictureBackgroundStyle PictureBackgroundStyle() const { return TypePictureBackgroundStyle(props_.PictureBackgroundStyle); }
    void setPictureBackgroundStyle(TypePictureBackgroundStyle value);
    bool PictureBackgroundUseMask() const { return props_.PictureBackgroundUseMask; }
    void setPictureBackgroundUseMask(bool value);
    TypeCaptionStyle CaptionStyle() const { return TypeCaptionStyle(props_.CaptionStyle); }
    void setCaptionStyle(TypeCaptionStyle value);
    TypePanel3DStyle Panel3DBorderStyle() const { return TypePanel3DStyle(props_.Panel3DBorderStyle); }
    void setPanel3DBorderStyle(TypePanel3DStyle value);
    int16_t Panel3DBorderWidth() const { return props_.Panel3DBorderWidth; }
    void setPanel3DBorderWidth(int16_t value);
    int16_t Panel3DBorderOffset() const { return props_.Panel3DBorderOffset; }
    void setPanel3DBorderOffset(int16_t value);
    OleColor Panel3DHighLight() const { return props_.Panel3DHighLight; }
    void setPanel3DHighLight(OleColor value);
    OleColor Panel3DShadow() const { return props_.Panel3DShadow; }
    void setPanel3DShadow(OleColor value);
    OleColor Panel3DOffsetColor() const { return props_.Panel3DOffsetColor; }
    void setPanel3DOffsetColor(OleColor value);
    int16_t CustomBorderWidth() const { return props_.CustomBorderWidth; }
    void setCustomBorderWidth(int16_t value);
    OleColor CustomBorderColor() const { return props_.CustomBorderColor; }
    void setCustomBorderColor(OleColor value);
    OleColor CustomGradientStart() const { return props_.CustomGradientStart; }
    void setCustomGradientStart(OleColor value);
    OleColor CustomGradientEnds() const { return props_.CustomGradientEnds; }
    void setCustomGradientEnds(OleColor value);
    TypeCustomGradientDirection CustomGradientDirection() const { return TypeCustomGradientDirection(props_.CustomGradientDirection); }
    void setCustomGradientDirection(TypeCustomGradientDirection value);
    TypeCustomGradientStyle CustomGradientStyle() const { return TypeCustomGradientStyle(props_.CustomGradientStyle); }
    void setCustomGradientStyle(TypeCustomGradientStyle value);
    TypePanelFont3D PanelFont3D() const { return TypePanelFont3D(props_.PanelFont3D); }
    void setPanelFont3D(TypePanelFont3D value);
    OleColor PanelFont3DHighLight() const { return props_.PanelFont3DHighLight; }
    void setPanelFont3DHighLight(OleColor value);
    OleColor PanelFont3DShadow() const { return props_.PanelFont3DShadow; }
    void setPanelFont3DShadow(OleColor value);
    int32_t hWnd() const;
    platform::PictureRef MouseIcon() const;
    void setMouseIcon(platform::PictureRef value);
    TypeMousePointer MousePointer() const;
    void setMousePointer(TypeMousePointer value);
    bool FontUnderline() const { return Font().underline; }
    void setFontUnderline(bool value);
    bool FontStrikethru() const { return Font().strikethrough; }
    void setFontStrikethru(bool value);
    float FontSize() const { return Font().size; }
    void setFontSize(float value);
    std::string FontName() const { return Font().name; }
    void setFontName(const std::string& value);
    bool FontItalic() const { return Font().italic; }
    void setFontItalic(bool value);
    bool FontBold() const { return Font().bold; }
    void setFontBold(bool value);
    const std::string& CaptionText() const { return props_.CaptionText; }
    void setCaptionText(const std::string& value);
    bool Panel3DBorderOption() const { return props_.Panel3DBorderOption; }
    void setPanel3DBorderOption(bool value);
    OleColor Panel3DBorderColor() const { return props_.Panel3DBorderColor; }
    void setPanel3DBorderColor(OleColor value);
    int32_t hDC() const;
    OleColor BackColor() const;
    void setBackColor(OleColor value);

    // ---- Methods --------------------------------------------------------------------------------
    void Refresh();
    void Acerca();
    void DrawControl(bool OptionCLS);

    // ---- Host notifications ---------------------------------------------------------------------
    void InitProperties();
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag);
    // The value a persisted key would be written with now (key as in ReadOrder()).
    PropertyValue PersistedValue(std::string_view key) const;
    void OnShow();
    void OnResize();
    void OnPaint();
    void OnTerminate();
    void OnClick();
    void OnDblClick();
    void OnKeyDown(int16_t KeyCode, int16_t Shift);
    void OnKeyPress(int16_t KeyAscii);
    void OnKeyUp(int16_t KeyCode, int16_t Shift);
    void OnMouseDown(int16_t Button, int16_t Shift, float x, float y);
    void OnMouseMove(int16_t Button, int16_t Shift, float x, float y);
    void OnMouseUp(int16_t Button, int16_t Shift, float x, float y);

    // ---- Run-time state, for hosts and tests ------------------------------------------------------
    bool HasParentForm() const { return MyParent_ != nullptr; }
    bool ParentActivated() const { return ParentActivated_; }
    uint8_t CaptureBackground() const { return paint_.CaptureBackground; }
    bool MouseInside() const { return MouseInside_; }
    int16_t AnimFrame() const { return memory_.AnimFrame; }
    const HostTimer& Timer1() const { return *Timer1_; }
    const HostTimer& Timer2() const { return *Timer2_; }
    const render::PanelProperties& Properties() const { return props_; }
    const render::PaintState& PaintState() const { return paint_; }
    const render::PainterMemory& PainterMemory() const { return memory_; }

private:
    class FormHook;
    friend struct PanelPersistence;

    // Set rules: S stores, notifies and redraws; P stores and notifies; E narrows to 16 bits.
    template <typename Field, typename Value>
    void SetAndRedraw(Field& field, Value value, const char* name);
    template <typename Field, typename Value>
    void SetOnly(Field& field, Value value, const char* name);
    template <typename Enum>
    void SetEnum(Enum& field, Enum value, const char* name);
    void Set3DLettering(const char* name);
    template <typename Apply>
    void SetFontFacet(Apply apply, const char* name);
    void Notify(const char* name);
    void ResetPainterState();

    void HoldParent(ParentForm& parent);
    void OnParentActivate();
    void OnParentUnload();
    void OnTimer1();
    void OnTimer2();
    void StartAnimation();
    render::PaintContext Context();

    Host& host_;
    ControlSurface& surface_;
    PanelEvents* events_ = nullptr;
    std::unique_ptr<PanelServices> services_;
    std::unique_ptr<FormHook> formHook_;

    render::PanelProperties props_;
    render::PaintState paint_;
    render::PainterMemory memory_;

    ParentForm* MyParent_ = nullptr;
    bool ParentActivated_ = false;
    bool MouseInside_ = false;
    int16_t LastButton_ = 0;
    int16_t LastShift_ = 0;
    float LastX_ = 0;
    float LastY_ = 0;
    std::unique_ptr<HostTimer> Timer1_;
    std::unique_ptr<HostTimer> Timer2_;
};

} // namespace vex::control
