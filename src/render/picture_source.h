#pragma once
// The memory context a picture is drawn from, for as long as one painter call: a bitmap picture
// is selected into it as it is; an icon is first drawn at its own size onto a new bitmap filled
// with the panel's back colour, which then serves as the icon's transparent key.

#include <cstdint>
#include <memory>

#include "platform/device_context.h"
#include "platform/picture.h"

namespace vex::render {

class PictureSource {
public:
    // width x height is the size of the icon's bitmap (ignored for bitmaps).
    PictureSource(platform::DeviceContext& surface, const platform::Picture& picture, int32_t width, int32_t height,
        ColorRef backColour);

    platform::DeviceContext& dc() { return *memory_; }
    bool isIcon() const { return isIcon_; }

private:
    std::unique_ptr<platform::DeviceContext> memory_;
    bool isIcon_;
};

// Converts a HiMetric picture size to pixels as the host's scale conversion does, rounded
// half to even.
int32_t PicturePixels(int32_t hiMetric);

inline constexpr ColorRef kOptionPicKey = 0x00D8E9EC; // red 236, green 233, blue 216

} // namespace vex::render
