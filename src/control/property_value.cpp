#include "control/property_value.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "base/numeric.h"
#include "base/text_conversion.h"

namespace vex::control {

namespace {

std::optional<double> NumberOf(const PropertyValue& value)
{
    switch (TypeOf(value)) {
    case ValueType::Int16: return std::get<int16_t>(value);
    case ValueType::Int32: return std::get<int32_t>(value);
    case ValueType::Single: return std::get<float>(value);
    case ValueType::Boolean: return std::get<bool>(value) ? -1.0 : 0.0;
    case ValueType::String: return DoubleFromText(std::get<std::string>(value));
    default: return std::nullopt;
    }
}

double RequireNumber(const PropertyValue& value)
{
    std::optional<double> number = NumberOf(value);
    if (!number)
        Raise(ErrorCode::TypeMismatch);
    return *number;
}

} // namespace

const char* TypeName(ValueType type)
{
    switch (type) {
    case ValueType::Int16: return "Integer";
    case ValueType::Int32: return "Long";
    case ValueType::Single: return "Single";
    case ValueType::Boolean: return "Boolean";
    case ValueType::String: return "String";
    case ValueType::Font: return "Font";
    case ValueType::Picture: return "Picture";
    }
    return "?";
}

// Text converts as the host converts a String; other values round half to even.
int16_t AsInt16(const PropertyValue& value)
{
    if (auto* text = std::get_if<std::string>(&value))
        return IntegerFromText(*text);
    return CInt(RequireNumber(value));
}

int32_t AsInt32(const PropertyValue& value)
{
    if (auto* text = std::get_if<std::string>(&value))
        return LongFromText(*text);
    return CLng(RequireNumber(value));
}

float AsSingle(const PropertyValue& value) { return CSng(RequireNumber(value)); }

bool AsBoolean(const PropertyValue& value)
{
    if (auto* text = std::get_if<std::string>(&value))
        return BooleanFromText(*text);
    double number = RequireNumber(value);
    if (std::isnan(number))
        Raise(ErrorCode::TypeMismatch);
    return number != 0.0;
}

std::string AsText(const PropertyValue& value)
{
    switch (TypeOf(value)) {
    case ValueType::Int16: return std::to_string(std::get<int16_t>(value));
    case ValueType::Int32: return std::to_string(std::get<int32_t>(value));
    case ValueType::Single: {
        char buffer[32];
        auto result = std::to_chars(buffer, buffer + sizeof buffer, std::get<float>(value));
        return std::string(buffer, result.ptr);
    }
    case ValueType::Boolean: return std::get<bool>(value) ? "True" : "False";
    case ValueType::String: return std::get<std::string>(value);
    default: Raise(ErrorCode::TypeMismatch);
    }
}

platform::FontDesc AsFont(const PropertyValue& value)
{
    if (auto* font = std::get_if<platform::FontDesc>(&value))
        return *font;
    Raise(ErrorCode::TypeMismatch);
}

platform::PictureRef AsPicture(const PropertyValue& value)
{
    if (auto* picture = std::get_if<platform::PictureRef>(&value))
        return *picture;
    Raise(ErrorCode::TypeMismatch);
}

bool SameValue(const PropertyValue& a, const PropertyValue& b)
{
    ValueType typeA = TypeOf(a);
    ValueType typeB = TypeOf(b);
    auto numeric = [](ValueType type) {
        return type == ValueType::Int16 || type == ValueType::Int32 || type == ValueType::Single
            || type == ValueType::Boolean;
    };
    if (numeric(typeA) && numeric(typeB))
        return *NumberOf(a) == *NumberOf(b);
    if (typeA != typeB)
        return false;
    switch (typeA) {
    case ValueType::String: return std::get<std::string>(a) == std::get<std::string>(b);
    case ValueType::Font: return std::get<platform::FontDesc>(a) == std::get<platform::FontDesc>(b);
    case ValueType::Picture: return std::get<platform::PictureRef>(a) == std::get<platform::PictureRef>(b);
    default: return false;
    }
}

} // namespace vex::control
