#include "soft_test_support.h"

namespace vex::platform::soft::testing {

std::unique_ptr<SoftDeviceContext> WhiteSurface(int32_t width, int32_t height)
{
    auto dc = SoftDeviceContext::CreateSurface(width, height);
    dc->FillRect(Rect { 0, 0, width, height }, Brush::Solid(0xFFFFFF));
    return dc;
}

PixelSet PaintedPixels(const DeviceContext& dc, ColorRef background)
{
    PixelSet pixels;
    Size size = dc.Extent();
    for (int32_t y = 0; y < size.height; ++y)
        for (int32_t x = 0; x < size.width; ++x)
            if (dc.GetPixel(x, y) != background)
                pixels.insert({ x, y });
    return pixels;
}

std::unique_ptr<DeviceContext> MemoryWith(DeviceContext& compatible, int32_t width, int32_t height, ColorRef fill)
{
    auto memory = compatible.CreateCompatibleDC();
    memory->SelectBitmap(compatible.CreateCompatibleBitmap(width, height));
    memory->FillRect(Rect { 0, 0, width, height }, Brush::Solid(fill));
    return memory;
}

std::string Describe(const PixelSet& pixels)
{
    std::string text;
    for (auto [x, y] : pixels)
        text += "(" + std::to_string(x) + "," + std::to_string(y) + ")";
    return text;
}

} // namespace vex::platform::soft::testing
