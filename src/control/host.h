#pragma once
// What the panel asks of its container: ambient properties, "property changed" notifications,
// message boxes, the message pump, the extender's Visible, timers, the parent form and the
// pixels behind the control. One implementation per host (HeadlessHost, Qt, ActiveX).

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/font.h"
#include "platform/picture.h"

namespace vex::control {

// A timer of the host's kind: ticks every Interval milliseconds while enabled; an interval of
// 0 never ticks. Setting the interval or enabling restarts the countdown.
class HostTimer {
public:
    virtual ~HostTimer() = default;
    virtual void SetInterval(int32_t milliseconds) = 0;
    virtual int32_t Interval() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Enabled() const = 0;
};

// Receives the parent form's events once the panel holds the form.
class FormEventSink {
public:
    virtual ~FormEventSink() = default;
    virtual void FormActivate() = 0;
    virtual void FormUnload() = 0;
};

// The form that holds the panel. It forwards its Activate and Unload to the connected sinks.
class ParentForm {
public:
    virtual ~ParentForm() = default;
    virtual void Connect(FormEventSink* sink) = 0;
    virtual void Disconnect(FormEventSink* sink) = 0;
};

// Message box flags as the host numbers them.
namespace mb {
inline constexpr int32_t OkOnly = 0;
inline constexpr int32_t Critical = 16;
inline constexpr int32_t Information = 64;
} // namespace mb

class Host {
public:
    virtual ~Host() = default;

    // ---- Ambient properties -------------------------------------------------------------------
    virtual bool UserMode() = 0;                    // true at run time, false at design time
    virtual platform::FontDesc AmbientFont() = 0;
    virtual std::string AmbientDisplayName() = 0;   // the instance's name on its form

    // ---- Notifications and dialogs ----------------------------------------------------------
    virtual void PropertyChanged(const std::string& name) = 0;
    virtual int32_t MessageBox(const std::string& text, const std::string& title, int32_t flags) = 0;
    virtual void ShowAboutBox() = 0;                 // the About box (pages/about_box.h), modal
    virtual void DoEvents() = 0;                     // let pending host messages run
    virtual void SetExtenderVisible(bool visible) = 0;

    // ---- Timers ---------------------------------------------------------------------------------
    // A timer created disabled with interval 0, calling tick on the host's thread.
    virtual std::unique_ptr<HostTimer> CreateTimer(std::function<void()> tick) = 0;

    // ---- The parent -----------------------------------------------------------------------------
    // The form that holds the control. Raises Type mismatch (13) when the parent is another kind
    // of container.
    virtual ParentForm& Parent() = 0;

    // The parent's pixels behind the control, width x height from the control's client origin.
    virtual platform::PictureRef CaptureBehind(int32_t width, int32_t height) = 0;
};

} // namespace vex::control
