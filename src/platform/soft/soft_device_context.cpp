#include "platform/soft/soft_device_context.h"

#include <algorithm>
#include <utility>

#include "platform/soft/dib_convert.h"
#include "platform/soft/draw_text.h"
#include "platform/soft/raster.h"
#include "platform/system_colors.h"

namespace vex::platform::soft {

// ---- Creation ---------------------------------------------------------------------------------

SoftDeviceContext::SoftDeviceContext(std::shared_ptr<SoftBitmap> target, bool memory)
    : target_(std::move(target))
    , memory_(memory)
    , stockSelected_(memory)
{
}

std::unique_ptr<SoftDeviceContext> SoftDeviceContext::CreateSurface(int32_t width, int32_t height)
{
    if (!SoftBitmap::SizeAllowed(width, height))
        width = height = 0;
    return std::unique_ptr<SoftDeviceContext>(new SoftDeviceContext(std::make_shared<SoftBitmap>(width, height), false));
}

std::unique_ptr<SoftDeviceContext> SoftDeviceContext::CreateMemory()
{
    return std::unique_ptr<SoftDeviceContext>(new SoftDeviceContext(std::make_shared<SoftBitmap>(1, 1), true));
}

void SoftDeviceContext::Resize(int32_t width, int32_t height)
{
    if (!memory_ && SoftBitmap::SizeAllowed(width, height))
        target_->Resize(width, height);
}

std::unique_ptr<DeviceContext> SoftDeviceContext::CreateCompatibleDC()
{
    return CreateMemory();
}

BitmapRef SoftDeviceContext::CreateCompatibleBitmap(int32_t width, int32_t height)
{
    // Always a colour bitmap, as the interface promises (GDI would make a monochrome one from a
    // memory context still holding its stock bitmap; the Windows backend avoids that too).
    if (width == 0 || height == 0)
        return std::make_shared<SoftBitmap>(1, 1);
    if (!SoftBitmap::SizeAllowed(width, height))
        return nullptr;
    return std::make_shared<SoftBitmap>(width, height);
}

BitmapRef SoftDeviceContext::CreateBitmapFromDib(const Dib& dib)
{
    return BitmapFromDib(dib);
}

BitmapRef SoftDeviceContext::BitmapOf(const Picture& picture)
{
    switch (picture.type()) {
    case PictureType::Bitmap: return BitmapFromDib(picture.bitmap());
    case PictureType::Icon: return BitmapFromDib(picture.icon().color);
    default: return nullptr;
    }
}

BitmapRef SoftDeviceContext::SelectBitmap(BitmapRef bitmap)
{
    if (!memory_)
        return nullptr;
    auto soft = std::dynamic_pointer_cast<SoftBitmap>(bitmap);
    if (bitmap && !soft)
        return nullptr; // a bitmap of another implementation cannot be selected here
    BitmapRef previous = stockSelected_ ? nullptr : target_;
    if (soft) {
        target_ = std::move(soft);
        stockSelected_ = false;
    } else {
        target_ = std::make_shared<SoftBitmap>(1, 1);
        stockSelected_ = true;
    }
    return previous;
}

Size SoftDeviceContext::Extent() const
{
    return target_->size();
}

// ---- State ------------------------------------------------------------------------------------

Pen SoftDeviceContext::SelectPen(Pen pen)
{
    return std::exchange(pen_, pen);
}

Brush SoftDeviceContext::SelectBrush(Brush brush)
{
    return std::exchange(brush_, brush);
}

FontDesc SoftDeviceContext::SelectFont(const FontDesc& font)
{
    return std::exchange(font_, font);
}

ColorRef SoftDeviceContext::SetTextColor(ColorRef color)
{
    return std::exchange(textColor_, color);
}

int SoftDeviceContext::SetBkMode(int mode)
{
    if (mode != kBkTransparent && mode != kBkOpaque)
        return 0; // GDI refuses other values and keeps the mode
    return std::exchange(bkMode_, mode);
}

int SoftDeviceContext::SetStretchBltMode(int mode)
{
    if (mode < kStretchAndScans || mode > kStretchHalftoneMode)
        return 0;
    return std::exchange(stretchMode_, mode);
}

ColorRef SoftDeviceContext::GetSysColor(int index) const
{
    return ClassicSystemColor(index);
}

// ---- Drawing ----------------------------------------------------------------------------------

Point SoftDeviceContext::MoveToEx(int32_t x, int32_t y)
{
    return std::exchange(position_, Point { x, y });
}

void SoftDeviceContext::LineTo(int32_t x, int32_t y)
{
    Point to { x, y };
    if (!pen_.null)
        DrawLine(*target_, position_, to, PixelFromColorRef(pen_.color));
    position_ = to;
}

void SoftDeviceContext::Rectangle(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    // GDI orders the corners first; an empty rectangle draws nothing.
    int64_t l = std::min(left, right), r = std::max(left, right);
    int64_t t = std::min(top, bottom), b = std::max(top, bottom);
    if (l == r || t == b)
        return;
    if (pen_.null) {
        // Without an outline the filled area is one pixel narrower and shorter.
        if (!brush_.hollow)
            FillSpanRect(*target_, l, t, r - 1, b - 1, PixelFromColorRef(brush_.color));
        return;
    }
    if (!brush_.hollow)
        FillSpanRect(*target_, l + 1, t + 1, r - 1, b - 1, PixelFromColorRef(brush_.color));
    // The outline is a closed polyline through the four corner pixels, each segment without its
    // end point: a 1x1 rectangle is four empty segments and paints nothing.
    if (r - l == 1 && b - t == 1)
        return;
    Pixel outline = PixelFromColorRef(pen_.color);
    FillSpanRect(*target_, l, t, r, t + 1, outline);
    FillSpanRect(*target_, l, b - 1, r, b, outline);
    FillSpanRect(*target_, l, t, l + 1, b, outline);
    FillSpanRect(*target_, r - 1, t, r, b, outline);
}

void SoftDeviceContext::FrameRect(const Rect& rect, Brush brush)
{
    // An empty or inverted rectangle frames nothing.
    if (brush.hollow || rect.right <= rect.left || rect.bottom <= rect.top)
        return;
    Pixel pixel = PixelFromColorRef(brush.color);
    int64_t l = rect.left, t = rect.top, r = rect.right, b = rect.bottom;
    FillSpanRect(*target_, l, t, l + 1, b, pixel);
    FillSpanRect(*target_, r - 1, t, r, b, pixel);
    FillSpanRect(*target_, l, t, r, t + 1, pixel);
    FillSpanRect(*target_, l, b - 1, r, b, pixel);
}

void SoftDeviceContext::FillRect(const Rect& rect, Brush brush)
{
    if (brush.hollow)
        return;
    // FillRect is a pattern blit of (left, top, right - left, bottom - top). A negative extent
    // covers the pixels from the start back: x + width + 1 .. x, one pixel to the right of the
    // ordered rectangle.
    auto bound = [](int64_t start, int64_t end, int64_t& low, int64_t& high) {
        int64_t extent = end - start;
        low = extent >= 0 ? start : start + extent + 1;
        high = extent >= 0 ? end : start + 1;
    };
    int64_t l, r, t, b;
    bound(rect.left, rect.right, l, r);
    bound(rect.top, rect.bottom, t, b);
    FillSpanRect(*target_, l, t, r, b, PixelFromColorRef(brush.color));
}

ColorRef SoftDeviceContext::GetPixel(int32_t x, int32_t y) const
{
    if (!target_->Contains(x, y))
        return 0xFFFFFFFFu;
    return ColorRefFromPixel(target_->row(y)[x]);
}

// ---- Blits ------------------------------------------------------------------------------------

const SoftBitmap* SoftDeviceContext::SourceBitmap(const DeviceContext& source)
{
    auto* soft = dynamic_cast<const SoftDeviceContext*>(&source);
    return soft ? soft->target_.get() : nullptr;
}

void SoftDeviceContext::BitBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY)
{
    if (const SoftBitmap* from = SourceBitmap(source))
        StretchRect(*target_, x, y, width, height, *from, sourceX, sourceY, width, height, stretchMode_);
}

void SoftDeviceContext::StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight)
{
    if (const SoftBitmap* from = SourceBitmap(source))
        StretchRect(*target_, x, y, width, height, *from, sourceX, sourceY, sourceWidth, sourceHeight, stretchMode_);
}

void SoftDeviceContext::TransparentBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
    uint32_t transparentColor)
{
    if (const SoftBitmap* from = SourceBitmap(source))
        TransparentRect(*target_, x, y, width, height, *from, sourceX, sourceY, sourceWidth, sourceHeight,
            PixelFromColorRef(transparentColor));
}

void SoftDeviceContext::DrawIconEx(int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height, uint32_t flags)
{
    DrawIconImage(*target_, x, y, icon, width, height, flags);
}

// ---- Text -------------------------------------------------------------------------------------

int32_t SoftDeviceContext::DrawText(std::string_view text, Rect& rect, uint32_t format)
{
    TextStyle style { font_, textColor_, bkColor_, bkMode_ == kBkOpaque };
    return DrawTextOn(*target_, text, rect, format, style, position_);
}

// ---- Reading back -----------------------------------------------------------------------------

Dib SoftDeviceContext::Snapshot() const
{
    return DibFromBitmap(*target_);
}

} // namespace vex::platform::soft
