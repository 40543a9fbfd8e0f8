#include "control/null_device_context.h"

#include <array>

namespace vex::control {

namespace {

class NullBitmap : public platform::Bitmap {
public:
    explicit NullBitmap(platform::Size size) : size_(size) { }
    platform::Size size() const override { return size_; }

private:
    platform::Size size_;
};

// The classic Windows colour scheme, by GetSysColor index (0x00BBGGRR).
constexpr std::array<ColorRef, 31> kClassicScheme = {
    Rgb(212, 208, 200), Rgb(58, 110, 165), Rgb(10, 36, 106), Rgb(128, 128, 128), Rgb(212, 208, 200),
    Rgb(255, 255, 255), Rgb(0, 0, 0), Rgb(0, 0, 0), Rgb(0, 0, 0), Rgb(255, 255, 255),
    Rgb(212, 208, 200), Rgb(212, 208, 200), Rgb(128, 128, 128), Rgb(10, 36, 106), Rgb(255, 255, 255),
    Rgb(212, 208, 200), Rgb(128, 128, 128), Rgb(128, 128, 128), Rgb(0, 0, 0), Rgb(212, 208, 200),
    Rgb(255, 255, 255), Rgb(64, 64, 64), Rgb(212, 208, 200), Rgb(0, 0, 0), Rgb(255, 255, 225),
    Rgb(181, 181, 181), Rgb(0, 0, 128), Rgb(166, 202, 240), Rgb(192, 192, 192), Rgb(10, 36, 106),
    Rgb(212, 208, 200),
};

} // namespace

std::unique_ptr<platform::DeviceContext> NullDeviceContext::CreateCompatibleDC()
{
    return std::make_unique<NullDeviceContext>(platform::Size { 1, 1 });
}

platform::BitmapRef NullDeviceContext::CreateCompatibleBitmap(int32_t width, int32_t height)
{
    return std::make_shared<NullBitmap>(platform::Size { width, height });
}

platform::BitmapRef NullDeviceContext::CreateBitmapFromDib(const platform::Dib& dib)
{
    return std::make_shared<NullBitmap>(platform::Size { dib.width(), dib.height() });
}

platform::BitmapRef NullDeviceContext::BitmapOf(const platform::Picture& picture)
{
    return std::make_shared<NullBitmap>(platform::Size { picture.pixelWidth(), picture.pixelHeight() });
}

platform::BitmapRef NullDeviceContext::SelectBitmap(platform::BitmapRef bitmap)
{
    return std::exchange(selected_, std::move(bitmap));
}

platform::Size NullDeviceContext::Extent() const { return selected_ ? selected_->size() : extent_; }

ColorRef NullDeviceContext::GetSysColor(int index) const
{
    return index >= 0 && index < static_cast<int>(kClassicScheme.size()) ? kClassicScheme[index] : 0;
}

platform::Dib NullDeviceContext::Snapshot() const
{
    platform::Size size = Extent();
    return platform::Dib(size.width, size.height, 32, true);
}

} // namespace vex::control
