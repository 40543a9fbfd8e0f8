#pragma once
// A value in a property bag, typed as the host's variants are: 16-bit and 32-bit integers,
// single, Boolean, string, font and picture (an empty picture reference is "none").
// The conversions follow the host's rules: numbers narrow with Overflow (6), a string converts
// when it holds a number, anything else that does not fit is a Type mismatch (13).

#include <cstdint>
#include <string>
#include <variant>

#include "platform/font.h"
#include "platform/picture.h"

namespace vex::control {

using PropertyValue = std::variant<int16_t, int32_t, float, bool, std::string, platform::FontDesc, platform::PictureRef>;

enum class ValueType { Int16, Int32, Single, Boolean, String, Font, Picture };

inline ValueType TypeOf(const PropertyValue& value) { return static_cast<ValueType>(value.index()); }
const char* TypeName(ValueType type);

int16_t AsInt16(const PropertyValue& value);
int32_t AsInt32(const PropertyValue& value);
float AsSingle(const PropertyValue& value);
bool AsBoolean(const PropertyValue& value);
std::string AsText(const PropertyValue& value);
platform::FontDesc AsFont(const PropertyValue& value);
platform::PictureRef AsPicture(const PropertyValue& value);

// Whether a written value equals its default, so that the bag leaves the key out. Numbers (and
// Booleans as -1 and 0) compare by value across types; pictures by identity.
bool SameValue(const PropertyValue& a, const PropertyValue& b);

} // namespace vex::control
