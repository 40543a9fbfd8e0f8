#pragma once
// What each property is for, in a sentence, for the property reference that
// `vexpanel reference` writes. One note per property of the table, in its order.

#include <string_view>

#include "model/property_table.h"

namespace vex::cli {

struct PropertyNote {
    std::string_view name;
    std::string_view note;
};

// One entry per property, in the table's order (the reference checks both).
extern const PropertyNote kPropertyNotes[model::kPropertyCount];

} // namespace vex::cli
