#pragma once
// Entry points of the GDI backend that need no Windows header.

#include <cstdint>
#include <memory>

#include "platform/device_context.h"

namespace vex::platform::win32 {

// A fresh drawing surface: a memory DC with a 32-bit top-down DIB section of the given size
// selected, filled with black (as a new DIB section is). The same role as soft::CreateSurface.
std::unique_ptr<DeviceContext> CreateSurface(int32_t width, int32_t height);

// A visible top-level window of the given client size (no frame), drawn through its window DC,
// filled with black: the kind of surface an ActiveX container gives. The window is destroyed
// with the context.
std::unique_ptr<DeviceContext> CreateWindowSurface(int32_t width, int32_t height);

} // namespace vex::platform::win32
