#include "headless/headless_surface.h"

#include <atomic>

#ifndef _WIN32
#include "platform/soft/soft_device_context.h"
#endif

namespace vex::control {

namespace {

// Handles are only compared, never dereferenced; each surface gets its own range.
int32_t NextHandleBlock()
{
    static std::atomic<int32_t> next { 0x10000 };
    return next.fetch_add(0x100);
}

bool Contains(const platform::Rect& rect, platform::Point point)
{
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

} // namespace

HeadlessSurface::HeadlessSurface(std::unique_ptr<platform::DeviceContext> dc, platform::Size clientSize)
    : dc_(std::move(dc))
    , clientSize_(clientSize)
{
    int32_t block = NextHandleBlock();
    hwnd_ = block;
    hdc_ = block + 1;
    nextHandle_ = block + 2;
}

#ifndef _WIN32
HeadlessSurface::HeadlessSurface(platform::Size clientSize)
    : HeadlessSurface(platform::soft::CreateSurface(clientSize.width, clientSize.height), clientSize)
{
    auto* soft = static_cast<platform::soft::SoftDeviceContext*>(dc_.get());
    resize_ = [soft](platform::Size size) { soft->Resize(size.width, size.height); };
}
#endif

void HeadlessSurface::SetClientSize(platform::Size size)
{
    clientSize_ = size;
    if (resize_)
        resize_(size);
}

// The surface is a persistent picture: a refresh shows what has been painted and never runs the
// painters again (an animation tick's frame or a transparent panel's layers over its capture
// would be painted over).
void HeadlessSurface::Refresh()
{
    ++refreshCount_;
    if (onPresent_)
        onPresent_();
}

platform::Point HeadlessSurface::ClientToScreen(platform::Point point)
{
    return platform::Point { origin_.x + point.x, origin_.y + point.y };
}

int32_t HeadlessSurface::AddChildWindow(platform::Rect clientRect)
{
    children_.push_back(Window { nextHandle_, clientRect });
    return nextHandle_++;
}

int32_t HeadlessSurface::AddCoveringWindow(platform::Rect screenRect)
{
    covering_.push_back(Window { nextHandle_, screenRect });
    return nextHandle_++;
}

// Topmost first: covering windows, then the control's children, then the control itself.
int32_t HeadlessSurface::WindowFromPoint(platform::Point screenPoint)
{
    for (auto window = covering_.rbegin(); window != covering_.rend(); ++window)
        if (Contains(window->screenRect, screenPoint))
            return window->handle;
    platform::Point client { screenPoint.x - origin_.x, screenPoint.y - origin_.y };
    for (auto window = children_.rbegin(); window != children_.rend(); ++window)
        if (Contains(window->screenRect, client))
            return window->handle;
    if (Contains(platform::Rect { 0, 0, clientSize_.width, clientSize_.height }, client))
        return hwnd_;
    return kDesktopWindow;
}

} // namespace vex::control
