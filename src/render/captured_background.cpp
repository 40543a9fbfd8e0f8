// The transparent back style: the panel hides itself, lets its parent repaint the area it
// covered, and takes a copy of those pixels - once per panel instance - which it then puts on
// its own surface under everything else. Moving or resizing the panel later keeps the first
// copy.

#include "base/numeric.h"
#include "render/painters.h"

namespace vex::render {

void DrawCapturedBackground(PaintContext& context)
{
    PaintServices& services = context.services;
    PainterMemory& memory = context.memory;

    services.SetExtenderVisible(false);
    services.DoEvents();
    if (!memory.backgroundCaptured) {
        const platform::Size client = services.ClientSize();
        memory.capturedBackground = services.CaptureBehind(client.width, client.height);
        memory.backgroundCaptured = true;
    }
    services.DoEvents();
    services.SetExtenderVisible(true);

    if (memory.capturedBackground) {
        platform::DeviceContext& surface = services.Dc();
        auto source = surface.CreateCompatibleDC();
        source->SelectBitmap(surface.BitmapOf(*memory.capturedBackground));
        surface.BitBlt(0, 0, CLng(services.ScaleWidth()), CLng(services.ScaleHeight()), *source, 0, 0);
    }
    services.Refresh();
}

} // namespace vex::render
