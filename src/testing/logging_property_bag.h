#pragma once
// A bag in memory that logs every read and write with the default it came with, so that tests
// can check the order and types of the panel's persistence.

#include <string>
#include <vector>

#include "control/memory_property_bag.h"

namespace vex::control {

struct BagOperation {
    enum Kind { Read, Write } kind;
    std::string name;
    PropertyValue value;        // what was read (the default when missing) or what was offered
    PropertyValue defaultValue;
    bool stored;                // read: the key was present; write: the value was written
};

class LoggingPropertyBag : public MemoryPropertyBag {
public:
    PropertyValue ReadProperty(const std::string& name, const PropertyValue& defaultValue) override
    {
        const bool present = Contains(name);
        PropertyValue value = MemoryPropertyBag::ReadProperty(name, defaultValue);
        log_.push_back(BagOperation { BagOperation::Read, name, value, defaultValue, present });
        return value;
    }
    void WriteProperty(const std::string& name, const PropertyValue& value, const PropertyValue& defaultValue) override
    {
        log_.push_back(BagOperation { BagOperation::Write, name, value, defaultValue, !SameValue(value, defaultValue) });
        MemoryPropertyBag::WriteProperty(name, value, defaultValue);
    }

    const std::vector<BagOperation>& Log() const { return log_; }

private:
    std::vector<BagOperation> log_;
};

} // namespace vex::control
