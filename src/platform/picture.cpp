#include "platform/picture.h"

#include "base/numeric.h"

namespace vex::platform {

int32_t Picture::PixelsToHiMetric(int32_t pixels)
{
    return CLng(static_cast<double>(pixels) * 2540.0 / 96.0);
}

double Picture::HiMetricToPixels(int32_t hiMetric)
{
    return static_cast<double>(hiMetric) * 96.0 / 2540.0;
}

std::shared_ptr<const Picture> Picture::FromBitmap(Dib bitmap)
{
    auto picture = std::shared_ptr<Picture>(new Picture());
    picture->type_ = PictureType::Bitmap;
    picture->pixelWidth_ = bitmap.width();
    picture->pixelHeight_ = bitmap.height();
    picture->widthHiMetric_ = PixelsToHiMetric(bitmap.width());
    picture->heightHiMetric_ = PixelsToHiMetric(bitmap.height());
    picture->bitmap_ = std::move(bitmap);
    return picture;
}

std::shared_ptr<const Picture> Picture::FromIcon(Icon icon)
{
    auto picture = std::shared_ptr<Picture>(new Picture());
    picture->type_ = PictureType::Icon;
    picture->pixelWidth_ = icon.color.width();
    picture->pixelHeight_ = icon.color.height();
    picture->widthHiMetric_ = PixelsToHiMetric(icon.color.width());
    picture->heightHiMetric_ = PixelsToHiMetric(icon.color.height());
    picture->icon_ = std::move(icon);
    return picture;
}

} // namespace vex::platform
