#pragma once
// The container services of a Qt program: timers are QTimers, message boxes and the About box
// are Qt dialogs, DoEvents runs the event loop once, the parent form is the widget's top-level
// window (its activation and closing are the form's Activate and Unload), and what lies behind
// the control is what its parent and siblings paint there.

#include <functional>
#include <vector>

#include <QObject>
#include <QPointer>

#include "control/host.h"

class QWidget;

namespace vex::qt {

// The top-level window that holds the widget, watched for activation and closing.
class QtForm final : public QObject, public control::ParentForm {
public:
    explicit QtForm(QWidget& widget);
    void Connect(control::FormEventSink* sink) override { sinks_.push_back(sink); }
    void Disconnect(control::FormEventSink* sink) override { std::erase(sinks_, sink); }
    // Watches the widget's top-level window as it is now (after it was shown or reparented).
    void Follow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& widget_;
    QPointer<QWidget> window_;
    std::vector<control::FormEventSink*> sinks_;
};

class QtHost final : public control::Host {
public:
    explicit QtHost(QWidget& widget);

    bool UserMode() override { return userMode; }
    platform::FontDesc AmbientFont() override;
    std::string AmbientDisplayName() override;
    void PropertyChanged(const std::string& name) override;
    int32_t MessageBox(const std::string& text, const std::string& title, int32_t flags) override;
    void ShowAboutBox() override;
    void DoEvents() override;
    void SetExtenderVisible(bool visible) override;
    std::unique_ptr<control::HostTimer> CreateTimer(std::function<void()> tick) override;
    control::ParentForm& Parent() override { return form; }
    platform::PictureRef CaptureBehind(int32_t width, int32_t height) override;

    bool userMode = true;
    // Called on every property change with the property's name.
    std::function<void(const std::string&)> onPropertyChanged;
    // Replaces the dialog (tests, tools): gets text, title and flags, returns the button.
    std::function<int32_t(const std::string&, const std::string&, int32_t)> messageBoxHandler;
    QtForm form;

private:
    QWidget& widget_;
};

} // namespace vex::qt
