#pragma once
// The software device context: GDI's drawing rules on a bitmap in memory. A surface context
// stands for a window's client area (fixed bitmap, resizable by its owner); a memory context
// starts with a 1x1 stock bitmap and draws into whatever bitmap is selected into it.
//
// Defaults are GDI's: black pen, white brush, black text on an OPAQUE white background,
// BLACKONWHITE stretching, current position (0, 0). The font starts as the ambient default
// ("MS Sans Serif" 8.25 pt) rather than the System font, which nothing here uses.

#include <memory>

#include "platform/device_context.h"
#include "platform/soft/soft_bitmap.h"

namespace vex::platform::soft {

class SoftDeviceContext final : public DeviceContext {
public:
    // A window surface of the given size (black until painted).
    static std::unique_ptr<SoftDeviceContext> CreateSurface(int32_t width, int32_t height);
    // A memory context with the stock 1x1 bitmap selected.
    static std::unique_ptr<SoftDeviceContext> CreateMemory();

    // Surface contexts: a new client size; the overlapping pixels are kept, new ones are black.
    void Resize(int32_t width, int32_t height);
    // The bitmap drawn into (the selected one for memory contexts).
    SoftBitmap& Target() { return *target_; }
    const SoftBitmap& Target() const { return *target_; }
    Point CurrentPosition() const { return position_; }
    const FontDesc& CurrentFont() const { return font_; }
    int BkMode() const { return bkMode_; }
    int StretchBltMode() const { return stretchMode_; }

    std::unique_ptr<DeviceContext> CreateCompatibleDC() override;
    BitmapRef CreateCompatibleBitmap(int32_t width, int32_t height) override;
    BitmapRef CreateBitmapFromDib(const Dib& dib) override;
    BitmapRef BitmapOf(const Picture& picture) override;
    BitmapRef SelectBitmap(BitmapRef bitmap) override;
    Size Extent() const override;

    Pen SelectPen(Pen pen) override;
    Brush SelectBrush(Brush brush) override;
    FontDesc SelectFont(const FontDesc& font) override;
    ColorRef SetTextColor(ColorRef color) override;
    int SetBkMode(int mode) override;
    int SetStretchBltMode(int mode) override;
    ColorRef GetSysColor(int index) const override;

    Point MoveToEx(int32_t x, int32_t y) override;
    void LineTo(int32_t x, int32_t y) override;
    void Rectangle(int32_t left, int32_t top, int32_t right, int32_t bottom) override;
    void FrameRect(const Rect& rect, Brush brush) override;
    void FillRect(const Rect& rect, Brush brush) override;
    ColorRef GetPixel(int32_t x, int32_t y) const override;

    void BitBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY) override;
    void StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight) override;
    void TransparentBlt(int32_t x, int32_t y, int32_t width, int32_t height,
        DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
        uint32_t transparentColor) override;
    void DrawIconEx(int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height, uint32_t flags) override;

    int32_t DrawText(std::string_view text, Rect& rect, uint32_t format) override;

    Dib Snapshot() const override;

private:
    SoftDeviceContext(std::shared_ptr<SoftBitmap> target, bool memory);
    // The bitmap behind another context of this layer, or nullptr for a foreign context.
    static const SoftBitmap* SourceBitmap(const DeviceContext& source);

    std::shared_ptr<SoftBitmap> target_;
    bool memory_ = false;
    bool stockSelected_ = false;
    Pen pen_ = Pen::Solid(0);
    Brush brush_ = Brush::Solid(Rgb(255, 255, 255));
    FontDesc font_;
    ColorRef textColor_ = 0;
    ColorRef bkColor_ = Rgb(255, 255, 255);
    int bkMode_ = kBkOpaque;
    int stretchMode_ = 1; // BLACKONWHITE
    Point position_;
};

// The headless window surface every host without a window system paints into.
inline std::unique_ptr<SoftDeviceContext> CreateSurface(int32_t width, int32_t height)
{
    return SoftDeviceContext::CreateSurface(width, height);
}

} // namespace vex::platform::soft
