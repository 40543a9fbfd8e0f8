#pragma once
// VexPanelWidget: a QWidget that owns a panel and is its container. The panel paints into a
// persistent picture that paintEvent presents; Qt's resizes, input and timers reach the panel as
// its own notifications; the top-level window is the panel's parent form.
//
// The panel's events are signals under their own names. Their parameters are references, as the
// panel raises them: a slot connected with Qt::DirectConnection (the default for objects of one
// thread) may change them, and the panel sees the changed values when the signal returns. A
// queued connection cannot carry references.

#include <memory>

#include <QString>

#include "qt/vex_panel_properties.h"

namespace vex::control {
class VexPanel;
}

namespace vex::qt {

class QtHost;
class QtSurface;

class VexPanelWidget : public VexPanelProperties {
    Q_OBJECT

public:
    explicit VexPanelWidget(QWidget* parent = nullptr);
    ~VexPanelWidget() override;

    control::VexPanel& panel();

    // Run mode (the default) or design time; set before loading.
    void setUserMode(bool userMode);
    bool userMode() const;

    // A saved panel (.vxp). On failure the panel keeps what it had and error, when given, says
    // why (the host's run-time error text).
    bool loadVxp(const QString& file, QString* error = nullptr);
    bool saveVxp(const QString& file, QString* error = nullptr);

    // Message boxes go to handler instead of a dialog (tests, tools); an empty one restores the
    // dialogs. The handler returns the button pressed.
    void setMessageBoxHandler(std::function<int(const QString& text, const QString& title, int flags)> handler);

    QSize sizeHint() const override { return QSize(120, 40); }

signals:
    void Click();
    void DblClick();
    void KeyDown(qint16& KeyCode, qint16& Shift);
    void KeyPress(qint16& KeyAscii);
    void KeyUp(qint16& KeyCode, qint16& Shift);
    void MouseDown(qint16& Button, qint16& Shift, float& x, float& y);
    void MouseMove(qint16& Button, qint16& Shift, float& x, float& y);
    void MouseUp(qint16& Button, qint16& Shift, float& x, float& y);
    void MouseExit(qint16& Button, qint16& Shift, float& x, float& y);
    void MouseEnter(qint16& Button, qint16& Shift, float& x, float& y);
    // The panel's "property changed" notification, with the property's name.
    void propertyChanged(const QString& name);

protected:
    control::VexPanel& PropertyPanel() const override { return *panel_; }
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    class Events;
    void Relay(QMouseEvent* event, void (control::VexPanel::*notify)(int16_t, int16_t, float, float),
        int16_t button);
    void Restart();
    void Changed(const std::string& name);

    std::unique_ptr<QtHost> host_;
    std::unique_ptr<QtSurface> surface_;
    std::unique_ptr<Events> events_;
    std::unique_ptr<control::VexPanel> panel_;
    bool doubleClicked_ = false;
};

} // namespace vex::qt
