// The background picture: PictureBackground centred at its own size, stretched over the inside
// of the border, or tiled from the border's inner corner. It is keyed out when it is an icon, or
// marked with OptionPicBackGround or PictureBackgroundUseMask.

#include "render/background_picture.h"

#include "base/numeric.h"
#include "render/colour.h"
#include "render/panel_line.h"
#include "render/picture_source.h"

namespace vex::render {

void RenderBackgroundPicture(PaintContext& context, bool insetKnown, int32_t inset)
{
    const PanelProperties& props = context.props;
    if (!props.PictureBackground)
        return;
    const platform::Picture& picture = *props.PictureBackground;
    platform::DeviceContext& surface = context.services.Dc();
    const int32_t pw = PicturePixels(picture.width());
    const int32_t ph = PicturePixels(picture.height());
    const ColorRef backColour = context.services.BackColorRgb();
    PictureSource source(surface, picture, pw, ph, backColour);

    const bool keyed = source.isIcon() || props.OptionPicBackGround || props.PictureBackgroundUseMask;
    ColorRef key = 0;
    if (source.isIcon())
        key = backColour;
    else if (props.PictureBackgroundUseMask)
        key = TranslateColor(props.PictureMaskColor, surface);
    else if (props.OptionPicBackGround)
        key = kOptionPicKey;

    auto draw = [&](int32_t x, int32_t y, int32_t width, int32_t height) {
        if (keyed) {
            surface.TransparentBlt(x, y, width, height, source.dc(), 0, 0, pw, ph, key);
        } else {
            surface.SetStretchBltMode(platform::kStretchHalftone);
            surface.StretchBlt(x, y, width, height, source.dc(), 0, 0, pw, ph);
        }
    };

    const int32_t R = context.state.ClientWidth;
    const int32_t H = context.state.ClientHeight;
    switch (props.PictureBackgroundStyle) {
    case TypePictureBackgroundStyle::CenteredPicture: // at its own size; no inset
        draw(IntDiv32(Sub32(R, pw), 2), IntDiv32(Sub32(H, ph), 2), pw, ph);
        break;
    case TypePictureBackgroundStyle::StretchedPicture: // the inset is taken off once, so the picture runs on under the right and bottom border
        if (insetKnown)
            draw(inset, inset, Sub32(R, inset), Sub32(H, inset));
        break;
    case TypePictureBackgroundStyle::TiledPicture: { // tiles at their own size, column by column. Unkeyed, every pixel of a tile is
        // drawn: a plain copy, since a transparent blit keys something out whatever the
        // key (GDI reads -1 as a palette index and keys black).
        const int32_t columns = Add32(IntDiv32(R, pw), 1);
        const int32_t rows = Add32(IntDiv32(H, ph), 1);
        int32_t& column = context.state.PaintLoopIndex;
        for (column = 1; column <= columns; column = Add32(column, 1)) {
            const int16_t x = ToInt16(int64_t { inset } + int64_t { column - 1 } * pw);
            for (int32_t row = 1; row <= rows; ++row) {
                const int16_t y = ToInt16(int64_t { inset } + int64_t { row - 1 } * ph);
                if (keyed)
                    surface.TransparentBlt(x, y, pw, ph, source.dc(), 0, 0, pw, ph, key);
                else
                    surface.BitBlt(x, y, pw, ph, source.dc(), 0, 0);
            }
        }
        break;
    }
    default: // not a style: nothing
        break;
    }
}

void DrawBackgroundPicture(PaintContext& context)
{
    // Without a picture nothing is drawn and nothing is computed: the inset of a wide border
    // would overflow and stop the rest of the paint.
    if (!context.props.PictureBackground)
        return;
    // The inset follows the 3D border style whatever the appearance, Windows included.
    int16_t inset = 0;
    const bool known = Border3DInset(context.props, inset);
    RenderBackgroundPicture(context, known, known ? inset : 0);
}

} // namespace vex::render
