// The properties by name: one entry per row of the property table, converting the host's value
// to the property's type and passing it through the property's own set.
#include <array>

#include "base/runtime_error.h"
#include "control/property_conversion.h"
#include "control/vex_panel.h"

namespace vex::control {

namespace {

struct ByName {
    std::string_view name;
    void (*set)(VexPanel&, const PropertyValue&); // nullptr: read only
    PropertyValue (*get)(const VexPanel&);
};

#define VEX_BY_NAME_SET_Field(Name, Type) [](VexPanel& panel, const PropertyValue& value) { panel.set##Name(FromValue<Type>(value)); }
#define VEX_BY_NAME_SET_Facet(Name, Type) VEX_BY_NAME_SET_Field(Name, Type)
#define VEX_BY_NAME_SET_Window(Name, Type) nullptr
#define VEX_BY_NAME(Name, Store, Type, ...)                                                               \
    ByName { #Name, VEX_BY_NAME_SET_##Store(Name, Type),                                              \
        [](const VexPanel& panel) { return ToValue<Type>(panel.Name()); } },
constexpr ByName kByName[] = { VEX_PROPERTIES(VEX_BY_NAME) };
#undef VEX_BY_NAME
#undef VEX_BY_NAME_SET_Window
#undef VEX_BY_NAME_SET_Facet
#undef VEX_BY_NAME_SET_Field

const ByName& Find(std::string_view name)
{
    for (const ByName& entry : kByName)
        if (entry.name == name)
            return entry;
    Raise(ErrorCode::ObjectDoesntSupport);
}

} // namespace

void VexPanel::SetProperty(std::string_view name, const PropertyValue& value)
{
    const ByName& entry = Find(name);
    if (!entry.set)
        Raise(ErrorCode::PropertyReadOnly);
    entry.set(*this, value);
}

PropertyValue VexPanel::GetProperty(std::string_view name) const { return Find(name).get(*this); }

} // namespace vex::control
