#pragma once
// A panel on the headless host, with a device context that records the rectangles it is asked
// to fill and frame, a surface that can be told to fail, and an event sink that records events.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "headless/headless_surface.h"
#include "control/memory_property_bag.h"
#include "testing/null_device_context.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"
#include "raises.h"
#include "render/colour.h"

namespace vex::control::testing {

using vex::testing::RaisedBy;

struct RectCall {
    std::string op; // "FillRect" or "FrameRect"
    platform::Rect rect;
    platform::Brush brush;
    friend bool operator==(const RectCall&, const RectCall&) = default;
};

class RecordingDc : public NullDeviceContext {
public:
    using NullDeviceContext::NullDeviceContext;
    void FillRect(const platform::Rect& rect, platform::Brush brush) override { calls.push_back({ "FillRect", rect, brush }); }
    void FrameRect(const platform::Rect& rect, platform::Brush brush) override { calls.push_back({ "FrameRect", rect, brush }); }
    // Every paint sets the transparent background mode once, before any painter: a DrawControl,
    // recorded as the number of calls before it.
    int SetBkMode(int mode) override
    {
        paints.push_back(calls.size());
        return NullDeviceContext::SetBkMode(mode);
    }
    std::vector<size_t> paints;
    std::vector<RectCall> calls;
};

// A surface whose calls can be made to fail with a run-time error, as a host's may.
class FailingSurface : public HeadlessSurface {
public:
    using HeadlessSurface::HeadlessSurface;
    bool failClientSize = false;
    bool failWindowEnabled = false;
    bool failRegions = false;
    platform::Size ClientSize() override
    {
        if (failClientSize)
            Raise(ErrorCode::InvalidProcedureCall);
        return HeadlessSurface::ClientSize();
    }
    void SetWindowEnabled(bool enabled) override
    {
        if (failWindowEnabled)
            Raise(ErrorCode::InvalidProcedureCall);
        HeadlessSurface::SetWindowEnabled(enabled);
    }
    void ReleaseWindowRegions() override
    {
        if (failRegions)
            Raise(ErrorCode::InvalidProcedureCall);
        HeadlessSurface::ReleaseWindowRegions();
    }
};

struct EventRecord {
    std::string name;
    int16_t button = 0, shift = 0;
    float x = 0, y = 0;
};

class RecordingEvents : public PanelEvents {
public:
    std::vector<EventRecord> events;
    void Click() override { events.push_back({ "Click" }); }
    void DblClick() override { events.push_back({ "DblClick" }); }
    void KeyDown(int16_t& KeyCode, int16_t& Shift) override { events.push_back({ "KeyDown", KeyCode, Shift }); }
    void KeyPress(int16_t& KeyAscii) override { events.push_back({ "KeyPress", KeyAscii }); }
    void KeyUp(int16_t& KeyCode, int16_t& Shift) override { events.push_back({ "KeyUp", KeyCode, Shift }); }
    void MouseDown(int16_t& b, int16_t& s, float& x, float& y) override { events.push_back({ "MouseDown", b, s, x, y }); }
    void MouseMove(int16_t& b, int16_t& s, float& x, float& y) override { events.push_back({ "MouseMove", b, s, x, y }); }
    void MouseUp(int16_t& b, int16_t& s, float& x, float& y) override { events.push_back({ "MouseUp", b, s, x, y }); }
    void MouseExit(int16_t& b, int16_t& s, float& x, float& y) override { events.push_back({ "MouseExit", b, s, x, y }); }
    void MouseEnter(int16_t& b, int16_t& s, float& x, float& y) override { events.push_back({ "MouseEnter", b, s, x, y }); }
};

// A 100 x 50 panel at screen (100, 100), events recorded.
class PanelTest : public ::testing::Test {
protected:
    PanelTest()
        : dc_(new RecordingDc(platform::Size { 100, 50 }))
        , surface(std::unique_ptr<platform::DeviceContext>(dc_), platform::Size { 100, 50 })
        , panel(host, surface)
    {
        panel.SetEventSink(&events);
        dc_->paints.clear(); // the surface's own set-up is no paint
    }

    RecordingDc& dc() { return *dc_; }

    // Each DrawControl since the records were cleared, with its OptionCLS: whether it began by
    // clearing the whole client to the back colour.
    std::vector<bool> Redraws()
    {
        const RectCall clear { "FillRect", { 0, 0, surface.ClientSize().width, surface.ClientSize().height },
            platform::Brush::Solid(render::TranslateColor(panel.BackColor(), *dc_)) };
        std::vector<bool> redraws;
        size_t previous = 0; // the calls before the previous paint
        for (size_t before : dc_->paints) {
            redraws.push_back(before > previous && dc_->calls[before - 1] == clear);
            previous = before;
        }
        return redraws;
    }
    void ClearRecords()
    {
        host.ClearRecords();
        dc_->calls.clear();
        dc_->paints.clear();
    }

    static platform::PictureRef Bitmap(int32_t width = 8, int32_t height = 4)
    {
        return platform::Picture::FromBitmap(platform::Dib(width, height, 32));
    }
    static platform::PictureRef IconPicture()
    {
        return platform::Picture::FromIcon(platform::Icon { platform::Dib(4, 4, 32), platform::Dib(4, 4, 1) });
    }

    HeadlessHost host;
    RecordingDc* dc_;
    FailingSurface surface;
    VexPanel panel;
    RecordingEvents events;
};

} // namespace vex::control::testing
