#include "qt/qt_surface.h"

#include <atomic>

#include <QApplication>
#include <QCursor>
#include <QPixmap>
#include <QWidget>

#include "qt/qt_pictures.h"

namespace vex::qt {

namespace {

// Handles are only compared, never dereferenced: each surface gets a block of its own, and any
// other window of the program reports the block's next number.
int32_t NextHandleBlock()
{
    static std::atomic<int32_t> next { 0x20000 };
    return next.fetch_add(0x100);
}

constexpr int32_t kDesktopWindow = 1;

// The host's MousePointer numbers as Qt's cursor shapes (99, the custom icon, apart).
Qt::CursorShape ShapeOf(int16_t pointer)
{
    switch (pointer) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    case 15: return Qt::SizeAllCursor;
    default: return Qt::ArrowCursor;
    }
}

} // namespace

QtSurface::QtSurface(QWidget& widget)
    : widget_(widget)
    , dc_(platform::soft::CreateSurface(std::max(widget.width(), 1), std::max(widget.height(), 1)))
    , size_ { widget.width(), widget.height() }
{
    const int32_t block = NextHandleBlock();
    hwnd_ = block;
    hdc_ = block + 1;
}

platform::DeviceContext& QtSurface::Dc()
{
    // Whoever takes the context may draw: the picture is shown again once the event loop runs.
    painted_ = true;
    pictureStale_ = true;
    widget_.update();
    return *dc_;
}

void QtSurface::SetCursor(int16_t pointer, const platform::PictureRef& icon)
{
    constexpr int16_t kCustom = 99;
    if (pointer == kCustom && icon) {
        const QImage image = ToQImage(*icon);
        if (!image.isNull()) {
            widget_.setCursor(QCursor(QPixmap::fromImage(image)));
            return;
        }
    }
    if (pointer == 0)
        widget_.unsetCursor();
    else
        widget_.setCursor(ShapeOf(pointer));
}

void QtSurface::Refresh() { widget_.update(); }

void QtSurface::SetWindowEnabled(bool enabled)
{
    if (widget_.isEnabledTo(widget_.parentWidget()) != enabled)
        widget_.setEnabled(enabled);
}

bool QtSurface::WindowEnabled() { return widget_.isEnabledTo(widget_.parentWidget()); }

platform::Point QtSurface::ClientToScreen(platform::Point point)
{
    const QPoint screen = widget_.mapToGlobal(QPoint(point.x, point.y));
    return platform::Point { screen.x(), screen.y() };
}

platform::Point QtSurface::CursorPos()
{
    const QPoint position = QCursor::pos();
    return platform::Point { position.x(), position.y() };
}

int32_t QtSurface::WindowFromPoint(platform::Point screenPoint)
{
    QWidget* under = QApplication::widgetAt(QPoint(screenPoint.x, screenPoint.y));
    if (under == &widget_)
        return hwnd_;
    return under ? hwnd_ + 2 : kDesktopWindow;
}

void QtSurface::Resize(platform::Size size)
{
    size_ = size;
    dc_->Resize(std::max(size.width, 1), std::max(size.height, 1));
    painted_ = false;
    pictureStale_ = true;
}

const QImage& QtSurface::Picture()
{
    if (!pictureStale_)
        return picture_;
    const platform::soft::SoftBitmap& bitmap = dc_->Target();
    if (picture_.width() != bitmap.width() || picture_.height() != bitmap.height())
        picture_ = QImage(bitmap.width(), bitmap.height(), QImage::Format_RGB32);
    for (int32_t y = 0; y < bitmap.height(); ++y) {
        const platform::soft::Pixel* in = bitmap.row(y);
        auto* out = reinterpret_cast<QRgb*>(picture_.scanLine(y));
        for (int32_t x = 0; x < bitmap.width(); ++x)
            out[x] = in[x] | 0xFF000000u;
    }
    pictureStale_ = false;
    return picture_;
}

} // namespace vex::qt
