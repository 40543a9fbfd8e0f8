#pragma once
// Rendered panels laid out on one light page, each framed, with its label centred under it: the
// gallery's contact sheet and the property reference's strips.

#include <span>
#include <string>

#include "platform/dib.h"

namespace vex::cli {

struct LabelledImage {
    const platform::Dib* image;
    std::string label;
};

// Cells as wide and high as the largest image, `columns` to a row.
platform::Dib ContactSheet(std::span<const LabelledImage> cells, int32_t columns);

} // namespace vex::cli
