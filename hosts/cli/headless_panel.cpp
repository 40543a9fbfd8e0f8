#include "headless_panel.h"

namespace vex::cli {

HeadlessPanel::HeadlessPanel(platform::Size clientSize)
    : surface(clientSize)
    , panel(host, surface)
{
}

} // namespace vex::cli
