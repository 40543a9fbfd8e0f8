// The Qt widget in the host suite: real QTimers, the pointer moved on the offscreen screen, the
// top-level window as the parent form. The form is on screen and active before the panel is made
// (on this platform a window's first showing activates it); ActivateForm activates it anew.
#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QTest>

#include "../hosts/host_conformance.h"
#include "qt/qt_pictures.h"
#include "qt/vex_panel_widget.h"

namespace vex::hosttest {
namespace {

class QtKit {
public:
    explicit QtKit(platform::Size client)
        : form_(new Form)
    {
        form_->resize(client.width + 40, client.height + 40);
        form_->show();
        form_->activateWindow(); // a display without a window manager activates nothing itself
        EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
        widget_ = new qt::VexPanelWidget(form_.get());
        widget_->setGeometry(10, 10, client.width, client.height);
        widget_->installEventFilter(&paints_);
        QObject::connect(widget_, &qt::VexPanelWidget::propertyChanged,
            [this](const QString& name) { notifications_.push_back(name.toStdString()); });
        widget_->show();
    }

    control::VexPanel& Panel() { return widget_->panel(); }
    // Real timers: the time passes with some slack, then the ticks that fell due run (qWait can
    // return from its last sleep without dispatching them).
    void Advance(int32_t milliseconds)
    {
        QTest::qWait(milliseconds + 10);
        QCoreApplication::processEvents();
    }
    void MoveMouse(platform::Point client)
    {
        const QPoint point(client.x, client.y);
        QCursor::setPos(widget_->mapToGlobal(point));
        QTest::mouseMove(widget_, point);
    }
    void MoveCursorAway() { QCursor::setPos(form_->mapToGlobal(QPoint(form_->width() - 1, form_->height() - 1))); }
    void ActivateForm()
    {
        QApplication::setActiveWindow(nullptr);
        QApplication::setActiveWindow(form_.get());
        EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    }
    void UnloadForm() { form_->close(); }
    void SetBehind(platform::PictureRef form, platform::Point controlOrigin)
    {
        form_->backdrop = qt::ToQImage(*form);
        widget_->move(controlOrigin.x, controlOrigin.y);
    }
    void Flush()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    const std::vector<std::string>& Notifications() { return notifications_; }
    int Presents() { return paints_.count; }
    // What the widget paints now; the grab's own paint is no present.
    platform::Dib Shown()
    {
        paints_.counting = false;
        const QImage image = widget_->grab().toImage();
        paints_.counting = true;
        return qt::ToDib(image);
    }

private:
    class Form : public QWidget {
    public:
        QImage backdrop;

    protected:
        void paintEvent(QPaintEvent*) override
        {
            QPainter painter(this);
            if (!backdrop.isNull())
                painter.drawImage(0, 0, backdrop);
        }
    };
    // The widget's paint events, each a present of its picture.
    class PaintCounter : public QObject {
    public:
        int count = 0;
        bool counting = true;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint && counting)
                ++count;
            return false;
        }
    };

    std::unique_ptr<Form> form_;
    qt::VexPanelWidget* widget_;
    PaintCounter paints_;
    std::vector<std::string> notifications_;
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, HostConformance, QtKit);

} // namespace vex::hosttest
