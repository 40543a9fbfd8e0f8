#include <vexpanel/vex_panel.h>

// A panel painted on the headless host: the colour of a pixel inside its border, or -1.
extern "C" int ConsumerPaint()
{
    static_assert(VEXPANEL_VERSION_MAJOR >= 0);
    vex::control::HeadlessHost host;
    vex::control::HeadlessSurface surface({ 60, 30 });
    vex::control::VexPanel panel(host, surface);
    panel.setBackColor(0x00336699);
    panel.setCaption("");
    panel.OnResize();
    panel.OnShow();
    panel.OnPaint();
    return static_cast<int>(surface.Dc().GetPixel(30, 15));
}
