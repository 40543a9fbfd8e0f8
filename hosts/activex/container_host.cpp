#include "container_host.h"

#include <map>

#include "control/restarting_timer.h"
#include "pages/about_box.h"
#include "platform/win32/gdi_context.h"
#include "platform/win32/surface.h"

namespace vex::activex {

std::wstring Wide(std::string_view text)
{
    if (text.empty())
        return {};
    int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), length);
    return wide;
}

std::string Narrow(const wchar_t* text, size_t length)
{
    if (!text || length == 0)
        return {};
    int size = WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), narrow.data(), size, nullptr, nullptr);
    return narrow;
}

// ---- The form ------------------------------------------------------------------------------------

void ContainerForm::Activate()
{
    for (control::FormEventSink* sink : std::vector(sinks_))
        sink->FormActivate();
}

void ContainerForm::Unload()
{
    for (control::FormEventSink* sink : std::vector(sinks_))
        sink->FormUnload();
}

// ---- Timers --------------------------------------------------------------------------------------

namespace {

// A thread timer (SetTimer without a window). Windows names it by the id it returns; the map
// finds the timer again when WM_TIMER calls back.
class ThreadTimer final : public control::RestartingTimer {
public:
    explicit ThreadTimer(std::function<void()> tick) : tick_(std::move(tick)) { }
    ~ThreadTimer() override { Stop(); }

private:
    static std::map<UINT_PTR, ThreadTimer*>& Running()
    {
        static std::map<UINT_PTR, ThreadTimer*> running;
        return running;
    }
    static void CALLBACK Tick(HWND, UINT, UINT_PTR id, DWORD)
    {
        // Nothing may leave a window procedure's callback: a tick's error ends with the tick.
        auto found = Running().find(id);
        if (found == Running().end())
            return;
        try {
            found->second->tick_();
        } catch (...) {
        }
    }
    void Start(int32_t milliseconds) override
    {
        Stop();
        id_ = SetTimer(nullptr, 0, static_cast<UINT>(milliseconds), &ThreadTimer::Tick);
        if (id_)
            Running()[id_] = this;
    }
    void Stop() override
    {
        if (id_) {
            KillTimer(nullptr, id_);
            Running().erase(id_);
            id_ = 0;
        }
    }

    std::function<void()> tick_;
    UINT_PTR id_ = 0;
};

} // namespace

// ---- The container's services --------------------------------------------------------------------

void ContainerHost::PropertyChanged(const std::string& name)
{
    if (onPropertyChanged)
        onPropertyChanged(name);
}

// The host's message box flags and answers are Windows' own (16 = MB_ICONHAND, 1 = IDOK, ...).
int32_t ContainerHost::MessageBox(const std::string& text, const std::string& title, int32_t flags)
{
    return ::MessageBoxW(owner, Wide(text).c_str(), Wide(title).c_str(), static_cast<UINT>(flags) | MB_TASKMODAL);
}

void ContainerHost::ShowAboutBox()
{
    const pages::AboutBox& about = pages::TheAboutBox();
    ::MessageBoxW(owner, Wide(about.Text()).c_str(), Wide(about.title).c_str(), MB_OK | MB_ICONINFORMATION | MB_TASKMODAL);
}

void ContainerHost::DoEvents()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

std::unique_ptr<control::HostTimer> ContainerHost::CreateTimer(std::function<void()> tick)
{
    return std::make_unique<ThreadTimer>(std::move(tick));
}

void ContainerHost::SetExtenderVisible(bool visible)
{
    if (window)
        window->Show(visible);
}

// The container's pixels under the control; without a window there is nothing of the container
// behind it: black, as a fresh bitmap is.
platform::PictureRef ContainerHost::CaptureBehind(int32_t width, int32_t height)
{
    if (window && window->handle())
        return window->CaptureParent(width, height);
    return platform::Picture::FromBitmap(platform::Dib(width, height, 32, true));
}

} // namespace vex::activex
