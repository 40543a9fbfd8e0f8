#include "pages/panel_access.h"

namespace vex::pages {

// The control's own by-name entry, made from its property table: the value converts by the
// host's rules and goes through the property's set.
control::PropertyValue GetProperty(const control::VexPanel& panel, std::string_view name)
{
    return panel.GetProperty(name);
}

void SetProperty(control::VexPanel& panel, std::string_view name, const control::PropertyValue& value)
{
    panel.SetProperty(name, value);
}

} // namespace vex::pages
