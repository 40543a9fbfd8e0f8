// DrawControl: every paint of the panel. It prepares the paint state, then calls the painters of
// the current appearance in their fixed order.
#include "control/vex_panel.h"
#include "render/painters.h"

namespace vex::control {

void VexPanel::DrawControl(bool OptionCLS)
{
    // At design time the window stays enabled whatever Enabled says.
    surface_.SetWindowEnabled(host_.UserMode() ? props_.Enabled : true);

    // The panel's Font is the context's (ForeColor is set with the rest of the preparation).
    surface_.Dc().SelectFont(props_.Font);
    render::PaintContext context = Context();
    render::PreparePaint(context, OptionCLS);
    render::PaintLayers(context);
}

} // namespace vex::control
