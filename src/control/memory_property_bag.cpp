#include "control/memory_property_bag.h"

namespace vex::control {

PropertyValue MemoryPropertyBag::ReadProperty(const std::string& name, const PropertyValue& defaultValue)
{
    std::optional<PropertyValue> stored = Get(name);
    return stored ? *stored : defaultValue;
}

void MemoryPropertyBag::WriteProperty(const std::string& name, const PropertyValue& value, const PropertyValue& defaultValue)
{
    if (!SameValue(value, defaultValue)) {
        Set(name, value);
    } else {
        // A value back at its default leaves no key behind, as a fresh save would.
        std::erase_if(entries_, [&](const auto& entry) { return entry.first == name; });
    }
}

void MemoryPropertyBag::Set(const std::string& name, PropertyValue value)
{
    for (auto& entry : entries_) {
        if (entry.first == name) {
            entry.second = std::move(value);
            return;
        }
    }
    entries_.emplace_back(name, std::move(value));
}

std::optional<PropertyValue> MemoryPropertyBag::Get(const std::string& name) const
{
    for (const auto& entry : entries_)
        if (entry.first == name)
            return entry.second;
    return std::nullopt;
}

} // namespace vex::control
