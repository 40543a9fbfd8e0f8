#pragma once
// A panel on the headless host, as the command line uses it: a HeadlessHost, a headless surface and
// the control, in the right order of construction and destruction.

#include <memory>

#include "headless/headless_surface.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"

namespace vex::cli {

struct HeadlessPanel {
    explicit HeadlessPanel(platform::Size clientSize = { 120, 40 });

    control::HeadlessHost host;
    control::HeadlessSurface surface;
    control::VexPanel panel;
};

} // namespace vex::cli
