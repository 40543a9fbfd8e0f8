#pragma once
// The dispatch identifiers of the panel's automation interface and events, kept for the
// automation layer: every property (from the property table), method and event by its exact
// name, in interface order.

#include <cstdint>
#include <span>
#include <string_view>

#include "model/property_table.h"

namespace vex::model {

enum class MemberKind { Property, Method, Event };

// A parameter of a method (by value) or of an event (by reference).
struct Parameter {
    std::string_view name;
    ValueKind kind;
};

struct DispatchMember {
    std::string_view name;
    MemberKind kind = MemberKind::Property;
    int32_t dispid = 0;
    bool readOnly = false; // properties: Get only (hWnd, hDC)
    bool hidden = false;
    uint16_t flags = 0;    // properties: the table's PropertyFlag bits
    std::span<const Parameter> parameters {}; // methods and events
    bool returnsVariant = false;              // methods: Acerca's (always Empty) result
};

// Properties and methods in the order of the default interface.
std::span<const DispatchMember> InterfaceMembers();

// The events of the outgoing interface, in order (Click = 1 ... MouseEnter = 10).
std::span<const DispatchMember> EventMembers();

// The member called name (properties, methods, then events), or nullptr.
const DispatchMember* FindMember(std::string_view name);

inline constexpr int32_t kDispidCaption = -518;  // the standard caption identifier
inline constexpr int32_t kDispidAboutBox = -552; // the standard about-box identifier
inline constexpr int32_t kDispidValue = 0;       // the default member

} // namespace vex::model
