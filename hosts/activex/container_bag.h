#pragma once
// The container's property bag (IPropertyBag) as the panel's PropertyBag: each key read with the
// type of its default and converted by the host's rules (a missing key gives the default), each
// value written as the variant of its type (16-bit as VT_I2, 32-bit as VT_I4, Booleans as
// VT_BOOL, text as VT_BSTR, the font and pictures as the standard objects the container
// persists), and nothing written for a value equal to its default.

#include <windows.h>
#include <ocidl.h>

#include "control/property_bag.h"

namespace vex::activex {

class ContainerBag : public control::PropertyBag {
public:
    ContainerBag(IPropertyBag* bag, IErrorLog* log) : bag_(bag), log_(log) { }

    control::PropertyValue ReadProperty(const std::string& name, const control::PropertyValue& defaultValue) override;
    void WriteProperty(const std::string& name, const control::PropertyValue& value,
        const control::PropertyValue& defaultValue) override;

private:
    IPropertyBag* bag_;
    IErrorLog* log_;
};

} // namespace vex::activex
