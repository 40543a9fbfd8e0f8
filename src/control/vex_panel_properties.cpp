// The property sets, made from the property table: each setter applies its row's set rule
//   S  store, notify the host (key = the property's name), DrawControl(True)
//   P  store and notify, no redraw
//   F  a facet written into the Font, then as S
// plus the clamps, the PictureAnimDelay range check, the 3D lettering, the animation switch and
// CaptionText; and the by-name entry that a host's automation and the pages use.
#include "control/vex_panel.h"

#include <algorithm>
#include <type_traits>

#include "base/numeric.h"

namespace vex::control {

using model::PropertyId;
using model::SetRule;

template <PropertyId id, typename T>
void VexPanel::Set(T& field, T value)
{
    constexpr const model::PropertyInfo& info = model::Info(id);
    constexpr SetRule rule = info.rule;
    if constexpr (rule == SetRule::DelayRange) {
        // Out of range: the message box, and nothing else (no store, no notification).
        if (value < 1 || value > 32000) {
            host_.MessageBox(kInvalidValueText, kErrorTitle, mb::Critical | mb::OkOnly);
            return;
        }
    }
    // The font object holds its size as a Currency: a size that does not fit one (infinities,
    // NaN, the largest singles) overflows, as the host's font does, and is never stored or saved.
    if constexpr (std::is_same_v<T, platform::FontDesc>)
        CheckCurrency(value.size);
    if constexpr (rule == SetRule::AtLeast0)
        value = std::max<T>(value, 0);
    if constexpr (rule == SetRule::AtLeast1)
        value = std::max<T>(value, 1);

    if constexpr (rule == SetRule::AnimSwitch) {
        field = value;
        SetAnimationSwitch(value);
    } else if constexpr (rule == SetRule::CaptionText) {
        // Its own copy, then Caption's set (store, notify, redraw), and only then its own
        // notification. Setting Caption leaves CaptionText alone.
        field = value;
        setCaption(value);
        Notify(info.name);
    } else {
        field = std::move(value);
        if constexpr (rule == SetRule::Plain)
            return;
        if constexpr (rule == SetRule::Cursor)
            ShowCursor();
        Notify(info.name);
        if constexpr (rule == SetRule::P || rule == SetRule::Cursor)
            return;
        // PainterState := 0 on an Appearance set: the painters' kept state starts over.
        if constexpr (rule == SetRule::ResetsPainters)
            ResetPainterState();
        // The 3D lettering is only visible in the Window3D appearance, so only there is it redrawn.
        if constexpr (rule == SetRule::Lettering) {
            if (props_.Appearance != TypeAppearance::Window3D)
                return;
        }
        DrawControl(true);
    }
}

// The animation switch, after the value is stored: it is reported before the picture's type is
// read, so with no picture the object-not-set error reaches the caller with True already kept.
// Setting the delay while the animation runs leaves the running timer alone, on purpose: the new
// delay is taken when the animation is next switched on.
void VexPanel::SetAnimationSwitch(bool value)
{
    Notify("PictureAnimEnabled");
    if (!value) {
        Timer2_->SetEnabled(false); // the last frame drawn stays until the next paint
        return;
    }
    if (!props_.Picture)
        Raise(ErrorCode::ObjectNotSet);
    if (props_.Picture->type() != platform::PictureType::Bitmap)
        return;
    DrawControl(true);
    StartAnimation();
}

// PainterState := 0: the painters' kept state starts over (the saved background under an
// animated picture is taken anew on the next paint).
void VexPanel::ResetPainterState() { memory_.savedBackground.reset(); }

void VexPanel::ShowCursor() { surface_.SetCursor(static_cast<int16_t>(props_.MousePointer), props_.MouseIcon); }

// ---- The setters, one per row -------------------------------------------------------------------

#define VEX_SETTER_Field(Name, Type, Default)                                                           \
    void VexPanel::set##Name(model::In<Type> value) { Set<PropertyId::Name, Type>(props_.Name, value); }
// A facet is written into a copy of the font, which then goes through the facet's own rule.
#define VEX_SETTER_Facet(Name, Type, Member)                                                            \
    void VexPanel::set##Name(model::In<Type> value)                                                   \
    {                                                                                                 \
        platform::FontDesc font = props_.Font;                                                        \
        font.Member = value;                                                                          \
        Set<PropertyId::Name, platform::FontDesc>(props_.Font, std::move(font));                      \
    }
#define VEX_SETTER_Window(Name, Type, Default)
#define VEX_SETTER(Name, Store, Type, Default, ...) VEX_SETTER_##Store(Name, Type, Default)
VEX_PROPERTIES(VEX_SETTER)
#undef VEX_SETTER
#undef VEX_SETTER_Window
#undef VEX_SETTER_Facet
#undef VEX_SETTER_Field

} // namespace vex::control
