#pragma once
// The host's run-time error that `action` raises. Every test that checks "raises error N" goes
// through these two helpers.

#include <cstdint>
#include <string>
#include <utility>

#include "base/runtime_error.h"

namespace vex::testing {

// The error's number and description; { 0, "" } when `action` raises none.
inline std::pair<int32_t, std::string> ErrorRaisedBy(auto&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return { error.number(), error.description() };
    }
    return { 0, "" };
}

// The error's number, 0 when `action` raises none.
inline int32_t RaisedBy(auto&& action) { return ErrorRaisedBy(action).first; }

} // namespace vex::testing
