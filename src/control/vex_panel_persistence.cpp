// InitProperties, ReadProperties and WriteProperties, made from the persisted rows of the
// property table: each key's name, its read and write positions, and its default in the type the
// key is persisted against (the bag leaves out a value equal to it, and returns it for a missing
// key). Several Booleans are persisted against a 16-bit 0 rather than False, and
// CaptionFontShadow (a colour) against a 16-bit 0: black is never written and reads back black.
#include "control/persisted_keys.h"
#include "control/property_conversion.h"
#include "control/vex_panel.h"

#include <algorithm>
#include <vector>

#include "base/runtime_error.h"
#include "model/property_store.h"
#include "render/colour.h"

namespace vex::control {

struct PanelPersistence {
    struct Key {
        std::string_view name;
        int16_t readAt;
        int16_t writeAt;
        PropertyValue defaultValue; // the Font key's default is the ambient font instead
        void (*load)(VexPanel&, const PropertyValue&);
        PropertyValue (*save)(const VexPanel&);
    };

    // The persisted rows of the property table, in read order.
    static const std::vector<Key>& Keys();
    static const Key& Find(std::string_view name);
    static PropertyValue DefaultOf(VexPanel& panel, const Key& key);
};

namespace {

// A property's default in the type its key is persisted against. A Boolean persisted against a
// 16-bit integer has the default 0; a colour persisted so must fit in 16 bits.
template <model::PersistAs As, typename T>
PropertyValue PersistedDefault(const T& value)
{
    using model::PersistAs;
    if constexpr (As == PersistAs::Int16 && std::is_same_v<T, bool>)
        return int16_t(value ? -1 : 0);
    else if constexpr (As == PersistAs::Int16)
        return ToInt16(static_cast<int64_t>(value));
    else if constexpr (As == PersistAs::Int32)
        return static_cast<int32_t>(value);
    else if constexpr (As == PersistAs::Boolean)
        return static_cast<bool>(value);
    else if constexpr (As == PersistAs::String || As == PersistAs::Font || As == PersistAs::Picture)
        return value;
    else
        return PropertyValue();
}

} // namespace

// Loading bypasses the set rules (no clamps, no range check, no notifications, no redraw), except
// for a key the table marks to load through its set (MouseIcon, which reports itself changed).
const std::vector<PanelPersistence::Key>& PanelPersistence::Keys()
{
    static const std::vector<Key> keys = [] {
        using namespace model;
        const PanelProperties defaults;
        std::vector<Key> all;
#define VEX_KEY_Field(Name, Type, Flags, Persist, ReadAt, WriteAt)                                      \
    if (PersistAs::Persist != PersistAs::None)                                                        \
        all.push_back(Key { #Name, ReadAt, WriteAt, PersistedDefault<PersistAs::Persist>(defaults.Name), \
            [](VexPanel& panel, const PropertyValue& value) {                                         \
                if constexpr (((Flags) & LoadsThroughSet) != 0)                                       \
                    panel.set##Name(FromValue<Type>(value));                                          \
                else                                                                                  \
                    panel.props_.Name = FromValue<Type>(value);                                       \
            },                                                                                        \
            [](const VexPanel& panel) { return ToValue<Type>(panel.props_.Name); } });
#define VEX_KEY_Facet(...)
#define VEX_KEY_Window(...)
#define VEX_KEY(Name, Store, Type, Default, Rule, Dispid, Flags, Persist, ReadAt, WriteAt)              \
    VEX_KEY_##Store(Name, Type, Flags, Persist, ReadAt, WriteAt)
        VEX_PROPERTIES(VEX_KEY)
#undef VEX_KEY
#undef VEX_KEY_Window
#undef VEX_KEY_Facet
#undef VEX_KEY_Field
        std::sort(all.begin(), all.end(), [](const Key& a, const Key& b) { return a.readAt < b.readAt; });
        return all;
    }();
    return keys;
}

const PanelPersistence::Key& PanelPersistence::Find(std::string_view name)
{
    const auto& keys = Keys();
    auto found = std::find_if(keys.begin(), keys.end(), [&](const Key& key) { return key.name == name; });
    if (found == keys.end())
        Raise(ErrorCode::InvalidProcedureCall);
    return *found;
}

PropertyValue PanelPersistence::DefaultOf(VexPanel& panel, const Key& key)
{
    if (key.name == "Font")
        return panel.host_.AmbientFont();
    return key.defaultValue;
}

const std::array<std::string_view, kPersistedKeyCount>& ReadOrder()
{
    static const auto order = [] {
        std::array<std::string_view, kPersistedKeyCount> names;
        for (const PanelPersistence::Key& key : PanelPersistence::Keys())
            names.at(key.readAt - 1) = key.name;
        return names;
    }();
    return order;
}

const std::array<std::string_view, kPersistedKeyCount>& WriteOrder()
{
    static const auto order = [] {
        std::array<std::string_view, kPersistedKeyCount> names;
        for (const PanelPersistence::Key& key : PanelPersistence::Keys())
            names.at(key.writeAt - 1) = key.name;
        return names;
    }();
    return order;
}

// ---- The host's three persistence notifications --------------------------------------------------

void VexPanel::InitProperties()
{
    paint_.SysColors = render::PrepareSysColors(surface_.Dc());
    setCaption(host_.AmbientDisplayName());

    // Every persisted field takes its default, the store only; the table marks the few that are
    // kept (BackColor, MouseIcon, MousePointer) or computed here (Caption, Font, the shadow).
    const model::PanelProperties defaults;
#define VEX_INIT_Field(Name, Flags, Persist)                                                             \
    if constexpr (model::PersistAs::Persist != model::PersistAs::None                                    \
        && ((Flags) & (model::InitKeeps | model::InitComputed)) == 0)                                    \
        props_.Name = defaults.Name;
#define VEX_INIT_Facet(Name, Flags, Persist)
#define VEX_INIT_Window(Name, Flags, Persist)
#define VEX_INIT(Name, Store, Type, Default, Rule, Dispid, Flags, Persist, ...) VEX_INIT_##Store(Name, Flags, Persist)
    {
        using namespace model;
        VEX_PROPERTIES(VEX_INIT)
    }
#undef VEX_INIT
#undef VEX_INIT_Window
#undef VEX_INIT_Facet
#undef VEX_INIT_Field

    props_.Font = host_.AmbientFont();
    // The one computed default: the button shadow of this system, brightened by 15.
    props_.CaptionFontShadow = render::ShiftColour(paint_.SysColors.ButtonShadow, 15, false);
}

// Loads every key as it stands: the set rules' clamps and checks do not apply, nothing is drawn
// and no animation starts. At run time the parent form is captured first (a parent that is not a
// form fails with Type mismatch before any key is read).
void VexPanel::ReadProperties(PropertyBag& bag)
{
    if (host_.UserMode()) {
        HoldParent(host_.Parent());
    }
    for (const PanelPersistence::Key& key : PanelPersistence::Keys()) {
        PropertyValue value = bag.ReadProperty(std::string(key.name), PanelPersistence::DefaultOf(*this, key));
        key.load(*this, value);
    }
    ShowCursor(); // the loaded MousePointer (and MouseIcon) is what the window shows
}

PropertyValue VexPanel::PersistedValue(std::string_view key) const { return PanelPersistence::Find(key).save(*this); }

void VexPanel::WriteProperties(PropertyBag& bag)
{
    for (std::string_view name : WriteOrder()) {
        const PanelPersistence::Key& key = PanelPersistence::Find(name);
        bag.WriteProperty(std::string(name), key.save(*this), PanelPersistence::DefaultOf(*this, key));
    }
}

} // namespace vex::control
