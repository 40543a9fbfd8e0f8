#pragma once
// The painters' view of the panel's surface and container (render::PaintServices), built over
// the control's Host, its ControlSurface and its property store.

#include "control/control_surface.h"
#include "control/host.h"
#include "render/panel_state.h"

namespace vex::control {

class PanelServices : public render::PaintServices {
public:
    PanelServices(Host& host, ControlSurface& surface, const model::PanelProperties& props)
        : host_(host), surface_(surface), props_(props) { }

    platform::DeviceContext& Dc() override { return surface_.Dc(); }
    platform::Size ClientSize() override { return surface_.ClientSize(); }
    double ScaleWidth() override { return surface_.ScaleWidth(); }
    double ScaleHeight() override { return surface_.ScaleHeight(); }
    ColorRef BackColorRgb() override;
    platform::FontDesc Font() override { return props_.Font; }
    void DoEvents() override { host_.DoEvents(); }
    void SetExtenderVisible(bool visible) override { host_.SetExtenderVisible(visible); }
    void Refresh() override { surface_.Refresh(); }
    platform::PictureRef CaptureBehind(int32_t width, int32_t height) override { return host_.CaptureBehind(width, height); }
    void MessageBox(const std::string& text, const std::string& title, int32_t flags) override
    {
        host_.MessageBox(text, title, flags);
    }

private:
    Host& host_;
    ControlSurface& surface_;
    const model::PanelProperties& props_;
};

} // namespace vex::control
