#pragma once
// The host's property bag as the panel uses it: read a key with its default (the default comes
// back when the key is missing), write a key with its default (nothing is written when the value
// equals the default).

#include <string>

#include "control/property_value.h"

namespace vex::control {

class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    virtual PropertyValue ReadProperty(const std::string& name, const PropertyValue& defaultValue) = 0;
    virtual void WriteProperty(const std::string& name, const PropertyValue& value, const PropertyValue& defaultValue) = 0;
};

} // namespace vex::control
