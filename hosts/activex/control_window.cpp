// The panel's own window: a child of the container's window. The panel paints into a memory
// surface (the persistent picture); WM_PAINT and Refresh copy it to the window. Mouse and keys
// are relayed to the panel as the host's events: buttons 1 left, 2 right, 4 middle; Shift 1,
// Ctrl 2, Alt 4; coordinates in pixels, as the surface's scale is.
#include "container_host.h"

#include <algorithm>
#include <cstring>

#include "base/runtime_error.h"
#include "module.h"
#include "platform/win32/gdi_context.h"
#include "platform/win32/surface.h"

namespace vex::activex {

namespace {

constexpr wchar_t kWindowClass[] = L"VexPanelWindow";

void RegisterWindowClass(WNDPROC procedure)
{
    static bool registered = false;
    if (registered)
        return;
    WNDCLASSEXW windowClass {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = ModuleInstance();
    windowClass.hCursor = nullptr; // WM_SETCURSOR chooses
    windowClass.lpszClassName = kWindowClass;
    registered = RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

int16_t ShiftState()
{
    int16_t shift = 0;
    if (GetKeyState(VK_SHIFT) < 0)
        shift |= 1;
    if (GetKeyState(VK_CONTROL) < 0)
        shift |= 2;
    if (GetKeyState(VK_MENU) < 0)
        shift |= 4;
    return shift;
}

int16_t ButtonsOf(WPARAM keys)
{
    return static_cast<int16_t>(((keys & MK_LBUTTON) ? 1 : 0) | ((keys & MK_RBUTTON) ? 2 : 0) | ((keys & MK_MBUTTON) ? 4 : 0));
}

// The host's standard pointer codes as system cursors (0 and 4 show the arrow).
LPCWSTR CursorFor(int16_t pointer)
{
    switch (pointer) {
    case 2: return IDC_CROSS;
    case 3: return IDC_IBEAM;
    case 5: case 15: return IDC_SIZEALL;
    case 6: return IDC_SIZENESW;
    case 7: return IDC_SIZENS;
    case 8: return IDC_SIZENWSE;
    case 9: return IDC_SIZEWE;
    case 10: return IDC_UPARROW;
    case 11: return IDC_WAIT;
    case 12: return IDC_NO;
    case 13: return IDC_APPSTARTING;
    case 14: return IDC_HELP;
    default: return IDC_ARROW;
    }
}

// Runs a relay into the panel; nothing may leave a window procedure.
template <typename Notification>
void Relay(control::VexPanel* panel, Notification relay)
{
    if (!panel)
        return;
    try {
        relay(*panel);
    } catch (...) {
    }
}

} // namespace

ControlWindow::ControlWindow(Owner& owner, platform::Size size)
    : owner_(owner)
{
    Resize(size);
}

ControlWindow::~ControlWindow()
{
    Destroy();
    if (customCursor_)
        DestroyCursor(customCursor_);
}

void ControlWindow::Resize(platform::Size size)
{
    size.width = std::max(size.width, 1);
    size.height = std::max(size.height, 1);
    if (dc_ && size == size_)
        return;
    size_ = size;
    // A resize may arrive while a painter holds the old context (the background capture lets
    // messages run in the middle of its work): the old one lives until the next resize.
    previous_ = std::move(dc_);
    dc_ = platform::win32::CreateSurface(size.width, size.height);
}

platform::DeviceContext& ControlWindow::Dc()
{
    if (window_)
        InvalidateRect(window_, nullptr, FALSE);
    return *dc_;
}

int32_t ControlWindow::hDC()
{
    // Handles are 32-bit values sign-extended in a 64-bit process, so the low half names them.
    return static_cast<int32_t>(reinterpret_cast<intptr_t>(static_cast<platform::win32::GdiContext&>(*dc_).handle()));
}

int32_t ControlWindow::hWnd() { return static_cast<int32_t>(reinterpret_cast<intptr_t>(window_)); }

bool ControlWindow::Create(HWND parent, const RECT& rect)
{
    if (window_)
        return true;
    RegisterWindowClass(&ControlWindow::Procedure);
    Resize({ rect.right - rect.left, rect.bottom - rect.top });
    window_ = CreateWindowExW(0, kWindowClass, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, rect.left, rect.top,
        size_.width, size_.height, parent, nullptr, ModuleInstance(), this);
    if (!window_)
        return false;
    EnableWindow(window_, enabled_);
    return true;
}

void ControlWindow::Destroy()
{
    if (window_) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
        window_ = nullptr;
    }
}

void ControlWindow::Show(bool visible)
{
    if (window_)
        ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void ControlWindow::Refresh()
{
    if (window_) {
        InvalidateRect(window_, nullptr, FALSE);
        UpdateWindow(window_);
    }
}

void ControlWindow::SetWindowEnabled(bool enabled)
{
    enabled_ = enabled;
    if (window_)
        EnableWindow(window_, enabled);
}

bool ControlWindow::WindowEnabled() { return window_ ? IsWindowEnabled(window_) != FALSE : enabled_; }

void ControlWindow::SetCursor(int16_t pointer, const platform::PictureRef& icon)
{
    pointer_ = pointer;
    if (customCursor_) {
        DestroyCursor(customCursor_);
        customCursor_ = nullptr;
    }
    if (pointer == 99 && icon && icon->type() == platform::PictureType::Icon) {
        // The icon's own images become a cursor with its hot spot in the middle.
        HDC screen = GetDC(nullptr);
        auto section = [&](const platform::Dib& dib) {
            platform::win32::DibInfo info = platform::win32::DescribeDib(dib);
            return CreateDIBitmap(screen, &info.header, CBM_INIT, dib.bits().data(), reinterpret_cast<const BITMAPINFO*>(&info),
                DIB_RGB_COLORS);
        };
        HBITMAP color = section(icon->icon().color);
        HBITMAP mask = section(icon->icon().mask);
        ReleaseDC(nullptr, screen);
        ICONINFO info { FALSE, static_cast<DWORD>(icon->pixelWidth() / 2), static_cast<DWORD>(icon->pixelHeight() / 2), mask, color };
        customCursor_ = CreateIconIndirect(&info);
        DeleteObject(color);
        DeleteObject(mask);
    }
}

void ControlWindow::ReleaseWindowRegions()
{
    if (window_)
        SetWindowRgn(window_, nullptr, TRUE);
}

platform::Point ControlWindow::ClientToScreen(platform::Point point)
{
    POINT screen { point.x, point.y };
    if (window_)
        ::ClientToScreen(window_, &screen);
    return { screen.x, screen.y };
}

platform::Point ControlWindow::CursorPos()
{
    POINT point {};
    GetCursorPos(&point);
    return { point.x, point.y };
}

int32_t ControlWindow::WindowFromPoint(platform::Point screenPoint)
{
    return static_cast<int32_t>(reinterpret_cast<intptr_t>(::WindowFromPoint(POINT { screenPoint.x, screenPoint.y })));
}

platform::PictureRef ControlWindow::CaptureParent(int32_t width, int32_t height)
{
    platform::Dib pixels(width, height, 32, true);
    HWND parent = GetParent(window_);
    POINT origin {};
    MapWindowPoints(window_, parent, &origin, 1);
    HDC source = GetDC(parent);
    HDC memory = CreateCompatibleDC(source);
    platform::win32::DibInfo info = platform::win32::DescribeDib(pixels);
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(memory, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0);
    if (section && bits) {
        HGDIOBJ old = SelectObject(memory, section);
        BitBlt(memory, 0, 0, width, height, source, origin.x, origin.y, SRCCOPY);
        GdiFlush();
        std::memcpy(pixels.bits().data(), bits, pixels.bits().size());
        SelectObject(memory, old);
        DeleteObject(section);
    }
    DeleteDC(memory);
    ReleaseDC(parent, source);
    return platform::Picture::FromBitmap(std::move(pixels));
}

void ControlWindow::Present(HDC target)
{
    HDC picture = static_cast<platform::win32::GdiContext&>(*dc_).handle();
    BitBlt(target, 0, 0, size_.width, size_.height, picture, 0, 0, SRCCOPY);
}

void ControlWindow::DrawInto(HDC target, const RECT& bounds)
{
    HDC picture = static_cast<platform::win32::GdiContext&>(*dc_).handle();
    int width = bounds.right - bounds.left;
    int height = bounds.bottom - bounds.top;
    if (width == size_.width && height == size_.height)
        BitBlt(target, bounds.left, bounds.top, width, height, picture, 0, 0, SRCCOPY);
    else
        StretchBlt(target, bounds.left, bounds.top, width, height, picture, 0, 0, size_.width, size_.height, SRCCOPY);
}

LRESULT CALLBACK ControlWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || self->window_ != window)
        return DefWindowProcW(window, message, wParam, lParam);
    return self->Handle(message, wParam, lParam);
}

LRESULT ControlWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    control::VexPanel* panel = owner_.Panel();
    // Signed client coordinates (a captured mouse may be left of or above the window).
    const float x = static_cast<float>(static_cast<short>(LOWORD(lParam)));
    const float y = static_cast<float>(static_cast<short>(HIWORD(lParam)));
    const int16_t shift = ShiftState();
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC target = BeginPaint(window_, &paint);
        Present(target);
        EndPaint(window_, &paint);
        return 0;
    }
    case WM_ERASEBKGND:
        return 1; // the picture covers the whole client area
    case WM_SIZE: {
        platform::Size size { LOWORD(lParam), HIWORD(lParam) };
        if (size.width > 0 && size.height > 0 && !(size == size_)) {
            Resize(size);
            Relay(panel, [](control::VexPanel& p) { p.OnResize(); });
            Refresh();
        }
        return 0;
    }
    case WM_SETCURSOR:
        if (LOWORD(lParam) == HTCLIENT) {
            ::SetCursor(pointer_ == 99 && customCursor_ ? customCursor_ : LoadCursorW(nullptr, CursorFor(pointer_)));
            return TRUE;
        }
        break;
    case WM_MOUSEMOVE:
        Relay(panel, [&](control::VexPanel& p) { p.OnMouseMove(ButtonsOf(wParam), shift, x, y); });
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN: {
        int16_t button = message == WM_LBUTTONDOWN ? 1 : message == WM_RBUTTONDOWN ? 2 : 4;
        SetCapture(window_);
        Relay(panel, [&](control::VexPanel& p) { p.OnMouseDown(button, shift, x, y); });
        return 0;
    }
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP: {
        int16_t button = message == WM_LBUTTONUP ? 1 : message == WM_RBUTTONUP ? 2 : 4;
        if (GetCapture() == window_ && !(wParam & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)))
            ReleaseCapture();
        Relay(panel, [&](control::VexPanel& p) { p.OnMouseUp(button, shift, x, y); });
        // A click is a press and release over the window.
        if (x >= 0 && y >= 0 && x < size_.width && y < size_.height)
            Relay(panel, [](control::VexPanel& p) { p.OnClick(); });
        return 0;
    }
    case WM_LBUTTONDBLCLK:
        Relay(panel, [&](control::VexPanel& p) {
            p.OnMouseDown(1, shift, x, y);
            p.OnDblClick();
        });
        return 0;
    case WM_KEYDOWN:
        Relay(panel, [&](control::VexPanel& p) { p.OnKeyDown(static_cast<int16_t>(wParam), shift); });
        return 0;
    case WM_KEYUP:
        Relay(panel, [&](control::VexPanel& p) { p.OnKeyUp(static_cast<int16_t>(wParam), shift); });
        return 0;
    case WM_CHAR:
        Relay(panel, [&](control::VexPanel& p) { p.OnKeyPress(static_cast<int16_t>(wParam)); });
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        owner_.OnWindowFocus(message == WM_SETFOCUS);
        return 0;
    case WM_MOUSEACTIVATE:
        SetFocus(window_);
        return MA_ACTIVATE;
    default:
        break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

} // namespace vex::activex
