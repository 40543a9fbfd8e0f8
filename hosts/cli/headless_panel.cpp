#include "headless_panel.h"

#include "control/null_device_context.h"

namespace vex::cli {

// FIXME: draws into a null device context until the software drawing layer is on main; new and
// props need no pixels.
HeadlessPanel::HeadlessPanel(platform::Size clientSize)
    : surface(std::make_unique<control::NullDeviceContext>(clientSize), clientSize)
    , panel(host, surface)
{
    surface.OnRefresh([this] { panel.OnPaint(); });
}

} // namespace vex::cli
