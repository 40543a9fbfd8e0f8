// Whole panels, prepared and painted as DrawControl does: both colour options of every shading
// direction, every border style against its neighbours, 3D rings that cross and each 3D style over
// a background picture in each placement, all Custom directions with frames and rounded corners,
// icons, keyed and tiled pictures, a captured background, and captions (text_* cases, compared
// once the software layer draws text).

#include "helpers.h"
#include "platform/picture.h"
#include "render/colour.h"
#include "render/painters.h"

namespace vex::drawtest {

namespace {

using render::PanelProperties;
using namespace model; // the enumerations

// What the container gives the painters: the battery's surface and nothing behind it.
class CaseServices final : public render::PaintServices {
public:
    explicit CaseServices(DeviceContext& dc) : dc_(dc) { }
    DeviceContext& Dc() override { return dc_; }
    platform::Size ClientSize() override { return dc_.Extent(); }
    double ScaleWidth() override { return dc_.Extent().width; }
    double ScaleHeight() override { return dc_.Extent().height; }
    ColorRef BackColorRgb() override { return Rgb(212, 208, 200); }
    platform::FontDesc Font() override { return {}; }
    void DoEvents() override { }
    void SetExtenderVisible(bool) override { }
    void Refresh() override { }
    platform::PictureRef CaptureBehind(int32_t, int32_t) override { return behind; }
    void MessageBox(const std::string&, const std::string&, int32_t) override { }
    platform::PictureRef behind;

private:
    DeviceContext& dc_;
};

// DrawControl's preparation (clearing to the back colour), then the painters in its order.
void PaintPanel(DeviceContext& dc, const PanelProperties& props, uint8_t capture = 0,
    platform::PictureRef behind = nullptr)
{
    render::PaintState state;
    state.CaptureBackground = capture;
    render::PainterMemory memory;
    CaseServices services(dc);
    services.behind = std::move(behind);
    render::PaintContext context { props, state, memory, services };
    render::PreparePaint(context, true);
    render::PaintLayers(context);
}

platform::PictureRef PatternPicture(int32_t width, int32_t height, ColorRef key = Rgb(255, 0, 255))
{
    Dib dib = PatternDib(width, height, 32);
    // No fourth bytes here: TransparentBlt compares them with the key onto a memory surface but
    // not onto a window, and a panel case must draw alike on both (alpha_bytes.cpp covers them).
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            dib.row(y)[4 * x + 3] = 0;
    for (int32_t y = 0; y < height; y += 3) // some key-coloured pixels to see through
        for (int32_t x = y % 4; x < width; x += 4) {
            dib.row(y)[4 * x] = static_cast<uint8_t>(BlueOf(key));
            dib.row(y)[4 * x + 1] = static_cast<uint8_t>(GreenOf(key));
            dib.row(y)[4 * x + 2] = static_cast<uint8_t>(RedOf(key));
        }
    return platform::Picture::FromBitmap(std::move(dib));
}

PanelProperties WindowsPanel(int16_t direction, int16_t option, int16_t top, int16_t left, int16_t right, int16_t bottom)
{
    PanelProperties props;
    props.Appearance = TypeAppearance(TypeAppearance::Windows);
    props.WinGradientDirection = TypeWinGradientDirection(TypeWinGradientDirection(direction));
    props.WinOptionColor = TypeWinOptionColor(TypeWinOptionColor(option));
    props.WinBackColor = Rgb(70, 150, 230);
    props.WinContrast = TypeWinContrast(TypeWinContrast::HighContrast);
    props.WinBorderTopStyle = TypeWinBorderStyle(TypeWinBorderStyle(top));
    props.WinBorderLeftStyle = TypeWinBorderStyle(TypeWinBorderStyle(left));
    props.WinBorderRightStyle = TypeWinBorderStyle(TypeWinBorderStyle(right));
    props.WinBorderBottomStyle = TypeWinBorderStyle(TypeWinBorderStyle(bottom));
    return props;
}

} // namespace

VEX_DRAWING_CASES(painter_panel_cases)
{
    // Six shading directions, each with another mix of border styles and both colour options.
    for (int16_t direction = 0; direction <= 6; ++direction) {
        for (int16_t option = 0; option <= 1; ++option) {
            const auto s = [&](int k) { return static_cast<int16_t>((direction + k + option) % 4); };
            PanelProperties props = WindowsPanel(direction, option, s(0), s(1), s(2), s(3));
            cases.push_back({ "painters_windows_direction" + std::to_string(direction) + "_option" + std::to_string(option),
                61, 37, [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
        }
    }

    // Every side in every style against every neighbour: the corner offsets and odd rows.
    for (int16_t style = 1; style <= 3; ++style) {
        for (int16_t option = 0; option <= 1; ++option) {
            PanelProperties props = WindowsPanel(9, option, style, style, style, style);
            cases.push_back({ "painters_windows_all_sides_style" + std::to_string(style) + "_option" + std::to_string(option),
                24, 16, [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
        }
    }

    // 3D rings: each style, a wide groove, and a border wider than half the panel.
    struct Ring {
        const char* name;
        int16_t style, width, offset;
        bool option;
        int32_t w, h;
    };
    for (Ring ring : { Ring { "lowered", 1, 2, 0, false, 50, 30 }, Ring { "raised", 2, 3, 0, false, 50, 30 },
             Ring { "groove", 3, 2, 3, false, 100, 50 }, Ring { "ridge", 4, 1, 2, false, 50, 30 },
             Ring { "flat", 3, 2, 1, true, 50, 30 }, Ring { "overwide", 1, 9, 0, false, 14, 11 },
             Ring { "overwide_groove", 4, 3, 4, false, 17, 12 }, Ring { "one_pixel", 1, 1, 0, false, 1, 10 } }) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Window3D);
        props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(ring.style));
        props.Panel3DBorderWidth = ring.width;
        props.Panel3DBorderOffset = ring.offset;
        props.Panel3DBorderOption = ring.option;
        props.Panel3DOffsetColor = Rgb(60, 90, 200);
        cases.push_back({ std::string("painters_3d_") + ring.name, ring.w, ring.h,
            [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
    }

    // Each 3D style over a background picture in each placement, with a masked picture.
    for (int16_t style = 0; style <= 4; ++style) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Window3D);
        props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle(style));
        props.Panel3DBorderWidth = 3;
        props.Panel3DBorderOffset = 4;
        props.PictureBackground = PatternPicture(23, 17);
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle(style % 3));
        props.Picture = PatternPicture(14, 12);
        props.PictureUseMask = style % 2 == 1;
        props.PictureAlignment = TypeAlignment(TypeAlignment(style * 2));
        cases.push_back({ "painters_3d_style" + std::to_string(style), 97, 61,
            [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
    }

    // Custom gradients in all eight directions on an odd-sized panel, with frames of 0 to 2
    // pixels, rounded corners and both border styles.
    for (int16_t direction = 0; direction <= 7; ++direction) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Custom);
        props.CustomGradientDirection = TypeCustomGradientDirection(TypeCustomGradientDirection(direction));
        props.CustomGradientStart = Rgb(250, 40, 20);
        props.CustomGradientEnds = Rgb(20, 60, 240);
        props.CustomBorderWidth = static_cast<int16_t>(direction % 3);
        props.CustomBorderRadio = static_cast<int16_t>(direction * 4);
        props.CustomBorderLeftTopStyle = props.CustomBorderRightBottomStyle = TypeBorder(TypeBorder(direction % 2));
        cases.push_back({ "painters_custom_direction" + std::to_string(direction), 61, 37,
            [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
    }

    // Icons: drawn onto the back colour, then keyed out in it; one with a mask, one with alpha; as
    // the foreground on each appearance and as a tiled background.
    for (int16_t appearance = 0; appearance <= 2; ++appearance) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance(appearance));
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseGradient);
        props.Picture = platform::Picture::FromIcon(appearance == 1 ? MakeAlphaIcon(16) : MakeIcon(16));
        props.PictureAlignment = TypeAlignment(TypeAlignment(appearance * 3 + 1));
        props.PictureBackground = platform::Picture::FromIcon(MakeIcon(16));
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle(2 - appearance % 2));
        cases.push_back({ "painters_icons_appearance" + std::to_string(appearance), 97, 61,
            [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
    }

    // Pictures: tiles under a 3D border with the mask key, a stretched texture in a Custom frame,
    // a centred picture wider than the panel, a masked foreground frame of a strip, an icon.
    cases.push_back({ "painters_pictures_tiled_masked", 70, 45, [](DeviceContext& dc, Facts&) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Window3D);
        props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle::GBLowered3D);
        props.PictureBackground = PatternPicture(13, 9);
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::TiledPicture);
        props.PictureBackgroundUseMask = true;
        props.Picture = PatternPicture(30, 10);
        props.PictureFrames = 3;
        props.PictureUseMask = true;
        props.PictureAlignment = TypeAlignment(TypeAlignment::RightBottom);
        PaintPanel(dc, props);
    } });
    // Opaque tiles draw every pixel, white and black too, in each appearance that tiles.
    for (int16_t appearance = 0; appearance <= 2; ++appearance) {
        cases.push_back({ "painters_pictures_tiled_opaque_white_black" + std::to_string(appearance), 23, 15,
            [appearance](DeviceContext& dc, Facts&) {
                Dib dib(2, 1, 32);
                dib.row(0)[0] = dib.row(0)[1] = dib.row(0)[2] = 255; // white, then black
                PanelProperties props;
                props.Appearance = TypeAppearance(appearance);
                props.WinBackColor = Rgb(0, 160, 0);
                props.CustomGradientStyle = TypeCustomGradientStyle::UseTexture;
                props.CustomBorderWidth = 1;
                props.PictureBackground = platform::Picture::FromBitmap(std::move(dib));
                props.PictureBackgroundStyle = TypePictureBackgroundStyle::TiledPicture;
                PaintPanel(dc, props);
            } });
    }
    cases.push_back({ "painters_pictures_texture_stretched", 70, 45, [](DeviceContext& dc, Facts&) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Custom);
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
        props.CustomBorderWidth = 3;
        props.PictureBackground = PatternPicture(16, 12);
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::StretchedPicture);
        props.Picture = PatternPicture(12, 12, Rgb(236, 233, 216));
        props.OptionPic = true;
        props.PictureAlignment = TypeAlignment(TypeAlignment::CenterMiddle);
        PaintPanel(dc, props);
    } });
    // 24-bit pictures (three bytes a pixel, rows padded to four): a centred texture in a wide
    // Custom frame, and a centred sprite keyed on its magenta surround.
    cases.push_back({ "painters_pictures_texture_centred_24bit", 97, 61, [](DeviceContext& dc, Facts&) {
        Dib sprite = PatternDib(14, 11, 24);
        for (int32_t y = 0; y < 11; ++y)
            for (int32_t x = 0; x < 14; ++x)
                if (x < 2 || y < 2 || x > 11 || y > 8) {
                    uint8_t* pixel = sprite.row(y) + x * 3;
                    pixel[0] = 255; // blue, green, red: magenta
                    pixel[1] = 0;
                    pixel[2] = 255;
                }
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Custom);
        props.CustomGradientStyle = TypeCustomGradientStyle(TypeCustomGradientStyle::UseTexture);
        props.CustomBorderWidth = 4;
        props.PictureBackground = platform::Picture::FromBitmap(PatternDib(23, 17, 24));
        props.PictureBackgroundStyle = TypePictureBackgroundStyle(TypePictureBackgroundStyle::CenteredPicture);
        props.Picture = platform::Picture::FromBitmap(std::move(sprite));
        props.PictureUseMask = true;
        props.PictureMaskColor = Rgb(255, 0, 255);
        props.PictureAlignment = TypeAlignment(TypeAlignment::CenterMiddle);
        PaintPanel(dc, props);
    } });
    cases.push_back({ "painters_pictures_centred_wide", 40, 30, [](DeviceContext& dc, Facts&) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Windows);
        props.PictureBackground = PatternPicture(51, 7);
        props.OptionPicBackGround = true;
        PaintPanel(dc, props);
    } });
    cases.push_back({ "painters_transparent_capture", 40, 30, [](DeviceContext& dc, Facts&) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance::Windows);
        props.BackStyle = TypeBackStyle(TypeBackStyle::Transparent);
        props.WinBorderTopStyle = props.WinBorderLeftStyle = TypeWinBorderStyle(TypeWinBorderStyle::ShadowBorder);
        PaintPanel(dc, props, 1, PatternPicture(40, 30));
    } });

    // Captions: the effect, 3D lettering and wrapped placement in each appearance.
    auto captioned = [](int16_t appearance, int16_t alignment, bool effect, int16_t style, int16_t lettering) {
        PanelProperties props;
        props.Appearance = TypeAppearance(TypeAppearance(appearance));
        props.Caption = "Vex Panel caption";
        props.CaptionAlignment = TypeAlignment(TypeAlignment(alignment));
        props.CaptionEfect = effect;
        props.CaptionGetShadow = effect;
        props.CaptionStyle = TypeCaptionStyle(TypeCaptionStyle(style));
        props.PanelFont3D = TypePanelFont3D(TypePanelFont3D(lettering));
        props.PanelFont3DHighLight = Rgb(255, 255, 255);
        props.Panel3DBorderStyle = TypePanel3DStyle(TypePanel3DStyle::Lowered3D);
        props.Panel3DBorderWidth = 2;
        props.CaptionFontShadow = Rgb(90, 90, 90);
        return props;
    };
    struct Caption {
        const char* name;
        int16_t appearance, alignment;
        bool effect;
        int16_t style, lettering;
    };
    for (Caption c : { Caption { "windows_effect", 0, 7, true, 0, 0 }, Caption { "windows_wrapped", 0, 4, false, 1, 0 },
             Caption { "custom_effect_wrapped", 2, 8, true, 1, 0 }, Caption { "3d_lowered", 1, 0, false, 0, 1 },
             Caption { "3d_raised_shading", 1, 5, false, 0, 4 }, Caption { "3d_shadow", 1, 7, false, 0, 5 } }) {
        PanelProperties props = captioned(c.appearance, c.alignment, c.effect, c.style, c.lettering);
        cases.push_back({ std::string("text_painters_") + c.name, 90, 44,
            [props](DeviceContext& dc, Facts&) { PaintPanel(dc, props); } });
    }
}

} // namespace vex::drawtest
