#pragma once
// Small helpers for the software layer's pixel tests.

#include <memory>
#include <set>
#include <string>
#include <utility>

#include "platform/soft/soft_device_context.h"

namespace vex::platform::soft::testing {

using PixelSet = std::set<std::pair<int32_t, int32_t>>; // (x, y)

// A surface filled with white, so that anything drawn in black shows.
std::unique_ptr<SoftDeviceContext> WhiteSurface(int32_t width, int32_t height);

// The coordinates of every pixel that is not `background`.
PixelSet PaintedPixels(const DeviceContext& dc, ColorRef background = 0xFFFFFF);

// A memory context holding a new bitmap of the given size, filled with one colour.
std::unique_ptr<DeviceContext> MemoryWith(DeviceContext& compatible, int32_t width, int32_t height, ColorRef fill);

std::string Describe(const PixelSet& pixels);

} // namespace vex::platform::soft::testing
