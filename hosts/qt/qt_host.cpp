#include "qt/qt_host.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include "control/restarting_timer.h"
#include "qt/qt_pictures.h"

namespace vex::qt {

// ---- The parent form -----------------------------------------------------------------------------

QtForm::QtForm(QWidget& widget)
    : widget_(widget)
{
}

void QtForm::Follow()
{
    QWidget* window = widget_.window();
    if (window == window_)
        return;
    if (window_)
        window_->removeEventFilter(this);
    window_ = window;
    window_->installEventFilter(this);
}

bool QtForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window_) {
        // A copy: a sink may disconnect itself while it runs.
        const std::vector<control::FormEventSink*> sinks = sinks_;
        if (event->type() == QEvent::WindowActivate)
            for (control::FormEventSink* sink : sinks)
                sink->FormActivate();
        else if (event->type() == QEvent::Close)
            for (control::FormEventSink* sink : sinks)
                sink->FormUnload();
    }
    return false;
}

// ---- Timers ---------------------------------------------------------------------------------------

namespace {

class QtTimer final : public control::RestartingTimer {
public:
    explicit QtTimer(std::function<void()> tick)
    {
        QObject::connect(&timer_, &QTimer::timeout, [tick = std::move(tick)] { tick(); });
        timer_.setTimerType(Qt::PreciseTimer);
    }

private:
    void Start(int32_t milliseconds) override { timer_.start(milliseconds); }
    void Stop() override { timer_.stop(); }

    QTimer timer_;
};

// Where the ambient face lives: Debian's fonts-wine.
constexpr const char* kAmbientFaceFile = "/usr/share/wine/fonts/sserife.fon";

} // namespace

// ---- The host -------------------------------------------------------------------------------------

QtHost::QtHost(QWidget& widget)
    : form(widget)
    , widget_(widget)
{
}

platform::FontDesc QtHost::AmbientFont()
{
    static const bool warned = [] {
        if (!QFileInfo::exists(kAmbientFaceFile))
            qWarning("VexPanelWidget: the ambient font \"MS Sans Serif\" (%s, package fonts-wine) is missing; "
                     "captions are drawn in the closest face fontconfig finds",
                kAmbientFaceFile);
        return true;
    }();
    (void)warned;
    return platform::FontDesc {};
}

std::string QtHost::AmbientDisplayName()
{
    const QString name = widget_.objectName();
    return name.isEmpty() ? std::string("VexPanel1") : name.toStdString();
}

void QtHost::PropertyChanged(const std::string& name)
{
    if (onPropertyChanged)
        onPropertyChanged(name);
}

int32_t QtHost::MessageBox(const std::string& text, const std::string& title, int32_t flags)
{
    if (messageBoxHandler)
        return messageBoxHandler(text, title, flags);
    // The icon bits of the flags; the panel asks only for OK.
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    switch (flags & 0x70) {
    case 16: icon = QMessageBox::Critical; break;
    case 32: icon = QMessageBox::Question; break;
    case 48: icon = QMessageBox::Warning; break;
    case 64: icon = QMessageBox::Information; break;
    }
    QMessageBox box(icon, QString::fromStdString(title), QString::fromStdString(text), QMessageBox::Ok, &widget_);
    box.exec();
    constexpr int32_t kOk = 1;
    return kOk;
}

void QtHost::ShowAboutBox()
{
    QMessageBox::about(&widget_, QStringLiteral("About VexPanel"),
        QStringLiteral("VexPanel %1\nA panel control with Windows, 3D and Custom appearances.")
            .arg(QStringLiteral(VEXPANEL_VERSION_TEXT)));
}

void QtHost::DoEvents() { QCoreApplication::processEvents(); }

void QtHost::SetExtenderVisible(bool visible) { widget_.setVisible(visible); }

std::unique_ptr<control::HostTimer> QtHost::CreateTimer(std::function<void()> tick)
{
    return std::make_unique<QtTimer>(std::move(tick));
}

// The parent and the siblings below the control, as they paint themselves there now. The
// control's own widget and the siblings above it are left out (so none of them gets a paint
// event). Outside any parent there is nothing behind.
platform::PictureRef QtHost::CaptureBehind(int32_t width, int32_t height)
{
    QImage image(std::max(width, 0), std::max(height, 0), QImage::Format_RGB32);
    image.fill(Qt::black);
    if (QWidget* parent = widget_.parentWidget(); parent && !image.isNull()) {
        const QRect area(widget_.pos(), QSize(width, height));
        parent->render(&image, QPoint(0, 0), QRegion(area), QWidget::DrawWindowBackground);
        for (QObject* child : parent->children()) { // bottom to top
            if (child == &widget_)
                break;
            auto* sibling = qobject_cast<QWidget*>(child);
            if (!sibling || !sibling->isVisible() || sibling->isWindow() || !sibling->geometry().intersects(area))
                continue;
            const QRect part = sibling->geometry().intersected(area);
            sibling->render(&image, part.topLeft() - area.topLeft(), QRegion(part.translated(-sibling->pos())),
                QWidget::DrawWindowBackground | QWidget::DrawChildren);
        }
    }
    return platform::Picture::FromBitmap(ToDib(image));
}

} // namespace vex::qt
