#include "control/panel_services.h"

#include "render/colour.h"

namespace vex::control {

ColorRef PanelServices::BackColorRgb() { return render::TranslateColor(props_.BackColor, surface_.Dc()); }

} // namespace vex::control
