// The foreground picture: frame 0 of a strip of PictureFrames equally wide frames, placed at one
// of nine positions with a margin, keyed out when it is an icon or masked. When the animation is
// on, the pixels under it are saved once so that each tick can restore them.

#include "base/numeric.h"
#include "render/colour.h"
#include "render/painters.h"
#include "render/panel_line.h"
#include "render/picture_placement.h"
#include "render/picture_source.h"

namespace vex::render {

FrameSize PictureFrameSize(const PanelProperties& props)
{
    const platform::Picture& picture = *props.Picture;
    FrameSize size;
    size.stripWidth = PicturePixels(picture.width());
    size.width = IntDiv32(size.stripWidth, props.PictureFrames);
    size.height = PicturePixels(picture.height());
    return size;
}

bool PlacePicture(const PaintContext& context, int32_t margin, const FrameSize& frame, int32_t& x, int32_t& y)
{
    const int32_t R = context.state.ClientWidth;
    const int32_t H = context.state.ClientHeight;
    const int32_t near = margin;
    const int32_t farX = Sub32(Sub32(R, margin), frame.width);
    const int32_t farY = Sub32(Sub32(H, frame.height), margin);
    // Halves in double precision, rounded half to even; centring ignores the margin.
    const int32_t middleX = CLng(Sub32(R, frame.width) / 2.0);
    const int32_t middleY = CLng(Sub32(H, frame.height) / 2.0);
    using enum TypeAlignment;
    switch (context.props.PictureAlignment) {
    case LeftTop:      x = near;    y = near;    return true;
    case LeftMiddle:   x = near;    y = middleY; return true;
    case LeftBottom:   x = near;    y = farY;    return true;
    case RightTop:     x = farX;    y = near;    return true;
    case RightMiddle:  x = farX;    y = middleY; return true;
    case RightBottom:  x = farX;    y = farY;    return true;
    case CenterTop:    x = middleX; y = near;    return true;
    case CenterMiddle: x = middleX; y = middleY; return true;
    case CenterBottom: x = middleX; y = farY;    return true;
    default: return false;
    }
}

void RenderPicture(PaintContext& context, bool placed, int32_t margin)
{
    const PanelProperties& props = context.props;
    if (!props.Picture)
        return;
    platform::DeviceContext& surface = context.services.Dc();
    PainterMemory& memory = context.memory;
    const FrameSize frame = PictureFrameSize(props);
    const ColorRef backColour = context.services.BackColorRgb();
    PictureSource source(surface, *props.Picture, frame.width, frame.height, backColour);

    // A value outside the nine positions (or the 3D styles) keeps the last paint's position.
    if (placed)
        PlacePicture(context, margin, frame, memory.pictureLeft, memory.pictureTop);
    const int32_t x = memory.pictureLeft;
    const int32_t y = memory.pictureTop;

    // Taken once, after the background and border of this pass and before the picture.
    if (props.PictureAnimEnabled && props.PictureFrames >= 2 && !memory.savedBackground) {
        auto saved = source.dc().CreateCompatibleDC();
        saved->SelectBitmap(source.dc().CreateCompatibleBitmap(frame.width, frame.height));
        saved->BitBlt(0, 0, frame.width, frame.height, surface, x, y);
        memory.savedBackground = std::move(saved);
    }

    if (source.isIcon() || props.OptionPic || props.PictureUseMask) {
        ColorRef key = kOptionPicKey; // hard-wired for OptionPic pictures
        if (source.isIcon())
            key = backColour;
        else if (props.PictureUseMask)
            key = TranslateColor(props.PictureMaskColor, surface);
        surface.TransparentBlt(x, y, frame.width, frame.height, source.dc(), 0, 0, frame.width, frame.height, key);
    } else {
        // Equal sizes: the stretch is the program's way of copying.
        surface.SetStretchBltMode(platform::kStretchHalftone);
        surface.StretchBlt(x, y, frame.width, frame.height, source.dc(), 0, 0, frame.width, frame.height);
    }
}

void DrawPicture(PaintContext& context) { RenderPicture(context, true, 3); }

void DrawPicture3D(PaintContext& context)
{
    if (!context.props.Picture)
        return;
    int16_t inset = 0;
    const bool placed = Border3DInset(context.props, inset);
    RenderPicture(context, placed, placed ? Add16(3, inset) : 0);
}

} // namespace vex::render
