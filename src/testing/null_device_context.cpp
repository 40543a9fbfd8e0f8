#include "testing/null_device_context.h"

#include "platform/system_colors.h"

namespace vex::control {

namespace {

class NullBitmap : public platform::Bitmap {
public:
    explicit NullBitmap(platform::Size size) : size_(size) { }
    platform::Size size() const override { return size_; }

private:
    platform::Size size_;
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
    return platform::ClassicSystemColor(index);
}

platform::Dib NullDeviceContext::Snapshot() const
{
    platform::Size size = Extent();
    return platform::Dib(size.width, size.height, 32, true);
}

} // namespace vex::control
