#pragma once
// What the drawing layer needs to know of a font: the face name and the host font object's
// facets. Sizes are in points; the device turns them into a cell height of
// -round(points * 96 / 72) pixels, as CreateFont is called for a 96-dpi screen.

#include <string>

namespace vex::platform {

struct FontDesc {
    std::string name = "MS Sans Serif";
    float size = 8.25f; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;

    friend bool operator==(const FontDesc&, const FontDesc&) = default;
};

} // namespace vex::platform
