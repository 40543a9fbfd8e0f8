#pragma once
// The headless container, for programs without a window system (the command line, tests): a
// manual clock drives the timers (nothing sleeps), the program drives the parent form's Activate
// and Unload, user mode and the extender's Visible, and the pixels behind the control come from
// a backdrop image. What the panel tells its container (property changes, message boxes, About
// boxes, DoEvents) is kept for the program to read. The cursor and the windows on the screen
// are the surface's (HeadlessSurface).

#include <functional>
#include <string>
#include <vector>

#include "control/host.h"
#include "platform/geometry.h"

namespace vex::control {

struct MessageBoxCall {
    std::string text;
    std::string title;
    int32_t flags;
};

// The parent form: Activate and Unload reach every connected panel.
class HeadlessForm : public ParentForm {
public:
    void Connect(FormEventSink* sink) override { sinks_.push_back(sink); }
    void Disconnect(FormEventSink* sink) override { std::erase(sinks_, sink); }
    void Activate();
    void Unload();
    size_t ConnectionCount() const { return sinks_.size(); }

private:
    std::vector<FormEventSink*> sinks_;
};

class HeadlessHost : public Host {
public:
    HeadlessHost();
    ~HeadlessHost() override;

    // ---- Host --------------------------------------------------------------------------------------
    bool UserMode() override { return userMode; }
    platform::FontDesc AmbientFont() override { return ambientFont; }
    std::string AmbientDisplayName() override { return displayName; }
    void PropertyChanged(const std::string& name) override { notifications.push_back(name); }
    int32_t MessageBox(const std::string& text, const std::string& title, int32_t flags) override;
    void ShowAboutBox() override;
    void DoEvents() override;
    void SetExtenderVisible(bool visible) override { extenderVisible = visible; }
    std::unique_ptr<HostTimer> CreateTimer(std::function<void()> tick) override;
    ParentForm& Parent() override;
    platform::PictureRef CaptureBehind(int32_t width, int32_t height) override;

    // ---- The manual clock ----------------------------------------------------------------------------
    // Runs every timer tick due within the next milliseconds, in time order.
    void Advance(int64_t milliseconds);
    int64_t Now() const { return now_; }

    // ---- Settings ------------------------------------------------------------------------------------
    bool userMode = true;
    bool parentIsForm = true;       // false: the control sits on another kind of container
    platform::FontDesc ambientFont; // "MS Sans Serif" 8.25
    std::string displayName = "VexPanel1";
    bool extenderVisible = true;
    std::function<void()> onDoEvents; // pending messages that DoEvents lets run
    platform::PictureRef backdrop;    // the parent's pixels, for CaptureBehind
    platform::Point controlOffset;    // where the control's client origin lies on the backdrop
    HeadlessForm form;

    // ---- What the panel did ----------------------------------------------------------------------------
    std::vector<std::string> notifications;
    std::vector<MessageBoxCall> messageBoxes;
    std::vector<MessageBoxCall> aboutBoxes; // the About box's text and title, Information icon
    int doEventsCalls = 0;
    int captures = 0;
    void ClearRecords();

private:
    class Timer;
    friend class Timer;
    std::vector<Timer*> timers_;
    int64_t now_ = 0;
};

} // namespace vex::control
