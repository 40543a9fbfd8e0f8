#pragma once
// DeviceContext over a real GDI device context. Pens, brushes and fonts are values in the
// interface; here each selection creates the GDI object, selects it and deletes the one it
// replaces, so the DC never holds more than one object of each kind of ours.

#include <windows.h>

#include <memory>

#include "platform/device_context.h"
#include "platform/win32/gdi_bitmap.h"

namespace vex::platform::win32 {

class GdiContext final : public DeviceContext {
public:
    // Takes an HDC. A memory DC made here is owned (DeleteDC at the end); a window DC is
    // borrowed and its client size given by the caller.
    static std::unique_ptr<GdiContext> OwnMemoryDC(HDC dc);
    static std::unique_ptr<GdiContext> BorrowWindowDC(HDC dc, Size clientSize);
    // Takes a window of ours: its DC is released and the window destroyed with the context.
    static std::unique_ptr<GdiContext> AdoptWindow(HWND window, Size clientSize);
    ~GdiContext() override;
    GdiContext(const GdiContext&) = delete;
    GdiContext& operator=(const GdiContext&) = delete;

    HDC handle() const { return dc_; }

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
    bool OleTranslateColor(OleColor color, ColorRef& out) const override;

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
    GdiContext(HDC dc, bool owned, Size clientSize);
    HDC SourceHandle(DeviceContext& source) const;

    HDC dc_;
    bool owned_;
    HWND window_ = nullptr; // an adopted window
    Size clientSize_; // window DCs only
    BitmapRef selected_;
    HGDIOBJ stockBitmap_ = nullptr;
    HGDIOBJ stockPen_ = nullptr;
    HGDIOBJ stockBrush_ = nullptr;
    HGDIOBJ stockFont_ = nullptr;
    HPEN pen_ = nullptr;     // ours, selected; null while a stock object is selected
    HBRUSH brush_ = nullptr;
    HFONT font_ = nullptr;
    Pen penValue_ = Pen::Solid(0);            // BLACK_PEN, GDI's default
    Brush brushValue_ = Brush::Solid(0xFFFFFF); // WHITE_BRUSH, GDI's default
    FontDesc fontValue_;
};

} // namespace vex::platform::win32
