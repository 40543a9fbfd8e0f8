// Lifecycle notifications, the parent form, the two timers, input relays and mouse tracking.
// The panel is 100 x 50 with its client origin at screen (100, 100).
#include <algorithm>

#include "control/memory_property_bag.h"
#include "panel_fixture.h"

namespace vex::control::testing {
namespace {

using Names = std::vector<std::string>;

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
    ASSERT_EQ(events.Names(), (Names { "MouseExit" }));
    const EventRecord& exit = events.events[0];
    EXPECT_EQ(exit.button, 0);
    EXPECT_EQ(exit.shift, 0);
    EXPECT_EQ(exit.x, 0.0f);
    EXPECT_EQ(exit.y, 0.0f);
    EXPECT_FALSE(panel.Timer1().Enabled());
    host.Advance(100);
    EXPECT_EQ(events.events.size(), 1u);
}

TEST_F(PanelTest, NoStartUpMouseExitWhileThePointerIsOverTheControl)
{
    surface.SetCursorPos({ 150, 120 });
    host.Advance(30);
    EXPECT_TRUE(events.events.empty());
    EXPECT_TRUE(panel.Timer1().Enabled());
}

TEST_F(MouseTracking, EnteringMoveRaisesOnlyMouseEnterThenMovesRaiseMouseMove)
{
    panel.OnMouseMove(0, 1, 10, 20);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter" }));
    EXPECT_TRUE(panel.MouseInside());
    EXPECT_TRUE(panel.Timer1().Enabled());
    panel.OnMouseMove(0, 0, 11, 21);
    panel.OnMouseMove(0, 0, 12, 22);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter", "MouseMove", "MouseMove" }));
    EXPECT_EQ(events.events[0].shift, 1);
    EXPECT_EQ(events.events[2].x, 12.0f);
}

TEST_F(MouseTracking, MovesOnOrBeyondTheRightAndBottomEdgesRaiseNothing)
{
    panel.OnMouseMove(0, 0, 100, 10);
    panel.OnMouseMove(0, 0, 10, 50);
    panel.OnMouseMove(0, 0, -0.5f, 10);
    panel.OnMouseMove(0, 0, 10, -1);
    EXPECT_TRUE(events.events.empty());
    EXPECT_FALSE(panel.MouseInside());
    EXPECT_FALSE(panel.Timer1().Enabled());
    panel.OnMouseMove(0, 0, 99.9f, 49.9f);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter" }));
    panel.OnMouseMove(0, 0, 100, 49); // inside already, but this move is outside: nothing
    EXPECT_EQ(events.events.size(), 1u);
}

TEST_F(MouseTracking, MovesWithAButtonHeldAreRelayedWithoutEnterOrBoundsTest)
{
    panel.OnMouseMove(1, 0, -40, 300); // a drag that started outside
    panel.OnMouseMove(2, 4, 50, 25);
    EXPECT_EQ(events.Names(), (Names { "MouseMove", "MouseMove" }));
    EXPECT_FALSE(panel.MouseInside());
    EXPECT_EQ(events.events[0].x, -40.0f);
    EXPECT_EQ(events.events[1].button, 2);
}

TEST_F(MouseTracking, TimerTickOnTheRightEdgeOverAnotherWindowIsStillInside)
{
    panel.OnMouseMove(0, 0, 50, 25);
    surface.SetCursorPos({ 200, 150 }); // x = OX + W, y = OY + H: not our window, but in the rectangle
    ASSERT_NE(surface.WindowFromPoint({ 200, 150 }), surface.hWnd());
    host.Advance(30);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter" }));
    EXPECT_TRUE(panel.MouseInside());
    surface.SetCursorPos({ 201, 150 });
    host.Advance(3);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter", "MouseExit" }));
    EXPECT_FALSE(panel.MouseInside());
    EXPECT_FALSE(panel.Timer1().Enabled());
}

TEST_F(MouseTracking, AChildWindowOnThePanelIsNotAnExit)
{
    int32_t child = surface.AddChildWindow({ 10, 10, 40, 30 });
    panel.OnMouseMove(0, 0, 5, 5);
    surface.SetCursorPos({ 120, 120 });
    ASSERT_EQ(surface.WindowFromPoint({ 120, 120 }), child);
    host.Advance(30);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter" }));
    surface.SetCursorPos({ 120, 400 }); // left the panel from the child
    host.Advance(3);
    EXPECT_EQ(events.Names(), (Names { "MouseEnter", "MouseExit" }));
}

TEST_F(MouseTracking, MouseExitReportsTheLastRelayedMoveNotThePointer)
{
    panel.OnMouseMove(0, 2, 10, 10);
    panel.OnMouseMove(0, 3, 20, 25);
    panel.OnMouseMove(0, 0, 150, 25); // outside: not relayed, not remembered
    surface.SetCursorPos({ 500, 500 });
    host.Advance(3);
    ASSERT_EQ(events.events.back().name, "MouseExit");
    EXPECT_EQ(events.events.back().shift, 3);
    EXPECT_EQ(events.events.back().x, 20.0f);
    EXPECT_EQ(events.events.back().y, 25.0f);
    // And after the exit, the next move in enters again.
    panel.OnMouseMove(0, 0, 1, 1);
    EXPECT_EQ(events.events.back().name, "MouseEnter");
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
    EXPECT_EQ(events.Names(), (Names { "Click", "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseUp" }));
    EXPECT_EQ(events.events[2].button, 65); // KeyCode
    EXPECT_EQ(events.events[2].shift, 1);
    EXPECT_EQ(events.events[3].button, 97); // KeyAscii
    EXPECT_EQ(events.events[5].x, 3.5f);
    EXPECT_EQ(events.events[5].y, 4.5f);
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
