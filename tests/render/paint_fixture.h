#pragma once
// A panel's painter inputs around a software surface: properties, paint state, painter memory
// and the services a control would give, recording what the painters ask of the host.

#include <memory>
#include <string>
#include <vector>

#include "platform/soft/soft_device_context.h"
#include "render/colour.h"
#include "render/painters.h"

namespace vex::render::testing {

class TestServices : public PaintServices {
public:
    TestServices(int32_t width, int32_t height) : surface(platform::soft::SoftDeviceContext::CreateSurface(width, height))
    {
        surface->SelectBrush(platform::Brush::Hollow()); // the panel's transparent fill style
        surface->SetBkMode(platform::kBkTransparent);
    }

    platform::DeviceContext& Dc() override { return dc ? *dc : *surface; }
    platform::Size ClientSize() override { return surface->Extent(); }
    double ScaleWidth() override { return surface->Extent().width; }
    double ScaleHeight() override { return surface->Extent().height; }
    ColorRef BackColorRgb() override { return backColor; }
    platform::FontDesc Font() override { return {}; }
    void DoEvents() override { log.push_back("DoEvents"); }
    void SetExtenderVisible(bool visible) override { log.push_back(visible ? "Show" : "Hide"); }
    void Refresh() override { log.push_back("Refresh"); }
    platform::PictureRef CaptureBehind(int32_t width, int32_t height) override
    {
        log.push_back("Capture " + std::to_string(width) + "x" + std::to_string(height));
        return behind;
    }
    void MessageBox(const std::string& text, const std::string&, int32_t) override { log.push_back("MsgBox " + text); }

    std::unique_ptr<platform::soft::SoftDeviceContext> surface;
    platform::DeviceContext* dc = nullptr; // a decorator in front of the surface, when set
    ColorRef backColor = Rgb(212, 208, 200);
    platform::PictureRef behind;
    std::vector<std::string> log;
};

struct Panel {
    Panel(int32_t width, int32_t height) : services(width, height) { Prepare(); }

    // What DrawControl does before the painters (no clear: a test fills the surface itself).
    void Prepare()
    {
        PaintContext context = Context();
        PreparePaint(context, false);
    }

    void Fill(ColorRef colour)
    {
        const platform::Size size = services.surface->Extent();
        services.surface->FillRect(platform::Rect { 0, 0, size.width, size.height }, platform::Brush::Solid(colour));
    }

    ColorRef Pixel(int32_t x, int32_t y) const { return services.surface->GetPixel(x, y); }
    ColorRef Sys(int index) const { return services.surface->GetSysColor(index); }

    PaintContext Context() { return PaintContext { props, state, memory, services }; }

    PanelProperties props;
    PaintState state;
    PainterMemory memory;
    TestServices services;
};

// A bitmap picture whose pixel (x, y) is colourOf(x, y).
template <typename ColourOf>
platform::PictureRef MakePicture(int32_t width, int32_t height, ColourOf colourOf)
{
    platform::Dib dib(width, height, 32);
    for (int32_t y = 0; y < height; ++y) {
        uint8_t* row = dib.row(y);
        for (int32_t x = 0; x < width; ++x) {
            const ColorRef c = colourOf(x, y);
            row[4 * x] = static_cast<uint8_t>(BlueOf(c));
            row[4 * x + 1] = static_cast<uint8_t>(GreenOf(c));
            row[4 * x + 2] = static_cast<uint8_t>(RedOf(c));
        }
    }
    return platform::Picture::FromBitmap(std::move(dib));
}

} // namespace vex::render::testing
