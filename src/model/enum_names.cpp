#include "model/enum_names.h"

#include <array>

#include "model/enums.h"

namespace vex::model {

namespace {

#define VEX_NAME_MEMBER(identifier, name, value) EnumMember { #identifier, name, value },
#define VEX_NAME_TABLE(Enum) constexpr EnumMember k##Enum[] = { VEX_MEMBERS_##Enum(VEX_NAME_MEMBER) };
VEX_ENUMERATIONS(VEX_NAME_TABLE)
#undef VEX_NAME_TABLE
#undef VEX_NAME_MEMBER

#define VEX_ENUM_INFO(Enum) EnumInfo { #Enum, k##Enum },
constexpr std::array kEnumerations = { VEX_ENUMERATIONS(VEX_ENUM_INFO) };
#undef VEX_ENUM_INFO

} // namespace

std::span<const EnumInfo> Enumerations() { return kEnumerations; }

const EnumInfo* FindEnumeration(std::string_view name)
{
    for (const EnumInfo& info : kEnumerations)
        if (info.name == name)
            return &info;
    return nullptr;
}

std::string_view MemberName(const EnumInfo& info, int32_t value)
{
    for (const EnumMember& member : info.members)
        if (member.value == value)
            return member.name;
    return {};
}

} // namespace vex::model
