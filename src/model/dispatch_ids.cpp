#include "model/dispatch_ids.h"

#include <array>

#include "model/property_table.h"

namespace vex::model {

namespace {

constexpr auto M = MemberKind::Method;
constexpr auto E = MemberKind::Event;

constexpr Parameter kDrawControl[] = { { "OptionCLS", ValueKind::Boolean } };
constexpr Parameter kKey[] = { { "KeyCode", ValueKind::Int16 }, { "Shift", ValueKind::Int16 } };
constexpr Parameter kKeyAscii[] = { { "KeyAscii", ValueKind::Int16 } };
constexpr Parameter kMouse[] = { { "Button", ValueKind::Int16 }, { "Shift", ValueKind::Int16 },
    { "x", ValueKind::Single }, { "y", ValueKind::Single } };

// The properties in table order, with the methods where the interface places them: Refresh
// after BackStyle, Acerca and DrawControl after Panel3DBorderColor.
constexpr auto kInterface = [] {
    std::array<DispatchMember, kPropertyCount + 3> members {};
    size_t at = 0;
    for (const PropertyInfo& info : kProperties) {
        members[at++] = DispatchMember { info.name, MemberKind::Property, info.dispid,
            info.rule == SetRule::ReadOnly, info.Has(Hidden), info.flags };
        if (info.name == "BackStyle")
            members[at++] = DispatchMember { "Refresh", M, 0x60030041 };
        if (info.name == "Panel3DBorderColor") {
            members[at++] = DispatchMember { "Acerca", M, kDispidAboutBox, false, false, 0, {}, true };
            members[at++] = DispatchMember { "DrawControl", M, 0x60030078, false, false, 0, kDrawControl };
        }
    }
    return members;
}();

static_assert(kInterface.back().name == "BackColor", "every method found its place");
static_assert(Info(PropertyId::Caption).dispid == kDispidCaption && Info(PropertyId::CaptionText).dispid == kDispidValue);

constexpr std::array kEvents = {
    DispatchMember { "Click", E, 1 },
    DispatchMember { "DblClick", E, 2 },
    DispatchMember { "KeyDown", E, 3, false, false, 0, kKey },
    DispatchMember { "KeyPress", E, 4, false, false, 0, kKeyAscii },
    DispatchMember { "KeyUp", E, 5, false, false, 0, kKey },
    DispatchMember { "MouseDown", E, 6, false, false, 0, kMouse },
    DispatchMember { "MouseMove", E, 7, false, false, 0, kMouse },
    DispatchMember { "MouseUp", E, 8, false, false, 0, kMouse },
    DispatchMember { "MouseExit", E, 9, false, false, 0, kMouse },
    DispatchMember { "MouseEnter", E, 10, false, false, 0, kMouse },
};

} // namespace

std::span<const DispatchMember> InterfaceMembers() { return kInterface; }
std::span<const DispatchMember> EventMembers() { return kEvents; }

const DispatchMember* FindMember(std::string_view name)
{
    for (const DispatchMember& member : kInterface)
        if (member.name == name)
            return &member;
    for (const DispatchMember& member : kEvents)
        if (member.name == name)
            return &member;
    return nullptr;
}

} // namespace vex::model
