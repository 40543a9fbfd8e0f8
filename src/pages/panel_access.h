#pragma once
// The control's properties by name, read and written through its public accessors, so that a
// page's write runs the property's own set rule (message boxes, clamping, the redraw). Values
// travel as the host's variants: enumerations as Integer, colours as Long.

#include <string_view>

#include "control/property_value.h"
#include "control/vex_panel.h"

namespace vex::pages {

// The value of the property called name. Raises 438 for a name the control does not have.
control::PropertyValue GetProperty(const control::VexPanel& panel, std::string_view name);

// Sets the property called name from value, converted by the host's rules to the property's type
// (a text that holds no number is a Type mismatch, a number out of range an Overflow, an
// enumeration's value beyond 16 bits an Overflow).
void SetProperty(control::VexPanel& panel, std::string_view name, const control::PropertyValue& value);

} // namespace vex::pages
