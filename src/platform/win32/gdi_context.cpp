#include "platform/win32/gdi_context.h"

#include <olectl.h>

#include <cstring>
#include <string>

#include "base/numeric.h"
#include "platform/win32/surface.h"

namespace vex::platform::win32 {

namespace {

// The screen's DC, for bitmaps that must be compatible with the display rather than with a
// memory DC that still holds its 1x1 monochrome stock bitmap.
class ScreenDC {
public:
    ScreenDC()
        : dc_(GetDC(nullptr))
    {
    }
    ~ScreenDC() { ReleaseDC(nullptr, dc_); }
    HDC get() const { return dc_; }

private:
    HDC dc_;
};

HBRUSH MakeBrush(Brush brush)
{
    return brush.hollow ? static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)) : CreateSolidBrush(brush.color);
}

void FreeBrush(Brush brush, HBRUSH handle)
{
    if (!brush.hollow)
        DeleteObject(handle);
}

// Cell height for a point size on a 96-dpi screen: negative, so GDI matches the character
// height (em) rather than the cell.
int FontHeight(float points)
{
    return -CLng(static_cast<double>(points) * 96.0 / 72.0);
}

// UTF-8 in, the system's ANSI code page (Windows-1252) out, as DrawTextA receives it.
// Characters 1252 cannot show become '?', as WideCharToMultiByte's default character.
std::string ToCodePage1252(std::string_view text)
{
    if (text.empty())
        return {};
    int wideLength = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(wideLength), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), wideLength);
    int narrowLength = WideCharToMultiByte(1252, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(narrowLength), '\0');
    WideCharToMultiByte(1252, 0, wide.data(), wideLength, narrow.data(), narrowLength, nullptr, nullptr);
    return narrow;
}

HBITMAP MakeDdbFromDib(HDC compatible, const Dib& dib)
{
    DibInfo info = DescribeDib(dib);
    return CreateDIBitmap(compatible, &info.header, CBM_INIT, dib.bits().data(),
        reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS);
}

} // namespace

DibInfo DescribeDib(const Dib& dib)
{
    DibInfo info {};
    info.header.biSize = sizeof(BITMAPINFOHEADER);
    info.header.biWidth = dib.width();
    info.header.biHeight = dib.topDown() ? -dib.height() : dib.height();
    info.header.biPlanes = 1;
    info.header.biBitCount = static_cast<WORD>(dib.bitCount());
    info.header.biCompression = BI_RGB;
    size_t colors = dib.bitCount() <= 8 ? dib.palette().size() : 0;
    if (colors > 256)
        colors = 256;
    info.header.biClrUsed = static_cast<DWORD>(colors);
    for (size_t i = 0; i < colors; ++i) {
        const RgbQuad& quad = dib.palette()[i];
        info.colors[i] = RGBQUAD { quad.blue, quad.green, quad.red, 0 };
    }
    return info;
}

std::unique_ptr<DeviceContext> CreateSurface(int32_t width, int32_t height)
{
    ScreenDC screen;
    auto context = GdiContext::OwnMemoryDC(::CreateCompatibleDC(screen.get()));
    BITMAPINFO info {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(context->handle(), &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    context->SelectBitmap(std::make_shared<GdiBitmap>(section, Size { width, height }));
    return context;
}

std::unique_ptr<GdiContext> GdiContext::OwnMemoryDC(HDC dc)
{
    return std::unique_ptr<GdiContext>(new GdiContext(dc, true, Size {}));
}

std::unique_ptr<GdiContext> GdiContext::BorrowWindowDC(HDC dc, Size clientSize)
{
    return std::unique_ptr<GdiContext>(new GdiContext(dc, false, clientSize));
}

std::unique_ptr<GdiContext> GdiContext::AdoptWindow(HWND window, Size clientSize)
{
    auto context = std::unique_ptr<GdiContext>(new GdiContext(GetDC(window), false, clientSize));
    context->window_ = window;
    return context;
}

std::unique_ptr<DeviceContext> CreateWindowSurface(int32_t width, int32_t height)
{
    static const ATOM windowClass = [] {
        WNDCLASSA description {};
        description.lpfnWndProc = DefWindowProcA;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "VexPanelSurface";
        return RegisterClassA(&description); // no background brush: nothing erases our pixels
    }();
    HWND window = CreateWindowExA(0, MAKEINTATOM(windowClass), "", WS_POPUP | WS_VISIBLE, 0, 0, width, height,
        nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    RECT client {};
    GetClientRect(window, &client);
    auto context = GdiContext::AdoptWindow(window, Size { client.right, client.bottom });
    context->FillRect({ 0, 0, client.right, client.bottom }, Brush::Solid(0));
    return context;
}

GdiContext::GdiContext(HDC dc, bool owned, Size clientSize)
    : dc_(dc)
    , owned_(owned)
    , clientSize_(clientSize)
{
    stockPen_ = GetCurrentObject(dc_, OBJ_PEN);
    stockBrush_ = GetCurrentObject(dc_, OBJ_BRUSH);
    stockFont_ = GetCurrentObject(dc_, OBJ_FONT);
    stockBitmap_ = GetCurrentObject(dc_, OBJ_BITMAP);
    // Both backends start with the interface's default font rather than GDI's "System".
    font_ = nullptr;
    SelectFont(FontDesc {});
}

GdiContext::~GdiContext()
{
    SelectObject(dc_, stockPen_);
    SelectObject(dc_, stockBrush_);
    SelectObject(dc_, stockFont_);
    if (pen_)
        DeleteObject(pen_);
    if (brush_)
        DeleteObject(brush_);
    if (font_)
        DeleteObject(font_);
    if (owned_) {
        SelectObject(dc_, stockBitmap_);
        selected_.reset();
        DeleteDC(dc_);
    }
    if (window_) {
        ReleaseDC(window_, dc_);
        DestroyWindow(window_);
    }
}

HDC GdiContext::SourceHandle(DeviceContext& source) const
{
    auto* gdi = dynamic_cast<GdiContext*>(&source);
    return gdi ? gdi->dc_ : nullptr;
}

// ---- Objects --------------------------------------------------------------------------------

std::unique_ptr<DeviceContext> GdiContext::CreateCompatibleDC()
{
    return OwnMemoryDC(::CreateCompatibleDC(dc_));
}

BitmapRef GdiContext::CreateCompatibleBitmap(int32_t width, int32_t height)
{
    // A memory DC that has no bitmap of ours selected would give a monochrome bitmap; the
    // interface promises the display's format, which is what a window DC gives.
    HBITMAP handle;
    if (owned_ && !selected_) {
        ScreenDC screen;
        handle = ::CreateCompatibleBitmap(screen.get(), width, height);
    } else {
        handle = ::CreateCompatibleBitmap(dc_, width, height);
    }
    return std::make_shared<GdiBitmap>(handle, Size { width, height });
}

BitmapRef GdiContext::CreateBitmapFromDib(const Dib& dib)
{
    HBITMAP handle;
    if (owned_ && !selected_) {
        ScreenDC screen;
        handle = MakeDdbFromDib(screen.get(), dib);
    } else {
        handle = MakeDdbFromDib(dc_, dib);
    }
    return std::make_shared<GdiBitmap>(handle, Size { dib.width(), dib.height() });
}

BitmapRef GdiContext::BitmapOf(const Picture& picture)
{
    return CreateBitmapFromDib(picture.bitmap());
}

BitmapRef GdiContext::SelectBitmap(BitmapRef bitmap)
{
    auto* gdi = dynamic_cast<GdiBitmap*>(bitmap.get());
    SelectObject(dc_, gdi ? static_cast<HGDIOBJ>(gdi->handle()) : stockBitmap_);
    BitmapRef previous = std::move(selected_);
    selected_ = gdi ? std::move(bitmap) : nullptr;
    return previous;
}

Size GdiContext::Extent() const
{
    if (!owned_)
        return clientSize_;
    if (selected_)
        return selected_->size();
    return Size { 1, 1 };
}

// ---- State ----------------------------------------------------------------------------------

Pen GdiContext::SelectPen(Pen pen)
{
    HPEN made = pen.null ? nullptr : CreatePen(PS_SOLID, 1, pen.color);
    SelectObject(dc_, made ? static_cast<HGDIOBJ>(made) : GetStockObject(NULL_PEN));
    if (pen_)
        DeleteObject(pen_);
    pen_ = made;
    Pen previous = penValue_;
    penValue_ = pen;
    return previous;
}

Brush GdiContext::SelectBrush(Brush brush)
{
    HBRUSH made = brush.hollow ? nullptr : CreateSolidBrush(brush.color);
    SelectObject(dc_, made ? static_cast<HGDIOBJ>(made) : GetStockObject(NULL_BRUSH));
    if (brush_)
        DeleteObject(brush_);
    brush_ = made;
    Brush previous = brushValue_;
    brushValue_ = brush;
    return previous;
}

FontDesc GdiContext::SelectFont(const FontDesc& font)
{
    HFONT made = CreateFontA(FontHeight(font.size), 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL,
        font.italic, font.underline, font.strikethrough, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
        CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, font.name.c_str());
    SelectObject(dc_, made);
    if (font_)
        DeleteObject(font_);
    font_ = made;
    FontDesc previous = fontValue_;
    fontValue_ = font;
    return previous;
}

ColorRef GdiContext::SetTextColor(ColorRef color)
{
    return ::SetTextColor(dc_, color);
}

int GdiContext::SetBkMode(int mode)
{
    return ::SetBkMode(dc_, mode);
}

int GdiContext::SetStretchBltMode(int mode)
{
    int previous = ::SetStretchBltMode(dc_, mode);
    // HALFTONE needs the brush origin reset afterwards, as the documentation of SetStretchBltMode asks.
    if (mode == HALFTONE)
        SetBrushOrgEx(dc_, 0, 0, nullptr);
    return previous;
}

ColorRef GdiContext::GetSysColor(int index) const
{
    return ::GetSysColor(index);
}

bool GdiContext::OleTranslateColor(OleColor color, ColorRef& out) const
{
    COLORREF result = 0;
    if (FAILED(::OleTranslateColor(color, nullptr, &result)))
        return false;
    out = result;
    return true;
}

// ---- Drawing --------------------------------------------------------------------------------

Point GdiContext::MoveToEx(int32_t x, int32_t y)
{
    POINT previous {};
    ::MoveToEx(dc_, x, y, &previous);
    return Point { previous.x, previous.y };
}

void GdiContext::LineTo(int32_t x, int32_t y)
{
    ::LineTo(dc_, x, y);
}

void GdiContext::Rectangle(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    ::Rectangle(dc_, left, top, right, bottom);
}

void GdiContext::FrameRect(const Rect& rect, Brush brush)
{
    RECT r { rect.left, rect.top, rect.right, rect.bottom };
    HBRUSH handle = MakeBrush(brush);
    ::FrameRect(dc_, &r, handle);
    FreeBrush(brush, handle);
}

void GdiContext::FillRect(const Rect& rect, Brush brush)
{
    RECT r { rect.left, rect.top, rect.right, rect.bottom };
    HBRUSH handle = MakeBrush(brush);
    ::FillRect(dc_, &r, handle);
    FreeBrush(brush, handle);
}

ColorRef GdiContext::GetPixel(int32_t x, int32_t y) const
{
    return ::GetPixel(dc_, x, y);
}

// ---- Blits ----------------------------------------------------------------------------------

void GdiContext::BitBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY)
{
    ::BitBlt(dc_, x, y, width, height, SourceHandle(source), sourceX, sourceY, SRCCOPY);
}

void GdiContext::StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight)
{
    ::StretchBlt(dc_, x, y, width, height, SourceHandle(source), sourceX, sourceY, sourceWidth, sourceHeight, SRCCOPY);
}

void GdiContext::TransparentBlt(int32_t x, int32_t y, int32_t width, int32_t height,
    DeviceContext& source, int32_t sourceX, int32_t sourceY, int32_t sourceWidth, int32_t sourceHeight,
    uint32_t transparentColor)
{
    ::TransparentBlt(dc_, x, y, width, height, SourceHandle(source), sourceX, sourceY, sourceWidth, sourceHeight,
        transparentColor);
}

void GdiContext::DrawIconEx(int32_t x, int32_t y, const Icon& icon, int32_t width, int32_t height, uint32_t flags)
{
    ScreenDC screen;
    ICONINFO info {};
    info.fIcon = TRUE;
    info.hbmColor = MakeDdbFromDib(screen.get(), icon.color);
    // The mask must stay a 1-bit bitmap: CreateBitmap, not a display-compatible one.
    info.hbmMask = CreateBitmap(icon.mask.width(), icon.mask.height(), 1, 1, nullptr);
    {
        DibInfo maskInfo = DescribeDib(icon.mask);
        SetDIBits(screen.get(), info.hbmMask, 0, static_cast<UINT>(icon.mask.height()), icon.mask.bits().data(),
            reinterpret_cast<const BITMAPINFO*>(&maskInfo), DIB_RGB_COLORS);
    }
    HICON handle = CreateIconIndirect(&info);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    ::DrawIconEx(dc_, x, y, handle, width, height, 0, nullptr, flags);
    DestroyIcon(handle);
}

// ---- Text -----------------------------------------------------------------------------------

int32_t GdiContext::DrawText(std::string_view text, Rect& rect, uint32_t format)
{
    std::string ansi = ToCodePage1252(text);
    RECT r { rect.left, rect.top, rect.right, rect.bottom };
    int height = ::DrawTextA(dc_, ansi.c_str(), static_cast<int>(ansi.size()), &r, format);
    rect = Rect { r.left, r.top, r.right, r.bottom };
    return height;
}

// ---- Reading back ---------------------------------------------------------------------------

Dib GdiContext::Snapshot() const
{
    Size size = Extent();
    Dib result(size.width, size.height, 32, true);
    if (result.empty())
        return result;
    // Copy through a 32-bit DIB section so that window and memory DCs read back alike.
    BITMAPINFO info {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HDC copyDC = ::CreateCompatibleDC(dc_);
    HBITMAP section = CreateDIBSection(copyDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = SelectObject(copyDC, section);
    ::BitBlt(copyDC, 0, 0, size.width, size.height, dc_, 0, 0, SRCCOPY);
    GdiFlush();
    std::memcpy(result.bits().data(), bits, result.bits().size());
    SelectObject(copyDC, old);
    DeleteObject(section);
    DeleteDC(copyDC);
    for (size_t i = 3; i < result.bits().size(); i += 4)
        result.bits()[i] = 0;
    return result;
}

} // namespace vex::platform::win32
