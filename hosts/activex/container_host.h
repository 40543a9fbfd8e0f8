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
#include "control/vex_panel.h"

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

class ControlWindow;

class ContainerHost : public control::Host {
public:
    bool UserMode() override { return userMode; }
    platform::FontDesc AmbientFont() override { return ambientFont; }
    std::string AmbientDisplayName() override { return displayName; }
    void PropertyChanged(const std::string& name) override;
    int32_t MessageBox(const std::string& text, const std::string& title, int32_t flags) override;
    void ShowAboutBox() override;
    void DoEvents() override;
    void SetExtenderVisible(bool visible) override;
    std::unique_ptr<control::HostTimer> CreateTimer(std::function<void()> tick) override;
    control::ParentForm& Parent() override { return form; }
    platform::PictureRef CaptureBehind(int32_t width, int32_t height) override;

    // The ambient properties as the container last gave them.
    bool userMode = true;
    platform::FontDesc ambientFont;
    std::string displayName = "VexPanel1";
    HWND owner = nullptr; // the window that owns the control's dialogs
    ControlWindow* window = nullptr; // the control's window (visibility, capture)
    ContainerForm form;
    std::function<void(const std::string&)> onPropertyChanged;
};

// The panel's window. The picture the panel paints is kept in a memory surface of the client
// size (the persistent picture); the window presents it on WM_PAINT and on Refresh. Until a
// container gives the control a window (in-place activation), only the memory surface exists
// and the window queries answer for no window at all.
class ControlWindow : public control::ControlSurface {
public:
    // What the window relays to its owner: the panel's notifications and input.
    struct Owner {
        virtual ~Owner() = default;
        virtual control::VexPanel* Panel() = 0;
        virtual void OnWindowFocus(bool gained) = 0;
    };

    ControlWindow(Owner& owner, platform::Size size);
    ~ControlWindow() override;

    // The panel asks for the context to draw into the picture: the window shows the picture again
    // once the thread is idle, as a window that keeps a persistent picture does.
    platform::DeviceContext& Dc() override;
    int32_t hDC() override;
    int32_t hWnd() override;
    platform::Size ClientSize() override { return size_; }
    double ScaleWidth() override { return size_.width; }
    double ScaleHeight() override { return size_.height; }
    void Refresh() override;
    void SetWindowEnabled(bool enabled) override;
    bool WindowEnabled() override;
    void SetCursor(int16_t pointer, const platform::PictureRef& icon) override;
    void ReleaseWindowRegions() override;
    platform::Point ClientToScreen(platform::Point point) override;
    platform::Point CursorPos() override;
    int32_t WindowFromPoint(platform::Point screenPoint) override;

    // A new size: a memory surface of that size (black until painted) and the window moved.
    void Resize(platform::Size size);
    // Makes the window, a child of parent at rect (client pixels of the parent); the panel gets
    // Resize and Show as a form gives them.
    bool Create(HWND parent, const RECT& rect);
    void Destroy();
    HWND handle() const { return window_; }
    void Show(bool visible);
    // The parent's pixels under the window (its window DC), width x height from its origin.
    platform::PictureRef CaptureParent(int32_t width, int32_t height);
    // Copies the picture into another device context (a container's, for IViewObject::Draw).
    void DrawInto(HDC target, const RECT& bounds);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void Present(HDC target);

    Owner& owner_;
    std::unique_ptr<platform::DeviceContext> dc_;
    std::unique_ptr<platform::DeviceContext> previous_; // the context before the last resize
    platform::Size size_;
    HWND window_ = nullptr;
    bool enabled_ = true;
    int16_t pointer_ = 0;
    HCURSOR customCursor_ = nullptr;
};

// UTF-8 <-> UTF-16, as the panel keeps text and Windows takes it.
std::wstring Wide(std::string_view text);
std::string Narrow(const wchar_t* text, size_t length);

} // namespace vex::activex
