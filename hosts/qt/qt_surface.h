#pragma once
// The panel's window in Qt: the widget's client area, painted by the software drawing layer into
// a persistent picture that the widget presents. Taking the device context may change the
// picture, so it schedules a present; Refresh presents and never paints.

#include <memory>

#include <QImage>

#include "control/control_surface.h"
#include "platform/soft/soft_device_context.h"

class QWidget;

namespace vex::qt {

class QtSurface final : public control::ControlSurface {
public:
    explicit QtSurface(QWidget& widget);

    platform::DeviceContext& Dc() override;
    int32_t hDC() override { return hdc_; }
    int32_t hWnd() override { return hwnd_; }
    platform::Size ClientSize() override { return size_; }
    double ScaleWidth() override { return size_.width; }
    double ScaleHeight() override { return size_.height; }

    // The cursor shown over the window: a standard pointer code, or with 99 the icon.
    void SetCursor(int16_t pointer, const platform::PictureRef& icon) override;

    void Refresh() override;
    void SetWindowEnabled(bool enabled) override;
    bool WindowEnabled() override;
    void ReleaseWindowRegions() override { }

    platform::Point ClientToScreen(platform::Point point) override;
    platform::Point CursorPos() override;
    int32_t WindowFromPoint(platform::Point screenPoint) override;

    // ---- For the widget -------------------------------------------------------------------------
    void Resize(platform::Size size);
    // The picture as it stands, opaque (the fourth byte of the drawing layer is not a colour).
    const QImage& Picture();
    // Whether anything has been painted since the surface was made or resized.
    bool Painted() const { return painted_; }

private:
    QWidget& widget_;
    std::unique_ptr<platform::soft::SoftDeviceContext> dc_;
    platform::Size size_;
    int32_t hwnd_;
    int32_t hdc_;
    QImage picture_;
    bool painted_ = false;
    bool pictureStale_ = true;
};

} // namespace vex::qt
