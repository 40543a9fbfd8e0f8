#pragma once
// The enumerations as the type library publishes them: each enumeration's name and its members'
// exact names (blanks, hyphens and misspellings kept) with their values, in declaration order.

#include <cstdint>
#include <span>
#include <string_view>

namespace vex::model {

struct EnumMember {
    std::string_view identifier; // the C++ member of enums.h
    std::string_view name;
    int32_t value;
};

struct EnumInfo {
    std::string_view name;
    std::span<const EnumMember> members;
};

// All fifteen enumerations, in the interface's order.
std::span<const EnumInfo> Enumerations();

// The enumeration called name, or nullptr.
const EnumInfo* FindEnumeration(std::string_view name);

// The exact member name for value, or an empty view when value names no member.
std::string_view MemberName(const EnumInfo& info, int32_t value);

} // namespace vex::model
