#pragma once
// The suite every host passes (headless now; the Qt widget and the ActiveX control instantiate it
// too). A host takes part through a kit type:
//
//   struct Kit {
//       explicit Kit(platform::Size client);          // a container holding one panel
//       control::VexPanel& Panel();
//       void Advance(int32_t milliseconds);             // the host's time passes; timers tick
//       void MoveMouse(platform::Point client);         // the pointer moves over the control,
//                                                       // relayed as the host relays input
//       void MoveCursorAway();                          // the pointer leaves for another window
//       void ActivateForm();                            // the parent form's Activate
//       void UnloadForm();                              // ... and its Unload
//       void SetBehind(platform::PictureRef form, platform::Point controlOrigin); // the form's pixels
//       void Flush();                                   // what the host does later (a toolkit's
//                                                       // posted paints and events) is done now
//       const std::vector<std::string>& Notifications(); // "property changed" names received
//       int Presents();                                 // how often the surface was presented
//       platform::Dib Shown();                          // what the host shows of the control
//   };
//
// Whole panels are compared with the headless host painting each example once: a host shows the
// same pixels after showing, activating and refreshing it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/vex_panel.h"
#include "control/vxp_format.h"
#include "headless/headless_host.h"
#include "headless/headless_surface.h"

namespace vex::hosttest {

class EventNames : public control::PanelEvents {
public:
    std::vector<std::string> names;
    void Click() override { names.push_back("Click"); }
    void DblClick() override { names.push_back("DblClick"); }
    void KeyDown(int16_t&, int16_t&) override { names.push_back("KeyDown"); }
    void KeyPress(int16_t&) override { names.push_back("KeyPress"); }
    void KeyUp(int16_t&, int16_t&) override { names.push_back("KeyUp"); }
    void MouseDown(int16_t&, int16_t&, float&, float&) override { names.push_back("MouseDown"); }
    void MouseMove(int16_t&, int16_t&, float&, float&) override { names.push_back("MouseMove"); }
    void MouseUp(int16_t&, int16_t&, float&, float&) override { names.push_back("MouseUp"); }
    void MouseExit(int16_t&, int16_t&, float&, float&) override { names.push_back("MouseExit"); }
    void MouseEnter(int16_t&, int16_t&, float&, float&) override { names.push_back("MouseEnter"); }
};

// A 60 x 40 form in which every pixel tells where it is.
inline platform::PictureRef FormPattern()
{
    platform::Dib form(60, 40, 32);
    for (int32_t y = 0; y < form.height(); ++y)
        for (int32_t x = 0; x < form.width(); ++x) {
            uint8_t* pixel = form.row(y) + x * 4;
            pixel[0] = static_cast<uint8_t>(4 * x); // blue
            pixel[1] = static_cast<uint8_t>(6 * y); // green
            pixel[2] = 0x40;
        }
    return platform::Picture::FromBitmap(std::move(form));
}

// The headless host's picture of a saved panel: read, sized and painted once.
inline platform::Dib HeadlessReference(control::MemoryPropertyBag bag, platform::Size client)
{
    control::HeadlessHost host;
    control::HeadlessSurface surface(client);
    control::VexPanel panel(host, surface);
    panel.ReadProperties(bag);
    panel.OnResize();
    return surface.Dc().Snapshot();
}

inline int Differences(const platform::Dib& a, const platform::Dib& b)
{
    if (a.width() != b.width() || a.height() != b.height())
        return -1;
    int count = 0;
    for (int32_t y = 0; y < a.height(); ++y)
        for (int32_t x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y);
    return count;
}

template <typename Kit>
class HostConformance : public ::testing::Test {
protected:
    // A panel read from a property bag, sized and shown, its events recorded.
    void Load(control::MemoryPropertyBag bag)
    {
        kit.Panel().SetEventSink(&events);
        kit.Panel().ReadProperties(bag);
        kit.Panel().OnResize();
        kit.Panel().OnShow();
        kit.Flush();
    }

    static constexpr platform::Size kClient { 48, 24 };
    Kit kit { kClient };
    EventNames events;
};

TYPED_TEST_SUITE_P(HostConformance);

TYPED_TEST_P(HostConformance, PropertyChangesReachTheContainer)
{
    this->Load({});
    this->kit.Panel().setCaption("Changed");
    this->kit.Panel().setWinBackColor(0x123456);
    const std::vector<std::string>& names = this->kit.Notifications();
    EXPECT_EQ(std::vector<std::string>(names.end() - 2, names.end()), (std::vector<std::string> { "Caption", "WinBackColor" }));
}

// A refresh shows what is painted; it never paints again, not even from inside a paint (the
// transparent panel's capture ends with one).
TYPED_TEST_P(HostConformance, RefreshPresentsWithoutRepainting)
{
    control::MemoryPropertyBag bag;
    bag.Set("BackStyle", int16_t(0));
    bag.Set("Caption", std::string("Behind"));
    this->kit.SetBehind(FormPattern(), { 5, 7 });
    this->Load(bag);
    const int presents = this->kit.Presents();
    this->kit.ActivateForm(); // paints once, capturing what lies behind
    this->kit.Flush();
    EXPECT_GT(this->kit.Presents(), presents);
    const platform::Dib shown = this->kit.Shown();
    this->kit.Panel().Refresh();
    this->kit.Flush();
    EXPECT_EQ(Differences(this->kit.Shown(), shown), 0);
    EXPECT_EQ(this->kit.Presents(), presents + 2);
}

TYPED_TEST_P(HostConformance, TimersAndTheMouseEnterAndExit)
{
    this->Load({});
    this->kit.MoveCursorAway();
    this->kit.Advance(3); // a new control reports one MouseExit on its first tick
    EXPECT_EQ(this->events.names, (std::vector<std::string> { "MouseExit" }));
    this->kit.Advance(100);
    this->kit.MoveMouse({ 10, 10 });
    this->kit.MoveMouse({ 11, 10 });
    this->kit.Advance(30); // the pointer is still over the control
    EXPECT_EQ(this->events.names, (std::vector<std::string> { "MouseExit", "MouseEnter", "MouseMove" }));
    this->kit.MoveCursorAway();
    this->kit.Advance(3);
    EXPECT_EQ(this->events.names.back(), "MouseExit");
    EXPECT_FALSE(this->kit.Panel().MouseInside());
}

TYPED_TEST_P(HostConformance, TheParentFormsActivateAndUnloadReachThePanel)
{
    control::MemoryPropertyBag bag;
    bag.Set("BackStyle", int16_t(0));
    this->Load(bag);
    ASSERT_TRUE(this->kit.Panel().HasParentForm());
    this->kit.ActivateForm();
    EXPECT_TRUE(this->kit.Panel().ParentActivated());
    EXPECT_EQ(this->kit.Panel().CaptureBackground(), 1);
    this->kit.UnloadForm();
    EXPECT_EQ(this->kit.Panel().CaptureBackground(), 0);
}

TYPED_TEST_P(HostConformance, ATransparentPanelShowsWhatLiesBehindIt)
{
    control::MemoryPropertyBag bag;
    bag.Set("Appearance", int16_t(3)); // no painter: only the capture draws
    bag.Set("BackStyle", int16_t(0));
    const platform::PictureRef form = FormPattern();
    this->kit.SetBehind(form, { 5, 7 });
    this->Load(bag);
    this->kit.ActivateForm();
    this->kit.Flush();
    const platform::Dib shown = this->kit.Shown();
    for (platform::Point at : { platform::Point { 0, 0 }, platform::Point { 47, 23 }, platform::Point { 20, 9 } })
        EXPECT_EQ(shown.pixel(at.x, at.y), form->bitmap().pixel(at.x + 5, at.y + 7)) << at.x << "," << at.y;
}

TYPED_TEST_P(HostConformance, WholePanelsLookAsOnTheHeadlessHost)
{
    for (const char* name : { "windows-themes", "windows-mixed", "3d-groove", "3d-ridge", "custom-squares",
             "custom-wrapped", "background-tiled" }) {
        SCOPED_TRACE(name);
        control::MemoryPropertyBag bag = control::ReadVxpFile(std::string(VEX_SOURCE_DIR "/examples/") + name + ".vxp");
        TypeParam kit({ 220, 80 });
        kit.Panel().ReadProperties(bag);
        kit.Panel().OnResize();
        kit.Panel().OnShow();
        kit.ActivateForm();
        kit.Panel().Refresh();
        kit.Flush();
        EXPECT_EQ(Differences(kit.Shown(), HeadlessReference(bag, { 220, 80 })), 0);
    }
}

REGISTER_TYPED_TEST_SUITE_P(HostConformance, PropertyChangesReachTheContainer, RefreshPresentsWithoutRepainting,
    TimersAndTheMouseEnterAndExit, TheParentFormsActivateAndUnloadReachThePanel, ATransparentPanelShowsWhatLiesBehindIt,
    WholePanelsLookAsOnTheHeadlessHost);

} // namespace vex::hosttest
