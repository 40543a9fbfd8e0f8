// The caption: text at one of nine positions inside the border, on one line or word-wrapped,
// plain, outlined with an optional drop shadow (the effect), or with 3D lettering (Window3D).
//
// Word-broken text cannot use the single-line vertical flags, so wrapped text is measured and
// its top moved by hand; the "+ 2" and the use of the measured bottom (which includes the top
// inset) instead of the text height are part of the look.

#include "base/numeric.h"
#include "render/colour.h"
#include "render/painters.h"
#include "render/panel_line.h"

namespace vex::render {

namespace {

namespace dt = platform::dt;
using platform::Rect;

enum class Vertical { Top, Middle, Bottom };

struct Placement {
    uint32_t horizontal = 0; // DT_LEFT, DT_CENTER or DT_RIGHT
    uint32_t vertical = 0;   // DT_TOP, DT_VCENTER or DT_BOTTOM (single line only)
    Vertical wrapped = Vertical::Top;
};

// The nine alignments run Left*, Right*, Center* in groups of *Top, *Middle, *Bottom.
bool PlacementOf(TypeAlignment value, Placement& placement)
{
    if (value < TypeAlignment::LeftTop || value > TypeAlignment::CenterBottom)
        return false;
    const int alignment = static_cast<int>(value);
    static constexpr uint32_t kHorizontal[3] = { dt::Left, dt::Right, dt::Center }; // Left*, Right*, Center*
    static constexpr uint32_t kVertical[3] = { dt::Top, dt::VCenter, dt::Bottom };   // *Top, *Middle, *Bottom
    placement.horizontal = kHorizontal[alignment / 3];
    placement.vertical = kVertical[alignment % 3];
    placement.wrapped = static_cast<Vertical>(alignment % 3);
    return true;
}

Rect Offset(Rect rect, int32_t dx, int32_t dy)
{
    rect.left = Add32(rect.left, dx);
    rect.right = Add32(rect.right, dx);
    rect.top = Add32(rect.top, dy);
    rect.bottom = Add32(rect.bottom, dy);
    return rect;
}

// InflateRect by (-dx, -dy) on the client rectangle.
Rect Inset(const PaintContext& context, int32_t dx, int32_t dy)
{
    const Rect& client = context.state.ClientRect;
    return Rect { Add32(client.left, dx), Add32(client.top, dy), Sub32(client.right, dx), Sub32(client.bottom, dy) };
}

class Caption {
public:
    Caption(PaintContext& context, Rect rect, const Placement& placement)
        : context_(context), dc_(context.services.Dc()), text_(context.props.Caption), rect_(rect), placement_(placement)
    {
    }

    uint32_t SingleLineFlags() const { return placement_.horizontal | placement_.vertical | dt::SingleLine; }
    uint32_t WrappedFlags() const { return placement_.horizontal | dt::WordBreak; }

    ColorRef Colour(OleColor colour) { return TranslateColor(colour, dc_); }

    void Draw(Rect rect, uint32_t flags) { dc_.DrawText(text_, rect, flags); }

    // Moves the top of the text rectangle for a wrapped caption.
    void PlaceWrapped(bool effect)
    {
        if (placement_.wrapped == Vertical::Top)
            return;
        Rect measured = rect_;
        dc_.DrawText(text_, measured, dt::CalcRect | WrappedFlags());
        const int32_t H = context_.state.ClientHeight;
        const int32_t M = measured.bottom;
        if (placement_.wrapped == Vertical::Middle)
            rect_.top = CLng(Add32(Sub32(H, M), 2) / 2.0 - (effect ? 1 : 0));
        else
            rect_.top = Sub32(Sub32(H, M), effect ? 2 : 0);
    }

    void Plain()
    {
        if (context_.props.CaptionStyle == TypeCaptionStyle::StandardCaption) {
            Draw(rect_, SingleLineFlags());
        } else {
            PlaceWrapped(false);
            Draw(rect_, WrappedFlags());
        }
    }

    // Shadow (when wanted), four outline copies one pixel left, up, right and down, then the
    // body: the shadow colour is set even when no shadow is drawn.
    void Effect()
    {
        const PanelProperties& props = context_.props;
        uint32_t flags = SingleLineFlags();
        if (props.CaptionStyle != TypeCaptionStyle::StandardCaption) {
            PlaceWrapped(true);
            flags = WrappedFlags();
        }
        dc_.SetTextColor(Colour(props.CaptionFontShadow));
        if (props.CaptionGetShadow)
            Draw(Offset(rect_, 2, 2), flags);
        dc_.SetTextColor(Colour(props.CaptionFontOut));
        Rect outline = Offset(rect_, -1, 0);
        Draw(outline, flags);
        outline = Offset(outline, 1, -1);
        Draw(outline, flags);
        outline = Offset(outline, 1, 1);
        Draw(outline, flags);
        outline = Offset(outline, -1, 1);
        Draw(outline, flags);
        dc_.SetTextColor(Colour(props.CaptionFontIn));
        Draw(rect_, flags);
    }

    // Copies in the highlight or shadow colour, then the face in ForeColor. False for a
    // lettering value outside 0..5, which draws nothing at all.
    bool Lettering()
    {
        const PanelProperties& props = context_.props;
        const ColorRef light = Colour(props.PanelFont3DHighLight);
        const ColorRef shade = Colour(props.PanelFont3DShadow);
        struct Copy {
            ColorRef colour;
            int32_t dx;
            int32_t dy;
        };
        auto copies = [&](std::initializer_list<Copy> list) {
            for (const Copy& copy : list) {
                dc_.SetTextColor(copy.colour);
                Draw(Offset(rect_, copy.dx, copy.dy), SingleLineFlags());
            }
        };
        using enum TypePanelFont3D;
        switch (props.PanelFont3D) {
        case NoneFont3D: break;
        case LoweredFont3D: copies({ { light, 1, 1 } }); break;
        case RaisedFont3D: copies({ { light, -1, -1 } }); break;
        case LoweredShadingFont3D: copies({ { light, 1, 1 }, { shade, -1, -1 } }); break;
        case RaisedShadingFont3D: copies({ { shade, 1, 1 }, { light, -1, -1 } }); break;
        case ShadowFont3D: copies({ { shade, 2, 2 } }); break;
        default: return false;
        }
        dc_.SetTextColor(Colour(props.ForeColor));
        Draw(rect_, SingleLineFlags());
        return true;
    }

private:
    PaintContext& context_;
    platform::DeviceContext& dc_;
    const std::string& text_;
    Rect rect_;
    Placement placement_;
};

} // namespace

void DrawCaption(PaintContext& context)
{
    const PanelProperties& props = context.props;
    Placement placement;
    if (!PlacementOf(props.CaptionAlignment, placement))
        return;
    // Three extra pixels only across for Custom: kept.
    const Rect rect = props.Appearance == TypeAppearance::Custom
        ? Inset(context, Add16(3, props.CustomBorderWidth), props.CustomBorderWidth)
        : Inset(context, 4, 3);
    Caption caption(context, rect, placement);
    if (props.CaptionEfect) {
        caption.Effect();
    } else {
        context.services.Dc().SetTextColor(caption.Colour(props.ForeColor));
        caption.Plain();
    }
}

void DrawCaption3D(PaintContext& context)
{
    const PanelProperties& props = context.props;
    Placement placement;
    if (!PlacementOf(props.CaptionAlignment, placement))
        return;
    int16_t border = 0;
    Border3DInset(props, border);
    const int16_t inset = Add16(3, border);
    Caption caption(context, Inset(context, inset, inset), placement);
    if (props.CaptionEfect)
        caption.Effect();
    else if (props.CaptionStyle == TypeCaptionStyle::StandardCaption)
        caption.Lettering();
    else
        caption.Plain(); // in the surface's text colour, ForeColor since the start of the paint
}

} // namespace vex::render
