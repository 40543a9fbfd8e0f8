#include "headless/headless_host.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "pages/about_box.h"

namespace vex::control {

// ---- The form ------------------------------------------------------------------------------------------

void HeadlessForm::Activate()
{
    auto sinks = sinks_; // a handler may disconnect
    for (FormEventSink* sink : sinks)
        sink->FormActivate();
}

void HeadlessForm::Unload()
{
    auto sinks = sinks_;
    for (FormEventSink* sink : sinks)
        sink->FormUnload();
}

// ---- Timers on the manual clock -------------------------------------------------------------------------

class HeadlessHost::Timer : public HostTimer {
public:
    Timer(HeadlessHost& host, std::function<void()> tick) : host_(host), tick_(std::move(tick)) { host_.timers_.push_back(this); }
    ~Timer() override { std::erase(host_.timers_, this); }

    void SetInterval(int32_t milliseconds) override
    {
        interval_ = milliseconds;
        Restart();
    }
    int32_t Interval() const override { return interval_; }
    void SetEnabled(bool enabled) override
    {
        if (enabled && !enabled_) {
            enabled_ = true;
            Restart();
        }
        enabled_ = enabled;
    }
    bool Enabled() const override { return enabled_; }

    bool Running() const { return enabled_ && interval_ > 0; }
    int64_t due = 0;
    void Tick()
    {
        due += interval_;
        tick_();
    }

private:
    void Restart() { due = host_.now_ + interval_; }

    HeadlessHost& host_;
    std::function<void()> tick_;
    int32_t interval_ = 0;
    bool enabled_ = false;
};

HeadlessHost::HeadlessHost() = default;

// Every panel (and so every timer) must be gone before its host.
HeadlessHost::~HeadlessHost() = default;

std::unique_ptr<HostTimer> HeadlessHost::CreateTimer(std::function<void()> tick)
{
    return std::make_unique<Timer>(*this, std::move(tick));
}

void HeadlessHost::Advance(int64_t milliseconds)
{
    int64_t target = now_ + milliseconds;
    for (;;) {
        Timer* next = nullptr;
        for (Timer* timer : timers_)
            if (timer->Running() && timer->due <= target && (!next || timer->due < next->due))
                next = timer;
        if (!next)
            break;
        now_ = std::max(now_, next->due);
        next->Tick();
    }
    now_ = target;
}

// ---- Everything else ----------------------------------------------------------------------------------

int32_t HeadlessHost::MessageBox(const std::string& text, const std::string& title, int32_t flags)
{
    messageBoxes.push_back(MessageBoxCall { text, title, flags });
    return 1; // OK
}

void HeadlessHost::ShowAboutBox()
{
    const pages::AboutBox& about = pages::TheAboutBox();
    aboutBoxes.push_back(MessageBoxCall { about.Text(), about.title, mb::Information });
}

void HeadlessHost::DoEvents()
{
    ++doEventsCalls;
    if (onDoEvents)
        onDoEvents();
}

ParentForm& HeadlessHost::Parent()
{
    if (!parentIsForm)
        Raise(ErrorCode::TypeMismatch);
    return form;
}

// The backdrop's pixels under the control, black where the control reaches past it.
platform::PictureRef HeadlessHost::CaptureBehind(int32_t width, int32_t height)
{
    ++captures;
    platform::Dib pixels(width, height, 32, true);
    if (backdrop && backdrop->type() == platform::PictureType::Bitmap) {
        const platform::Dib& source = backdrop->bitmap();
        for (int32_t y = 0; y < height; ++y) {
            for (int32_t x = 0; x < width; ++x) {
                int32_t sourceX = x + controlOffset.x;
                int32_t sourceY = y + controlOffset.y;
                if (sourceX < 0 || sourceY < 0 || sourceX >= source.width() || sourceY >= source.height())
                    continue;
                ColorRef color = source.pixel(sourceX, sourceY);
                uint8_t* pixel = pixels.row(y) + x * 4;
                pixel[0] = static_cast<uint8_t>(BlueOf(color));
                pixel[1] = static_cast<uint8_t>(GreenOf(color));
                pixel[2] = static_cast<uint8_t>(RedOf(color));
            }
        }
    }
    return platform::Picture::FromBitmap(std::move(pixels));
}

void HeadlessHost::ClearRecords()
{
    notifications.clear();
    messageBoxes.clear();
    aboutBoxes.clear();
    doEventsCalls = 0;
    captures = 0;
}

} // namespace vex::control
