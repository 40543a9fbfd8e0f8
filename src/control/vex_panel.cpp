#include "control/vex_panel.h"

#include "base/numeric.h"
#include "control/panel_services.h"

namespace vex::control {

// The panel's connection to its parent form: the form's Activate and Unload arrive here.
class VexPanel::FormHook : public FormEventSink {
public:
    explicit FormHook(VexPanel& panel) : panel_(panel) { }
    void FormActivate() override { panel_.OnParentActivate(); }
    void FormUnload() override { panel_.OnParentUnload(); }

private:
    VexPanel& panel_;
};

VexPanel::VexPanel(Host& host, ControlSurface& surface)
    : host_(host)
    , surface_(surface)
    , services_(std::make_unique<PanelServices>(host, surface, props_))
    , formHook_(std::make_unique<FormHook>(*this))
{
    // Timer1, the mouse-exit poller, starts enabled at 3 ms; so a new control's first tick
    // reports one MouseExit when the pointer is elsewhere. Timer2 (animation) starts idle.
    Timer1_ = host_.CreateTimer([this] { OnTimer1(); });
    Timer1_->SetInterval(3);
    Timer1_->SetEnabled(true);
    Timer2_ = host_.CreateTimer([this] { OnTimer2(); });
}

VexPanel::~VexPanel()
{
    if (MyParent_)
        MyParent_->Disconnect(formHook_.get());
}

// MyParent: from now on the form's Activate and Unload reach this panel.
void VexPanel::HoldParent(ParentForm& parent)
{
    if (MyParent_ == &parent)
        return;
    if (MyParent_)
        MyParent_->Disconnect(formHook_.get());
    MyParent_ = &parent;
    MyParent_->Connect(formHook_.get());
}

void VexPanel::Notify(std::string_view name) { host_.PropertyChanged(std::string(name)); }

render::PaintContext VexPanel::Context() { return render::PaintContext { props_, paint_, memory_, *services_ }; }

int32_t VexPanel::hWnd() const { return surface_.hWnd(); }
int32_t VexPanel::hDC() const { return surface_.hDC(); }

// ---- Methods -------------------------------------------------------------------------------------

// The surface's refresh makes the host send Paint; it does not call DrawControl itself.
void VexPanel::Refresh() { surface_.Refresh(); }

void VexPanel::Acerca() { host_.ShowAboutBox(); }

} // namespace vex::control
