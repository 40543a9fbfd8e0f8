#include "render/picture_source.h"

#include "base/numeric.h"

namespace vex::render {

PictureSource::PictureSource(platform::DeviceContext& surface, const platform::Picture& picture, int32_t width,
    int32_t height, ColorRef backColour)
    : memory_(surface.CreateCompatibleDC()), isIcon_(picture.type() != platform::PictureType::Bitmap)
{
    if (!isIcon_) {
        memory_->SelectBitmap(surface.BitmapOf(picture));
        return;
    }
    memory_->SelectBitmap(surface.CreateCompatibleBitmap(width, height));
    memory_->FillRect(platform::Rect { 0, 0, width, height }, platform::Brush::Solid(backColour));
    if (picture.type() == platform::PictureType::Icon) {
        const platform::Icon& icon = picture.icon();
        memory_->DrawIconEx(0, 0, icon, icon.color.width(), icon.color.height(), platform::kDrawIconNormal);
    }
}

int32_t PicturePixels(int32_t hiMetric) { return CLng(platform::Picture::HiMetricToPixels(hiMetric)); }

} // namespace vex::render
