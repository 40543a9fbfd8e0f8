// DrawControl: every paint of the panel. It prepares the paint state, then calls the painters of
// the current appearance in their fixed order.
#include "control/vex_panel.h"
#include "render/background_coverage.h"
#include "render/colour.h"
#include "render/painters.h"

namespace vex::control {

void VexPanel::DrawControl(bool OptionCLS)
{
    host_.DrawControlCalled(OptionCLS);
    // The clear is left out when the appearance's background is about to paint every pixel
    // anyway: the result is the same, and a clear costs as much as the background itself.
    if (OptionCLS && !BackgroundCoversClient())
        surface_.Cls();

    paint_.SysColors = render::PrepareSysColors(surface_.Dc());
    surface_.SetBackColor(surface_.BackColor());
    surface_.SetForeColor(props_.ForeColor);
    // Captions are drawn over the layers below them, and the square gradients leave only their
    // outlines: the surface draws text transparently and fills with a hollow brush, whatever the
    // host's device context started with.
    surface_.Dc().SetBkMode(platform::kBkTransparent);
    surface_.Dc().SelectBrush(platform::Brush::Hollow());
    // At design time the window stays enabled whatever Enabled says.
    surface_.SetWindowEnabled(host_.UserMode() ? props_.Enabled : true);

    platform::Size client = surface_.ClientSize();
    paint_.ClientRect = platform::Rect { 0, 0, client.width, client.height };
    paint_.ClientWidth = paint_.ClientRect.right;
    paint_.ClientHeight = paint_.ClientRect.bottom;

    render::PaintContext context = Context();
    if (paint_.CaptureBackground == 1)
        render::DrawCapturedBackground(context);

    render::PaintLayers(context);
}

bool VexPanel::BackgroundCoversClient()
{
    render::PaintState state = paint_;
    const platform::Size client = surface_.ClientSize();
    state.ClientWidth = client.width;
    state.ClientHeight = client.height;
    return render::BackgroundCoversClient(props_, state, surface_.ScaleWidth(), surface_.ScaleHeight());
}

} // namespace vex::control
