#pragma once
// VexPanel: the panel control. Public property pairs (Caption() / setCaption(v)), the methods
// Refresh, DrawControl and Acerca, the host's notifications (On...), and the events it raises to
// a PanelEvents sink.
//
// The control's code is split by concern:
//   vex_panel.cpp              construction, the window handles, methods
//   vex_panel_properties.cpp   the setters and their set rules, from the property table
//   vex_panel_by_name.cpp      the properties by name
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
#include "model/property_store.h"
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
    // Each property of the table (model/property_table.h) is a pair: Name() reads, setName(value)
    // writes through the property's set rule. Enumerations are 16-bit here; a host's wider value
    // is narrowed by SetProperty. hWnd and hDC are read only.
#define VEX_ACCESSORS_Field(Name, Type, Default)                                                        \
    model::In<Type> Name() const { return props_.Name; }                                              \
    void set##Name(model::In<Type> value);
#define VEX_ACCESSORS_Facet(Name, Type, Member)                                                         \
    model::In<Type> Name() const { return props_.Font.Member; }                                       \
    void set##Name(model::In<Type> value);
#define VEX_ACCESSORS_Window(Name, Type, Default) Type Name() const;
#define VEX_ACCESSORS(Name, Store, Type, Default, ...) VEX_ACCESSORS_##Store(Name, Type, Default)
    VEX_PROPERTIES(VEX_ACCESSORS)
#undef VEX_ACCESSORS
#undef VEX_ACCESSORS_Window
#undef VEX_ACCESSORS_Facet
#undef VEX_ACCESSORS_Field

    // Any property by its name, as a host's automation, the property pages and a toolkit's
    // property system reach it. The value converts by the host's rules to the property's type
    // (numbers, Booleans, text, colours as Long, an enumeration's Long narrowed to 16 bits with
    // Overflow beyond, pictures and the font) and then goes through the property's own set.
    // An unknown name raises 438, a read-only property 383.
    void SetProperty(std::string_view name, const PropertyValue& value);
    PropertyValue GetProperty(std::string_view name) const;

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
    const model::PanelProperties& Properties() const { return props_; }
    const render::PaintState& PaintState() const { return paint_; }
    const render::PainterMemory& PainterMemory() const { return memory_; }

private:
    class FormHook;
    friend struct PanelPersistence;

    // The set rule of the property's row, applied to its field (vex_panel_properties.cpp).
    template <model::PropertyId id, typename T>
    void Set(T& field, T value);
    void SetAnimationSwitch(bool value);
    void Notify(std::string_view name);
    void ResetPainterState();
    void ShowCursor();

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

    model::PanelProperties props_;
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
