// Whole panels drawn both ways: DrawControl's preparation and the painters of each appearance,
// in its order, on the battery's surface.

#include "helpers.h"
#include "render/colour.h"
#include "render/painters.h"

namespace vex::drawtest {

namespace {

using render::PanelProperties;
using namespace model; // the enumerations

// The container services a headless panel gets, over whichever surface the battery made.
class BatteryServices final : public render::PaintServices {
public:
    explicit BatteryServices(DeviceContext& dc)
        : dc_(dc)
    {
    }
    DeviceContext& Dc() override { return dc_; }
    platform::Size ClientSize() override { return dc_.Extent(); }
    double ScaleWidth() override { return dc_.Extent().width; }
    double ScaleHeight() override { return dc_.Extent().height; }
    ColorRef BackColorRgb() override { return render::TranslateColor(SystemColor(syscolor::ButtonFace), dc_); }
    platform::FontDesc Font() override { return {}; }
    void DoEvents() override { }
    void SetExtenderVisible(bool) override { }
    void Refresh() override { }
    platform::PictureRef CaptureBehind(int32_t, int32_t) override { return nullptr; }
    void MessageBox(const std::string&, const std::string&, int32_t) override { }

private:
    DeviceContext& dc_;
};

void PaintPanel(DeviceContext& dc, const PanelProperties& props)
{
    BatteryServices services(dc);
    render::PaintState state;
    render::PainterMemory memory;
    render::PaintContext context { props, state, memory, services };
    render::PreparePaint(context, true);
    render::PaintLayers(context);
}

platform::PictureRef Backdrop()
{
    static const platform::PictureRef picture = platform::Picture::FromBitmap(PatternDib(23, 17, 24));
    return picture;
}

// A small picture with a magenta surround, for the mask colour.
platform::PictureRef Sprite()
{
    static const platform::PictureRef picture = [] {
        Dib dib(14, 12, 24, false);
        for (int32_t y = 0; y < 12; ++y) {
            for (int32_t x = 0; x < 14; ++x) {
                bool edge = x < 2 || y < 2 || x > 11 || y > 9;
                ColorRef color = edge ? Rgb(255, 0, 255) : Hue(x / 3 + y / 3);
                dib.row(y)[x * 3 + 0] = static_cast<uint8_t>(BlueOf(color));
                dib.row(y)[x * 3 + 1] = static_cast<uint8_t>(GreenOf(color));
                dib.row(y)[x * 3 + 2] = static_cast<uint8_t>(RedOf(color));
            }
        }
        return platform::Picture::FromBitmap(std::move(dib));
    }();
    return picture;
}

void AddPanel(std::vector<DrawingCase>& cases, std::string name, PanelProperties props, int32_t width = 97,
    int32_t height = 61)
{
    cases.push_back({ "panel_" + name, width, height,
        [props = std::move(props)](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
}

} // namespace

VEX_DRAWING_CASES(panel_cases)
{
    // Windows appearance: every gradient direction and contrast, the border styles on each side.
    for (int16_t direction = 0; direction <= 5; ++direction) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Windows);
        props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection(direction));
        props.WinContrast = TypeWinContrast(TypeWinContrast(direction % 3));
        props.WinOptionColor = TypeWinOptionColor(TypeWinOptionColor(direction % 2));
        AddPanel(cases, "windows_direction_" + std::to_string(direction), props);
    }
    for (int16_t style = 0; style <= 3; ++style) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Windows);
        props.WinBorderTopStyle = TypeWinBorderStyle(TypeWinBorderStyle(style));
        props.WinBorderLeftStyle = TypeWinBorderStyle(TypeWinBorderStyle((style + 1) % 4));
        props.WinBorderBottomStyle = TypeWinBorderStyle(TypeWinBorderStyle((style + 2) % 4));
        props.WinBorderRightStyle = TypeWinBorderStyle(TypeWinBorderStyle((style + 3) % 4));
        props.CustomBorderLeftTopStyle = TypeBorder(TypeBorder(style % 2));
        props.CustomBorderRightBottomStyle = TypeBorder(TypeBorder((style + 1) % 2));
        AddPanel(cases, "windows_borders_" + std::to_string(style), props);
    }

    // 3D appearance: the five border styles, wide rings with a gap band, a background picture
    // in each placement and a masked picture.
    for (int16_t style = 0; style <= 4; ++style) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Window3D);
        props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(style));
        props.Panel3DBorderWidth = 3;
        props.Panel3DBorderOffset = 4;
        props.PictureBackground = Backdrop();
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle(style % 3));
        props.Picture = Sprite();
        props.PictureUseMask = style % 2 == 1;
        props.PictureAlignment = TypeAlignment(TypeAlignment(style * 2));
        AddPanel(cases, "3d_style_" + std::to_string(style), props);
    }

    // Icon pictures: drawn onto the back colour, then keyed out in it; one with a mask, one
    // with alpha; as the foreground on each appearance and as a tiled background.
    for (int16_t appearance = 0; appearance <= 2; ++appearance) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance(appearance));
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseGradient);
        props.Picture = platform::Picture::FromIcon(appearance == 1 ? MakeAlphaIcon(16) : MakeIcon(16));
        props.PictureAlignment = TypeAlignment(TypeAlignment(appearance * 3 + 1));
        props.PictureBackground = platform::Picture::FromIcon(MakeIcon(16));
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle(2 - appearance % 2));
        AddPanel(cases, "icons_appearance_" + std::to_string(appearance), props);
    }

    // Custom appearance: every gradient direction, and the texture with a wide frame.
    for (int16_t direction = 0; direction <= 7; ++direction) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Custom);
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseGradient);
        props.CustomGradientDirection = TypeCustomGradientDirection(TypeCustomGradientDirection(direction));
        props.CustomBorderWidth = static_cast<int16_t>(direction % 3);
        props.CustomBorderRadio = static_cast<int16_t>(direction * 4);
        props.CustomBorderLeftTopStyle = TypeBorder(TypeBorder(direction % 2));
        props.CustomBorderRightBottomStyle = TypeBorder(TypeBorder(direction % 2));
        AddPanel(cases, "custom_gradient_" + std::to_string(direction), props);
    }
    {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Custom);
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
        props.CustomBorderWidth = 4;
        props.PictureBackground = Backdrop();
        props.Picture = Sprite();
        props.PictureAlignment = TypeAlignment(TypeAlignment::CenterMiddle);
        AddPanel(cases, "custom_texture", props);
    }
}

} // namespace vex::drawtest
