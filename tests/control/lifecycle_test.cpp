// Lifecycle notifications, the parent form, the two timers, input relays and mouse tracking.
// The panel is 100 x 50 with its client origin at screen (100, 100).
#include <algorithm>
#include <sstream>

#include "control/memory_property_bag.h"
#include "panel_fixture.h"

namespace vex::control::testing {
namespace {

// The events as "name button shift x y" (for keys: KeyCode or KeyAscii, Shift), comma separated.
std::string Log(const RecordingEvents& events)
{
    std::ostringstream out;
    for (const EventRecord& e : events.events)
        out << (out.tellp() > 0 ? ", " : "") << e.name << ' ' << e.button << ' ' << e.shift << ' ' << e.x << ' ' << e.y;
    return out.str();
}

class MouseTracking : public PanelTest {
protected:
    void SetUp() override
    {
        surface.SetCursorPos({ 0, 0 });
        host.Advance(3); // the start-up MouseExit
        events.events.clear();
    }
};

TEST_F(PanelTest, ANewControlReportsOneMouseExitOnItsFirstTick)
{
    surface.SetCursorPos({ 5, 5 }); // elsewhere on the screen
    EXPECT_TRUE(panel.Timer1().Enabled());
    EXPECT_EQ(panel.Timer1().Interval(), 3);
    host.Advance(2);
    EXPECT_TRUE(events.events.empty());
    host.Advance(1);
    EXPECT_EQ(Log(events), "MouseExit 0 0 0 0");
    EXPECT_FALSE(panel.Timer1().Enabled());
    host.Advance(100);
    EXPECT_EQ(Log(events), "MouseExit 0 0 0 0");
}

TEST_F(PanelTest, NoStartUpMouseExitWhileThePointerIsOverTheControl)
{
    surface.SetCursorPos({ 150, 120 });
    host.Advance(30);
    EXPECT_TRUE(events.events.empty());
    EXPECT_TRUE(panel.Timer1().Enabled());
}

// One step of a mouse script: a relayed move (button, shift, x, y), the pointer put at a screen
// point (x, y), time passing (milliseconds), or a child window laid over the panel (a rectangle).
struct Step {
    enum Kind { Move, Cursor, Tick, Child } kind;
    float a = 0, b = 0, c = 0, d = 0;
};

TEST_F(PanelTest, MouseTrackingScriptsOfMovesTicksAndPointerPositions)
{
    const auto move = [](float button, float shift, float x, float y) { return Step { Step::Move, button, shift, x, y }; };
    const auto cursor = [](float x, float y) { return Step { Step::Cursor, x, y }; };
    const auto tick = [](float milliseconds) { return Step { Step::Tick, milliseconds }; };
    struct Script {
        const char* name;
        std::vector<Step> steps;
        const char* events;
        bool inside; // and so the tracking timer runs
    };
    const Script scripts[] = {
        { "an entering move raises only MouseEnter, the next ones MouseMove",
            { move(0, 1, 10, 20), move(0, 0, 11, 21), move(0, 0, 12, 22) },
            "MouseEnter 0 1 10 20, MouseMove 0 0 11 21, MouseMove 0 0 12 22", true },
        { "moves on or beyond the right and bottom edges raise nothing",
            { move(0, 0, 100, 10), move(0, 0, 10, 50), move(0, 0, -0.5f, 10), move(0, 0, 10, -1) }, "", false },
        { "a move outside while inside raises nothing either", { move(0, 0, 99.9f, 49.9f), move(0, 0, 100, 49) },
            "MouseEnter 0 0 99.9 49.9", true },
        { "moves with a button held are relayed without enter or bounds test", { move(1, 0, -40, 300), move(2, 4, 50, 25) },
            "MouseMove 1 0 -40 300, MouseMove 2 4 50 25", false },
        { "a tick on the right edge (x = OX + W) over another window is still inside",
            { move(0, 0, 50, 25), cursor(200, 150), tick(30) }, "MouseEnter 0 0 50 25", true },
        { "one pixel further is an exit", { move(0, 0, 50, 25), cursor(201, 150), tick(3) },
            "MouseEnter 0 0 50 25, MouseExit 0 0 50 25", false },
        { "a child window on the panel is not an exit; leaving from it is",
            { Step { Step::Child, 10, 10, 40, 30 }, move(0, 0, 5, 5), cursor(120, 120), tick(30), cursor(120, 400), tick(3) },
            "MouseEnter 0 0 5 5, MouseExit 0 0 5 5", false },
        { "MouseExit reports the last relayed move, not the pointer; the next move enters again",
            { move(0, 2, 10, 10), move(0, 3, 20, 25), move(0, 0, 150, 25), cursor(500, 500), tick(3), move(0, 0, 1, 1) },
            "MouseEnter 0 2 10 10, MouseMove 0 3 20 25, MouseExit 0 3 20 25, MouseEnter 0 0 1 1", true },
    };
    for (const Script& script : scripts) {
        SCOPED_TRACE(script.name);
        HeadlessHost host;
        FailingSurface surface(std::make_unique<NullDeviceContext>(), platform::Size { 100, 50 });
        VexPanel panel(host, surface);
        RecordingEvents events;
        panel.SetEventSink(&events);
        surface.SetCursorPos({ 0, 0 });
        host.Advance(3); // the start-up MouseExit
        events.events.clear();
        for (const Step& step : script.steps) {
            if (step.kind == Step::Move)
                panel.OnMouseMove(int16_t(step.a), int16_t(step.b), step.c, step.d);
            else if (step.kind == Step::Cursor)
                surface.SetCursorPos({ int32_t(step.a), int32_t(step.b) });
            else if (step.kind == Step::Tick)
                host.Advance(int32_t(step.a));
            else
                surface.AddChildWindow({ int32_t(step.a), int32_t(step.b), int32_t(step.c), int32_t(step.d) });
        }
        EXPECT_EQ(Log(events), script.events);
        EXPECT_EQ(panel.MouseInside(), script.inside);
        EXPECT_EQ(panel.Timer1().Enabled(), script.inside);
    }
}

TEST_F(MouseTracking, AHandlerMayChangeItsParametersWithoutChangingWhatIsRemembered)
{
    struct Meddler : RecordingEvents {
        void MouseMove(int16_t& b, int16_t& s, float& x, float& y) override
        {
            RecordingEvents::MouseMove(b, s, x, y);
            x = -1;
            s = 7;
        }
    } meddler;
    panel.SetEventSink(&meddler);
    panel.OnMouseMove(0, 0, 10, 10);
    panel.OnMouseMove(0, 1, 30, 30);
    surface.SetCursorPos({ 0, 0 });
    host.Advance(3);
    EXPECT_EQ(meddler.events.back().name, "MouseExit");
    EXPECT_EQ(meddler.events.back().x, 30.0f);
    EXPECT_EQ(meddler.events.back().shift, 1);
}

TEST_F(PanelTest, InputIsRelayedAsEvents)
{
    panel.OnClick();
    panel.OnDblClick();
    panel.OnKeyDown(65, 1);
    panel.OnKeyPress(97);
    panel.OnKeyUp(65, 0);
    panel.OnMouseDown(1, 2, 3.5f, 4.5f);
    panel.OnMouseUp(1, 0, 5, 6);
    EXPECT_EQ(Log(events), "Click 0 0 0 0, DblClick 0 0 0 0, KeyDown 65 1 0 0, KeyPress 97 0 0 0, KeyUp 65 0 0 0, "
                           "MouseDown 1 2 3.5 4.5, MouseUp 1 0 5 6");
}

// ---- The parent form ------------------------------------------------------------------------------

class ParentForm : public PanelTest {
protected:
    void Load(MemoryPropertyBag bag)
    {
        panel.ReadProperties(bag);
        ClearRecords();
    }
};

TEST_F(ParentForm, FirstActivationOfATransparentPanelStartsCaptureOnce)
{
    MemoryPropertyBag bag;
    bag.Set("BackStyle", int16_t(0));
    Load(bag);
    EXPECT_TRUE(panel.HasParentForm());
    EXPECT_EQ(panel.CaptureBackground(), 0);
    host.form.Activate();
    EXPECT_TRUE(panel.ParentActivated());
    EXPECT_EQ(panel.CaptureBackground(), 1);
    // One DrawControl(False); the capture's own refresh only presents it.
    EXPECT_EQ(Redraws(), (std::vector<bool> { false }));
    EXPECT_EQ(host.captures, 1);
    size_t redraws = Redraws().size();
    host.form.Activate();
    EXPECT_EQ(Redraws().size(), redraws);
    host.form.Unload();
    EXPECT_EQ(panel.CaptureBackground(), 0);
}

TEST_F(ParentForm, AnOpaquePanelDoesNotCapture)
{
    Load(MemoryPropertyBag {});
    host.form.Activate();
    EXPECT_EQ(panel.CaptureBackground(), 0);
    EXPECT_TRUE(Redraws().empty());
}

TEST_F(ParentForm, ASavedRunningAnimationStartsOnFirstActivationOnly)
{
    MemoryPropertyBag bag;
    bag.Set("Picture", Bitmap(32, 8));
    bag.Set("PictureAnimEnabled", true);
    bag.Set("PictureFrames", int16_t(4));
    bag.Set("PictureAnimDelay", int16_t(70));
    Load(bag);
    EXPECT_FALSE(panel.Timer2().Enabled()); // loading alone does not start it
    host.form.Activate();
    EXPECT_TRUE(panel.Timer2().Enabled());
    EXPECT_EQ(panel.Timer2().Interval(), 70);
    host.Advance(140);
    EXPECT_EQ(panel.AnimFrame(), 2);
    host.form.Unload();
    EXPECT_FALSE(panel.Timer2().Enabled());
    host.Advance(1000);
    EXPECT_EQ(panel.AnimFrame(), 2);
}

TEST_F(ParentForm, AnimationNeedsTwoFramesEnabledAndABitmap)
{
    struct Case {
        int16_t frames;
        bool enabled;
        bool icon;
    };
    for (Case c : { Case { 1, true, false }, Case { 2, false, false }, Case { 2, true, true } }) {
        HeadlessHost host;
        HeadlessSurface surface(std::make_unique<NullDeviceContext>(), { 100, 50 });
        VexPanel panel(host, surface);
        MemoryPropertyBag bag;
        bag.Set("Picture", c.icon ? IconPicture() : Bitmap());
        bag.Set("PictureAnimEnabled", int16_t(-1));
        bag.Set("PictureFrames", c.frames);
        bag.Set("Enabled", c.enabled);
        panel.ReadProperties(bag);
        host.form.Activate();
        EXPECT_FALSE(panel.Timer2().Enabled()) << c.frames << c.enabled << c.icon;
    }
}

TEST_F(ParentForm, AtDesignTimeNoParentIsHeldAndNothingIsCaptured)
{
    host.userMode = false;
    MemoryPropertyBag bag;
    bag.Set("BackStyle", int16_t(0));
    Load(bag);
    EXPECT_FALSE(panel.HasParentForm());
    EXPECT_EQ(host.form.ConnectionCount(), 0u);
    host.form.Activate();
    EXPECT_FALSE(panel.ParentActivated());
    EXPECT_EQ(panel.CaptureBackground(), 0);
}

TEST_F(ParentForm, ActivationIgnoresErrorsAndGoesOnToTheAnimation)
{
    MemoryPropertyBag bag;
    bag.Set("BackStyle", int16_t(0));
    bag.Set("Picture", Bitmap());
    bag.Set("PictureAnimEnabled", true);
    bag.Set("PictureFrames", int16_t(2));
    Load(bag);
    surface.failClientSize = true; // the capture's DrawControl fails
    EXPECT_NO_THROW(host.form.Activate());
    EXPECT_EQ(panel.CaptureBackground(), 1);
    EXPECT_TRUE(panel.Timer2().Enabled());
}

// ---- Notifications that swallow errors, and those that do not ------------------------------------

TEST_F(PanelTest, ResizeClearsThePainterStateAndRedrawsWithClearing)
{
    panel.OnResize();
    EXPECT_EQ(Redraws(), (std::vector<bool> { true }));
    panel.OnPaint();
    EXPECT_EQ(Redraws(), (std::vector<bool> { true, false }));
}

TEST_F(PanelTest, ShowSetsTheWindowStateAndRefreshesEvenAfterAnError)
{
    MemoryPropertyBag bag;
    bag.Set("Enabled", false);
    panel.ReadProperties(bag);
    panel.OnShow();
    EXPECT_FALSE(surface.WindowEnabled());
    EXPECT_EQ(surface.RefreshCount(), 1);

    surface.failWindowEnabled = true;
    EXPECT_NO_THROW(panel.OnShow());
    EXPECT_EQ(surface.RefreshCount(), 2); // the refresh still ran
}

TEST_F(PanelTest, ResizeAndTerminateIgnoreErrorsButPaintDoesNot)
{
    surface.failClientSize = true;
    EXPECT_NO_THROW(panel.OnResize());
    EXPECT_THROW(panel.OnPaint(), RuntimeError);
    surface.failRegions = true;
    EXPECT_NO_THROW(panel.OnTerminate());
    surface.failRegions = false;
    panel.OnTerminate();
    EXPECT_EQ(surface.RegionReleases(), 1);
}

TEST_F(PanelTest, TheAnimationTickLetsMessagesRunFirst)
{
    panel.setPicture(Bitmap(16, 4));
    panel.setPictureFrames(4);
    std::vector<int16_t> framesSeen;
    host.onDoEvents = [&] {
        framesSeen.push_back(panel.AnimFrame());
        panel.OnPaint(); // a repaint arriving in the middle of a tick
    };
    panel.setPictureAnimDelay(10);
    panel.setPictureAnimEnabled(true);
    host.Advance(35);
    EXPECT_EQ(panel.AnimFrame(), 3);
    ASSERT_FALSE(framesSeen.empty());
    EXPECT_EQ(framesSeen.front(), 0); // messages ran before the first frame was drawn
}

} // namespace
} // namespace vex::control::testing
