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
    , services_(std::make_unique<PanelServices>(host, surface))
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

void VexPanel::Notify(const char* name) { host_.PropertyChanged(name); }

render::PaintContext VexPanel::Context() { return render::PaintContext { props_, paint_, memory_, *services_ }; }

// ---- Surface-held properties ---------------------------------------------------------------------

platform::FontDesc VexPanel::Font() const { return surface_.Font(); }

void VexPanel::setFont(const platform::FontDesc& value)
{
    surface_.SetFont(value);
    Notify("Font");
    DrawControl(true);
}

template <typename Apply>
void VexPanel::SetFontFacet(Apply apply, const char* name)
{
    platform::FontDesc font = surface_.Font();
    apply(font);
    surface_.SetFont(font);
    Notify(name);
    DrawControl(true);
}

void VexPanel::setFontUnderline(bool value)
{
    SetFontFacet([&](platform::FontDesc& font) { font.underline = value; }, "FontUnderline");
}

void VexPanel::setFontStrikethru(bool value)
{
    SetFontFacet([&](platform::FontDesc& font) { font.strikethrough = value; }, "FontStrikethru");
}

void VexPanel::setFontSize(float value)
{
    SetFontFacet([&](platform::FontDesc& font) { font.size = value; }, "FontSize");
}

void VexPanel::setFontName(const std::string& value)
{
    SetFontFacet([&](platform::FontDesc& font) { font.name = value; }, "FontName");
}

void VexPanel::setFontItalic(bool value)
{
    SetFontFacet([&](platform::FontDesc& font) { font.italic = value; }, "FontItalic");
}

void VexPanel::setFontBold(bool value)
{
    SetFontFacet([&](platform::FontDesc& font) { font.bold = value; }, "FontBold");
}

int32_t VexPanel::hWnd() const { return surface_.hWnd(); }
int32_t VexPanel::hDC() const { return surface_.hDC(); }

platform::PictureRef VexPanel::MouseIcon() const { return surface_.MouseIcon(); }

void VexPanel::setMouseIcon(platform::PictureRef value)
{
    surface_.SetMouseIcon(std::move(value));
    Notify("MouseIcon");
}

TypeMousePointer VexPanel::MousePointer() const { return TypeMousePointer(surface_.MousePointer()); }

void VexPanel::setMousePointer(TypeMousePointer value)
{
    surface_.SetMousePointer(static_cast<int16_t>(value));
    Notify("MousePointer");
}

OleColor VexPanel::BackColor() const { return surface_.BackColor(); }

void VexPanel::setBackColor(OleColor value)
{
    surface_.SetBackColor(value);
    Notify("BackColor");
    DrawControl(true);
}

// ---- Methods -------------------------------------------------------------------------------------

// The surface's refresh makes the host send Paint; it does not call DrawControl itself.
void VexPanel::Refresh() { surface_.Refresh(); }

void VexPanel::Acerca() { host_.ShowAboutBox(); }

} // namespace vex::control
