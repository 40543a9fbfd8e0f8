#pragma once
// A property bag in memory: keys in the order they were first written (or loaded), typed values.
// The .vxp text file reads into and writes from one.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "control/property_bag.h"

namespace vex::control {

class MemoryPropertyBag : public PropertyBag {
public:
    PropertyValue ReadProperty(const std::string& name, const PropertyValue& defaultValue) override;
    void WriteProperty(const std::string& name, const PropertyValue& value, const PropertyValue& defaultValue) override;

    // Direct access, for loading a bag and inspecting it. Set replaces a key in place or appends.
    void Set(const std::string& name, PropertyValue value);
    // Adds a key the caller knows is not in the bag yet (a loader that checked its keys).
    void Append(std::string name, PropertyValue value) { entries_.emplace_back(std::move(name), std::move(value)); }
    void Reserve(size_t keys) { entries_.reserve(keys); }
    std::optional<PropertyValue> Get(const std::string& name) const;
    bool Contains(const std::string& name) const { return Get(name).has_value(); }
    const std::vector<std::pair<std::string, PropertyValue>>& Entries() const { return entries_; }

private:
    std::vector<std::pair<std::string, PropertyValue>> entries_;
};

} // namespace vex::control
