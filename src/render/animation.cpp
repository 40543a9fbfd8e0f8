// One tick of the frame animation: put back the pixels saved under the picture, draw the next
// frame of the strip over them, advance the frame counter and ask the host to show the result.

#include "base/numeric.h"
#include "render/colour.h"
#include "render/painters.h"
#include "render/picture_placement.h"
#include "render/picture_source.h"

namespace vex::render {

void AnimatePicture(PaintContext& context)
{
    const PanelProperties& props = context.props;
    if (!props.Picture)
        return;
    PainterMemory& memory = context.memory;
    // The height is taken before the pause for pending events and the width after it.
    const int32_t frameHeight = PicturePixels(props.Picture->height());
    context.services.DoEvents();
    if (!props.Picture)
        return; // the pause may have taken the picture away
    const int32_t frameWidth = IntDiv32(PicturePixels(props.Picture->width()), props.PictureFrames);

    platform::DeviceContext& surface = context.services.Dc();
    const int32_t x = memory.pictureLeft;
    const int32_t y = memory.pictureTop;
    if (memory.savedBackground)
        surface.BitBlt(x, y, frameWidth, frameHeight, *memory.savedBackground, 0, 0);

    // The animation only runs for bitmaps; anything else has nothing to select.
    if (props.Picture->type() == platform::PictureType::Bitmap) {
        auto source = surface.CreateCompatibleDC();
        source->SelectBitmap(surface.BitmapOf(*props.Picture));
        const int32_t sourceX = Mul32(memory.AnimFrame, frameWidth);
        // OptionPic plays no part here: only the mask keys the frame out.
        if (props.PictureUseMask) {
            surface.TransparentBlt(x, y, frameWidth, frameHeight, *source, sourceX, 0, frameWidth, frameHeight,
                TranslateColor(props.PictureMaskColor, surface));
        } else {
            surface.SetStretchBltMode(platform::kStretchHalftone);
            surface.StretchBlt(x, y, frameWidth, frameHeight, *source, sourceX, 0, frameWidth, frameHeight);
        }
    }

    memory.AnimFrame = Add16(memory.AnimFrame, 1);
    if (memory.AnimFrame >= props.PictureFrames)
        memory.AnimFrame = 0;
    context.services.Refresh();
}

} // namespace vex::render
