#pragma once
// The host's run-time error number that `action` raises, 0 when it raises none. Every test that
// checks "raises error N" goes through this one helper.

#include <cstdint>

#include "base/runtime_error.h"

namespace vex::testing {

inline int32_t RaisedBy(auto&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace vex::testing
