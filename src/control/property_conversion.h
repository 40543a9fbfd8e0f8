#pragma once
// A property's value to and from the host's variant (PropertyValue), by the property's type:
// colours travel as Long, enumerations as Integer (a wider value narrows with Overflow), the
// byte FlagAbout as a number from 0 to 255.

#include <type_traits>

#include "base/numeric.h"
#include "control/property_value.h"
#include "model/property_table.h"

namespace vex::control {

template <typename T>
T FromValue(const PropertyValue& value)
{
    if constexpr (std::is_enum_v<T>)
        return static_cast<T>(AsInt16(value));
    else if constexpr (std::is_same_v<T, OleColor>)
        return static_cast<OleColor>(AsInt32(value));
    else if constexpr (std::is_same_v<T, uint8_t>)
        return ToByte(AsInt32(value));
    else if constexpr (std::is_same_v<T, int16_t>)
        return AsInt16(value);
    else if constexpr (std::is_same_v<T, int32_t>)
        return AsInt32(value);
    else if constexpr (std::is_same_v<T, bool>)
        return AsBoolean(value);
    else if constexpr (std::is_same_v<T, float>)
        return AsSingle(value);
    else if constexpr (std::is_same_v<T, std::string>)
        return AsText(value);
    else if constexpr (std::is_same_v<T, platform::FontDesc>)
        return AsFont(value);
    else
        return AsPicture(value);
}

template <typename T>
PropertyValue ToValue(const T& value)
{
    if constexpr (std::is_enum_v<T>)
        return static_cast<int16_t>(value);
    else if constexpr (std::is_same_v<T, OleColor>)
        return static_cast<int32_t>(value);
    else if constexpr (std::is_same_v<T, uint8_t>)
        return static_cast<int16_t>(value);
    else
        return value;
}

} // namespace vex::control
