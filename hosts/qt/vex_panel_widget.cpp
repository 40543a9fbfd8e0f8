#include "qt/vex_panel_widget.h"

#include <QKeyEvent>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPainter>

#include "base/runtime_error.h"
#include "control/memory_property_bag.h"
#include "control/vex_panel.h"
#include "control/vxp_format.h"
#include "qt/qt_host.h"
#include "qt/qt_surface.h"

namespace vex::qt {

namespace {

// A run-time error must not cross Qt's event loop: it is reported as an unhandled error would be.
template <typename Step>
void Guarded(Step step)
{
    try {
        step();
    } catch (const RuntimeError& error) {
        qWarning("VexPanelWidget: run-time error %d: %s", error.number(), error.what());
    }
}

int16_t ButtonOf(Qt::MouseButtons buttons)
{
    return static_cast<int16_t>((buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0)
        | (buttons & Qt::MiddleButton ? 4 : 0));
}

int16_t ShiftOf(Qt::KeyboardModifiers modifiers)
{
    return static_cast<int16_t>((modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0)
        | (modifiers & Qt::AltModifier ? 4 : 0));
}

// Qt's key as the host's key code (the virtual-key numbers); 0 for keys it has none for.
int16_t KeyCodeOf(int key)
{
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return static_cast<int16_t>(key); // the same numbers
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<int16_t>(112 + (key - Qt::Key_F1));
    switch (key) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab: case Qt::Key_Backtab: return 9;
    case Qt::Key_Clear: return 12;
    case Qt::Key_Return: case Qt::Key_Enter: return 13;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Control: return 17;
    case Qt::Key_Alt: return 18;
    case Qt::Key_Pause: return 19;
    case Qt::Key_CapsLock: return 20;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    case Qt::Key_NumLock: return 144;
    case Qt::Key_ScrollLock: return 145;
    default: return 0;
    }
}

} // namespace

// The panel's events, raised as the widget's signals.
class VexPanelWidget::Events final : public control::PanelEvents {
public:
    explicit Events(VexPanelWidget& widget)
        : widget_(widget)
    {
    }
    void Click() override { emit widget_.Click(); }
    void DblClick() override { emit widget_.DblClick(); }
    void KeyDown(int16_t& KeyCode, int16_t& Shift) override { emit widget_.KeyDown(KeyCode, Shift); }
    void KeyPress(int16_t& KeyAscii) override { emit widget_.KeyPress(KeyAscii); }
    void KeyUp(int16_t& KeyCode, int16_t& Shift) override { emit widget_.KeyUp(KeyCode, Shift); }
    void MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) override { emit widget_.MouseDown(Button, Shift, x, y); }
    void MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y) override { emit widget_.MouseMove(Button, Shift, x, y); }
    void MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) override { emit widget_.MouseUp(Button, Shift, x, y); }
    void MouseExit(int16_t& Button, int16_t& Shift, float& x, float& y) override { emit widget_.MouseExit(Button, Shift, x, y); }
    void MouseEnter(int16_t& Button, int16_t& Shift, float& x, float& y) override { emit widget_.MouseEnter(Button, Shift, x, y); }

private:
    VexPanelWidget& widget_;
};

VexPanelWidget::VexPanelWidget(QWidget* parent)
    : VexPanelProperties(parent)
    , host_(std::make_unique<QtHost>(*this))
    , surface_(std::make_unique<QtSurface>(*this))
    , events_(std::make_unique<Events>(*this))
{
    // Moves without a button reach the panel (its MouseEnter); the panel paints every pixel
    // itself, but it is not marked opaque: a transparent panel captures what lies below it.
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    host_->onPropertyChanged = [this](const std::string& name) { Changed(name); };
    Restart();
}

VexPanelWidget::~VexPanelWidget()
{
    if (panel_)
        panel_->OnTerminate();
}

control::VexPanel& VexPanelWidget::panel() { return *panel_; }

// The panel's notification, as the property's own NOTIFY signal and as propertyChanged(name).
void VexPanelWidget::Changed(const std::string& name)
{
    const QMetaObject& meta = VexPanelProperties::staticMetaObject;
    const int index = meta.indexOfProperty(name.c_str());
    if (index >= meta.propertyOffset())
        meta.property(index).notifySignal().invoke(this, Qt::DirectConnection);
    emit propertyChanged(QString::fromStdString(name));
}

// A new panel as a program gets one: made with its initial properties, and at run time loaded
// from them (which also ties it to its parent form), as a control placed on a form is.
void VexPanelWidget::Restart()
{
    panel_.reset();
    panel_ = std::make_unique<control::VexPanel>(*host_, *surface_);
    panel_->SetEventSink(events_.get());
    Guarded([&] {
        panel_->InitProperties();
        if (host_->userMode) {
            control::MemoryPropertyBag bag;
            panel_->WriteProperties(bag);
            panel_->ReadProperties(bag);
        }
    });
    if (isVisible())
        Guarded([&] { panel_->OnResize(); });
}

void VexPanelWidget::setUserMode(bool userMode)
{
    if (host_->userMode == userMode)
        return;
    host_->userMode = userMode;
    Restart();
}

bool VexPanelWidget::userMode() const { return host_->userMode; }

void VexPanelWidget::setMessageBoxHandler(std::function<int(const QString&, const QString&, int)> handler)
{
    if (!handler) {
        host_->messageBoxHandler = nullptr;
        return;
    }
    host_->messageBoxHandler = [handler = std::move(handler)](const std::string& text, const std::string& title, int32_t flags) {
        return handler(QString::fromStdString(text), QString::fromStdString(title), flags);
    };
}

bool VexPanelWidget::loadVxp(const QString& file, QString* error)
{
    try {
        control::MemoryPropertyBag bag = control::ReadVxpFile(file.toStdString());
        panel_->ReadProperties(bag);
    } catch (const RuntimeError& failure) {
        if (error)
            *error = QString::fromStdString(failure.what());
        return false;
    }
    // Loading draws nothing; a panel on screen is drawn anew at once, a hidden one when its
    // size reaches it.
    if (isVisible())
        Guarded([&] { panel_->OnResize(); });
    return true;
}

bool VexPanelWidget::saveVxp(const QString& file, QString* error)
{
    try {
        control::MemoryPropertyBag bag;
        panel_->WriteProperties(bag);
        control::WriteVxpFile(file.toStdString(), bag);
    } catch (const RuntimeError& failure) {
        if (error)
            *error = QString::fromStdString(failure.what());
        return false;
    }
    return true;
}

bool VexPanelWidget::event(QEvent* event)
{
    if (event->type() == QEvent::ParentChange)
        host_->form.Follow();
    return QWidget::event(event);
}

// Presents the picture. Only a picture never painted is painted here: exposing the window again
// does not run the painters (an animation's frame would be lost).
void VexPanelWidget::paintEvent(QPaintEvent*)
{
    if (!surface_->Painted())
        Guarded([&] { panel_->OnPaint(); });
    QPainter painter(this);
    painter.drawImage(0, 0, surface_->Picture());
}

void VexPanelWidget::resizeEvent(QResizeEvent*)
{
    surface_->Resize(platform::Size { width(), height() });
    Guarded([&] { panel_->OnResize(); });
}

void VexPanelWidget::showEvent(QShowEvent*)
{
    host_->form.Follow();
    Guarded([&] { panel_->OnShow(); });
}

// Positions in the panel's scale units.
void VexPanelWidget::Relay(QMouseEvent* event, void (control::VexPanel::*notify)(int16_t, int16_t, float, float),
    int16_t button)
{
    const QPointF position = event->position();
    const float x = static_cast<float>(position.x() * surface_->ScaleWidth() / std::max(width(), 1));
    const float y = static_cast<float>(position.y() * surface_->ScaleHeight() / std::max(height(), 1));
    const int16_t shift = ShiftOf(event->modifiers());
    Guarded([&] { (panel_.get()->*notify)(button, shift, x, y); });
}

void VexPanelWidget::mousePressEvent(QMouseEvent* event)
{
    doubleClicked_ = false;
    Relay(event, &control::VexPanel::OnMouseDown, ButtonOf(event->button()));
}

// A release over the panel is a click, except the one that ends a double click.
void VexPanelWidget::mouseReleaseEvent(QMouseEvent* event)
{
    Relay(event, &control::VexPanel::OnMouseUp, ButtonOf(event->button()));
    if (!doubleClicked_ && rect().contains(event->position().toPoint()))
        Guarded([&] { panel_->OnClick(); });
    doubleClicked_ = false;
}

void VexPanelWidget::mouseDoubleClickEvent(QMouseEvent*)
{
    doubleClicked_ = true;
    Guarded([&] { panel_->OnDblClick(); });
}

void VexPanelWidget::mouseMoveEvent(QMouseEvent* event)
{
    Relay(event, &control::VexPanel::OnMouseMove, ButtonOf(event->buttons()));
}

void VexPanelWidget::keyPressEvent(QKeyEvent* event)
{
    const int16_t shift = ShiftOf(event->modifiers());
    if (const int16_t code = KeyCodeOf(event->key()))
        Guarded([&] { panel_->OnKeyDown(code, shift); });
    const QString text = event->text();
    if (text.size() == 1 && text.at(0).unicode() < 256)
        Guarded([&] { panel_->OnKeyPress(static_cast<int16_t>(text.at(0).unicode())); });
}

void VexPanelWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat())
        return;
    if (const int16_t code = KeyCodeOf(event->key()))
        Guarded([&] { panel_->OnKeyUp(code, ShiftOf(event->modifiers())); });
}

} // namespace vex::qt
