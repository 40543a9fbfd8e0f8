#pragma once
// A device context that draws nothing: the headless host's stand-in where no pixels are wanted
// (the vexpanel command's new/props, tests about what is called rather than what is drawn).
// It has a size and the drawing layer's classic system colours.
// Tests derive from it to record the calls they care about.

#include <utility>

#include "platform/device_context.h"

namespace vex::control {

class NullDeviceContext : public platform::DeviceContext {
public:
    explicit NullDeviceContext(platform::Size extent = {}) : extent_(extent) { }

    std::unique_ptr<platform::DeviceContext> CreateCompatibleDC() override;
    platform::BitmapRef CreateCompatibleBitmap(int32_t width, int32_t height) override;
    platform::BitmapRef CreateBitmapFromDib(const platform::Dib& dib) override;
    platform::BitmapRef BitmapOf(const platform::Picture& picture) override;
    platform::BitmapRef SelectBitmap(platform::BitmapRef bitmap) override;
    platform::Size Extent() const override;

    platform::Pen SelectPen(platform::Pen pen) override { return std::exchange(pen_, pen); }
    platform::Brush SelectBrush(platform::Brush brush) override { return std::exchange(brush_, brush); }
    platform::FontDesc SelectFont(const platform::FontDesc& font) override { return std::exchange(font_, font); }
    ColorRef SetTextColor(ColorRef color) override { return std::exchange(textColor_, color); }
    int SetBkMode(int mode) override { return std::exchange(bkMode_, mode); }
    int SetStretchBltMode(int mode) override { return std::exchange(stretchMode_, mode); }
    ColorRef GetSysColor(int index) const override;

    platform::Point MoveToEx(int32_t x, int32_t y) override { return std::exchange(position_, platform::Point { x, y }); }
    void LineTo(int32_t x, int32_t y) override { position_ = { x, y }; }
    void Rectangle(int32_t, int32_t, int32_t, int32_t) override { }
    void FrameRect(const platform::Rect&, platform::Brush) override { }
    void FillRect(const platform::Rect&, platform::Brush) override { }
    ColorRef GetPixel(int32_t, int32_t) const override { return 0xFFFFFFFFu; }

    void BitBlt(int32_t, int32_t, int32_t, int32_t, platform::DeviceContext&, int32_t, int32_t) override { }
    void StretchBlt(int32_t, int32_t, int32_t, int32_t, platform::DeviceContext&, int32_t, int32_t, int32_t, int32_t) override { }
    void TransparentBlt(int32_t, int32_t, int32_t, int32_t, platform::DeviceContext&, int32_t, int32_t, int32_t, int32_t,
        uint32_t) override { }
    void DrawIconEx(int32_t, int32_t, const platform::Icon&, int32_t, int32_t, uint32_t) override { }
    int32_t DrawText(std::string_view, platform::Rect&, uint32_t) override { return 0; }
    platform::Dib Snapshot() const override;

    void SetExtent(platform::Size extent) { extent_ = extent; }

private:
    platform::Size extent_;
    platform::BitmapRef selected_;
    platform::Pen pen_;
    platform::Brush brush_;
    platform::FontDesc font_;
    ColorRef textColor_ = 0;
    int bkMode_ = platform::kBkOpaque;
    int stretchMode_ = 1;
    platform::Point position_;
};

} // namespace vex::control
