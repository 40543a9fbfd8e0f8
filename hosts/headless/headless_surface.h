#pragma once
// The control surface without a window system: a device context in memory (any implementation
// of the drawing layer), the cursor it was told to show, and a simulated screen with the control
// at ScreenOrigin, child windows placed on it, and the cursor position.

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "control/control_surface.h"

namespace vex::control {

class HeadlessSurface : public ControlSurface {
public:
    // The window handle the simulated screen reports where no window of the control is.
    static constexpr int32_t kDesktopWindow = 1;

    // A surface painted by the software drawing layer (black until painted).
#ifndef _WIN32
    // A surface of the software drawing layer (not part of the Windows build).
    explicit HeadlessSurface(platform::Size clientSize);
#endif
    // A surface over any device context (a test's recording one, say); SetClientSize then
    // changes only the reported size.
    HeadlessSurface(std::unique_ptr<platform::DeviceContext> dc, platform::Size clientSize);

    platform::DeviceContext& Dc() override { return *dc_; }
    int32_t hDC() override { return hdc_; }
    int32_t hWnd() override { return hwnd_; }
    platform::Size ClientSize() override { return clientSize_; }
    double ScaleWidth() override { return clientSize_.width; }
    double ScaleHeight() override { return clientSize_.height; }

    void Refresh() override; // presents what has been painted
    void SetWindowEnabled(bool enabled) override { windowEnabled_ = enabled; }
    bool WindowEnabled() override { return windowEnabled_; }
    void SetCursor(int16_t pointer, const platform::PictureRef& icon) override
    {
        cursorPointer_ = pointer;
        cursorIcon_ = icon;
    }
    void ReleaseWindowRegions() override { ++regionReleases_; }

    platform::Point ClientToScreen(platform::Point point) override;
    platform::Point CursorPos() override { return cursor_; }
    int32_t WindowFromPoint(platform::Point screenPoint) override;

    // ---- The simulation -----------------------------------------------------------------------
    // What the host does to show the picture on a refresh (the panel is not painted again).
    void OnPresent(std::function<void()> present) { onPresent_ = std::move(present); }
    void SetClientSize(platform::Size size);
    void SetScreenOrigin(platform::Point origin) { origin_ = origin; }
    void SetCursorPos(platform::Point screen) { cursor_ = screen; }
    // A child window over the control, in client coordinates; returns its handle.
    int32_t AddChildWindow(platform::Rect clientRect);
    // Some other top-level window covering this screen rectangle (above the control).
    int32_t AddCoveringWindow(platform::Rect screenRect);

    int16_t CursorPointer() const { return cursorPointer_; }
    const platform::PictureRef& CursorIcon() const { return cursorIcon_; }
    int RefreshCount() const { return refreshCount_; }
    int RegionReleases() const { return regionReleases_; }

private:
    struct Window {
        int32_t handle;
        platform::Rect screenRect;
    };

    std::unique_ptr<platform::DeviceContext> dc_;
    std::function<void(platform::Size)> resize_; // resizes a software surface with the client
    platform::Size clientSize_;
    int32_t hwnd_;
    int32_t hdc_;
    int16_t cursorPointer_ = 0;
    platform::PictureRef cursorIcon_;
    bool windowEnabled_ = true;
    platform::Point origin_ { 100, 100 };
    platform::Point cursor_ { 0, 0 };
    std::vector<Window> children_; // client coordinates, moved with the control
    std::vector<Window> covering_; // screen coordinates
    int32_t nextHandle_;
    std::function<void()> onPresent_;
    int refreshCount_ = 0;
    int regionReleases_ = 0;
};

} // namespace vex::control
