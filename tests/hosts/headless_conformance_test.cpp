// The headless host in the host suite.
#include "host_conformance.h"

namespace vex::hosttest {
namespace {

class HeadlessKit {
public:
    explicit HeadlessKit(platform::Size client) : surface_(client), panel_(host_, surface_)
    {
        surface_.OnPresent([this] { ++presents_; });
    }

    control::VexPanel& Panel() { return panel_; }
    void Advance(int32_t milliseconds) { host_.Advance(milliseconds); }
    void MoveMouse(platform::Point client)
    {
        surface_.SetCursorPos(surface_.ClientToScreen(client));
        panel_.OnMouseMove(0, 0, static_cast<float>(client.x), static_cast<float>(client.y));
    }
    void MoveCursorAway() { surface_.SetCursorPos({ 0, 0 }); }
    void ActivateForm() { host_.form.Activate(); }
    void UnloadForm() { host_.form.Unload(); }
    void SetBehind(platform::PictureRef form, platform::Point controlOrigin)
    {
        host_.backdrop = std::move(form);
        host_.controlOffset = controlOrigin;
    }
    void Flush() { } // everything happens as it is asked for
    const std::vector<std::string>& Notifications() { return host_.notifications; }
    int Presents() { return presents_; }
    platform::Dib Shown() { return surface_.Dc().Snapshot(); }

private:
    control::HeadlessHost host_;
    control::HeadlessSurface surface_;
    control::VexPanel panel_;
    int presents_ = 0;
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Headless, HostConformance, HeadlessKit);

} // namespace vex::hosttest
