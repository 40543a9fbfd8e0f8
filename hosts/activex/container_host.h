#pragma once
// The container's services as the panel asks for them (control::Host) and the panel's window
// (control::ControlSurface), for a control that lives in a COM container.
//
// Until a container gives the control a window, the panel paints into a memory surface of the
// control's extent, and the window queries answer for no window at all. Timers are the thread's
// own (SetTimer without a window): they tick while the container's thread pumps messages.

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control/control_surface.h"
#include "control/host.h"

namespace vex::activex {

// The form of the container; its Activate and Unload reach the connected panels.
class ContainerForm : public control::ParentForm {
public:
    void Connect(control::FormEventSink* sink) override { sinks_.push_back(sink); }
    void Disconnect(control::FormEventSink* sink) override { std::erase(sinks_, sink); }
    void Activate();
    void Unload();

private:
    std::vector<control::FormEventSink*> sinks_;
};

class ContainerHost : public control::Host {
public:
    bool UserMode() override { return userMode; }
    platform::FontDesc AmbientFont() override { return ambientFont; }
    std::string AmbientDisplayName() override { return displayName; }
    void PropertyChanged(const std::string& name) override;
    int32_t MessageBox(const std::string& text, const std::string& title, int32_t flags) override;
    void ShowAboutBox() override;
    void DoEvents() override;
    void SetExtenderVisible(bool visible) override { }
    std::unique_ptr<control::HostTimer> CreateTimer(std::function<void()> tick) override;
    control::ParentForm& Parent() override { return form; }
    platform::PictureRef CaptureBehind(int32_t width, int32_t height) override;

    // The ambient properties as the container last gave them.
    bool userMode = true;
    platform::FontDesc ambientFont;
    std::string displayName = "VexPanel1";
    HWND owner = nullptr; // the window that owns the control's dialogs
    ContainerForm form;
    std::function<void(const std::string&)> onPropertyChanged;
};

class ControlWindow : public control::ControlSurface {
public:
    explicit ControlWindow(platform::Size size);

    platform::DeviceContext& Dc() override { return *dc_; }
    int32_t hDC() override;
    int32_t hWnd() override { return 0; }
    platform::Size ClientSize() override { return size_; }
    double ScaleWidth() override { return size_.width; }
    double ScaleHeight() override { return size_.height; }
    void Refresh() override { }
    void SetWindowEnabled(bool enabled) override { enabled_ = enabled; }
    bool WindowEnabled() override { return enabled_; }
    void SetCursor(int16_t pointer, const platform::PictureRef& icon) override { }
    void ReleaseWindowRegions() override { }
    platform::Point ClientToScreen(platform::Point point) override { return point; }
    platform::Point CursorPos() override;
    int32_t WindowFromPoint(platform::Point screenPoint) override;

    // A new extent: a memory surface of that size, black until painted.
    void Resize(platform::Size size);

private:
    std::unique_ptr<platform::DeviceContext> dc_;
    platform::Size size_;
    bool enabled_ = true;
};

// UTF-8 <-> UTF-16, as the panel keeps text and Windows takes it.
std::wstring Wide(std::string_view text);
std::string Narrow(const wchar_t* text, size_t length);

} // namespace vex::activex
