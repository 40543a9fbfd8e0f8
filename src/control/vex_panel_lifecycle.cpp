// Host notifications, the parent form's Activate and Unload, the two timers, the input relays
// and the mouse-enter / mouse-exit tracking.
//
// Show, Resize, Terminate and the parent's Activate must not fail: each step's run-time error is
// dropped there and the next step runs. Every other notification lets errors reach the host.
#include "control/vex_panel.h"

#include "base/runtime_error.h"
#include "render/painters.h"

namespace vex::control {

namespace {

// Runs one step of a notification that ignores errors ("resume next").
template <typename Step>
void IgnoringErrors(Step step)
{
    try {
        step();
    } catch (const RuntimeError&) {
    }
}

} // namespace

void VexPanel::OnShow()
{
    IgnoringErrors([&] { surface_.SetWindowEnabled(props_.Enabled); });
    IgnoringErrors([&] { surface_.Refresh(); });
}

void VexPanel::OnResize()
{
    IgnoringErrors([&] { ResetPainterState(); });
    IgnoringErrors([&] { DrawControl(true); });
}

void VexPanel::OnPaint() { DrawControl(false); }

// The Custom appearance's window regions belong to the surface's window; nothing else is freed.
void VexPanel::OnTerminate()
{
    IgnoringErrors([&] { surface_.ReleaseWindowRegions(); });
}

// ---- The parent form -------------------------------------------------------------------------------

void VexPanel::OnParentActivate()
{
    if (ParentActivated_)
        return;
    ParentActivated_ = true;
    IgnoringErrors([&] {
        if (props_.BackStyle == TypeBackStyle::Transparent) {
            paint_.CaptureBackground = 1;
            DrawControl(false);
        }
    });
    // Loading a saved running animation does not start it; the form's first activation does.
    IgnoringErrors([&] {
        if (props_.Picture && props_.PictureAnimEnabled && props_.PictureFrames >= 2 && props_.Enabled
            && props_.Picture->type() == platform::PictureType::Bitmap)
            StartAnimation();
    });
}

void VexPanel::OnParentUnload()
{
    Timer2_->SetEnabled(false);
    paint_.CaptureBackground = 0;
}

void VexPanel::StartAnimation()
{
    memory_.AnimFrame = 0;
    Timer2_->SetInterval(props_.PictureAnimDelay);
    Timer2_->SetEnabled(true);
}

// ---- Timers -------------------------------------------------------------------------------------------

// The mouse-exit poller. The pointer is still "inside" while it is over the control's own window,
// or anywhere within the control's rectangle (over a child window, say); here the right and
// bottom edges count as inside, unlike in OnMouseMove.
void VexPanel::OnTimer1()
{
    int32_t window = surface_.hWnd();
    platform::Point origin = surface_.ClientToScreen({ 0, 0 });
    platform::Point cursor = surface_.CursorPos();
    if (surface_.WindowFromPoint(cursor) == window)
        return;
    double width = surface_.ScaleWidth();
    double height = surface_.ScaleHeight();
    if (cursor.x >= origin.x && cursor.y >= origin.y && cursor.x <= origin.x + width && cursor.y <= origin.y + height)
        return;
    MouseInside_ = false;
    Timer1_->SetEnabled(false);
    // The last relayed move's values, not where the pointer is now.
    int16_t button = LastButton_;
    int16_t shift = LastShift_;
    float x = LastX_;
    float y = LastY_;
    if (events_)
        events_->MouseExit(button, shift, x, y);
}

// The animation tick lets pending messages run first, so a paint may come in between.
void VexPanel::OnTimer2()
{
    host_.DoEvents();
    render::PaintContext context = Context();
    render::AnimatePicture(context);
}

// ---- Input relays --------------------------------------------------------------------------------------
// The relays do not look at Enabled: a disabled window receives no input from the host.

void VexPanel::OnClick()
{
    if (events_)
        events_->Click();
}

void VexPanel::OnDblClick()
{
    if (events_)
        events_->DblClick();
}

void VexPanel::OnKeyDown(int16_t KeyCode, int16_t Shift)
{
    if (events_)
        events_->KeyDown(KeyCode, Shift);
}

void VexPanel::OnKeyPress(int16_t KeyAscii)
{
    if (events_)
        events_->KeyPress(KeyAscii);
}

void VexPanel::OnKeyUp(int16_t KeyCode, int16_t Shift)
{
    if (events_)
        events_->KeyUp(KeyCode, Shift);
}

void VexPanel::OnMouseDown(int16_t Button, int16_t Shift, float x, float y)
{
    if (events_)
        events_->MouseDown(Button, Shift, x, y);
}

void VexPanel::OnMouseUp(int16_t Button, int16_t Shift, float x, float y)
{
    if (events_)
        events_->MouseUp(Button, Shift, x, y);
}

// A move with a button held (dragging, even from outside) is relayed as it is. Without a button,
// the first move inside raises MouseEnter only and starts the exit poller; later moves inside
// raise MouseMove; moves outside (x = width or y = height included) raise nothing.
void VexPanel::OnMouseMove(int16_t Button, int16_t Shift, float x, float y)
{
    bool entering = false;
    if (Button == 0) {
        double width = surface_.ScaleWidth();
        double height = surface_.ScaleHeight();
        bool inside = x >= 0 && y >= 0 && x < width && y < height;
        if (!inside)
            return;
        if (!MouseInside_) {
            Timer1_->SetEnabled(true);
            MouseInside_ = true;
            entering = true;
        }
    }
    LastButton_ = Button;
    LastShift_ = Shift;
    LastX_ = x;
    LastY_ = y;
    if (!events_)
        return;
    if (entering)
        events_->MouseEnter(Button, Shift, x, y);
    else
        events_->MouseMove(Button, Shift, x, y);
}

} // namespace vex::control
