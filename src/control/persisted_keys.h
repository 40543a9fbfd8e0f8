#pragma once
// The panel's persisted state: 59 keys, in the order ReadProperties reads them, and the order
// WriteProperties writes them (the read order with "Caption", "Picture" and "CaptionText" moved
// to the end as "Picture", "Caption", "CaptionText").

#include <array>
#include <string_view>

#include "model/property_table.h"

namespace vex::control {

inline constexpr size_t kPersistedKeyCount = model::kPersistedKeyCount;

const std::array<std::string_view, kPersistedKeyCount>& ReadOrder();
const std::array<std::string_view, kPersistedKeyCount>& WriteOrder();

} // namespace vex::control
