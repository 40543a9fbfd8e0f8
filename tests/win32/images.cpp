#include "images.h"

#include <png.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace vex::drawtest {

bool WritePng(const std::string& path, const platform::Dib& pixels, int scale)
{
    if (scale > 1) {
        platform::Dib scaled(pixels.width() * scale, pixels.height() * scale, 32, true);
        for (int32_t y = 0; y < scaled.height(); ++y) {
            for (int32_t x = 0; x < scaled.width(); ++x)
                std::memcpy(scaled.row(y) + x * 4, pixels.row(y / scale) + (x / scale) * 4, 4);
        }
        return WritePng(path, scaled, 1);
    }
    png_image image {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(pixels.width());
    image.height = static_cast<png_uint_32>(pixels.height());
    image.format = PNG_FORMAT_RGB;
    std::vector<uint8_t> rgb(static_cast<size_t>(pixels.width()) * static_cast<size_t>(pixels.height()) * 3);
    size_t at = 0;
    for (int32_t y = 0; y < pixels.height(); ++y) {
        for (int32_t x = 0; x < pixels.width(); ++x) {
            ColorRef color = pixels.pixel(x, y);
            rgb[at++] = static_cast<uint8_t>(RedOf(color));
            rgb[at++] = static_cast<uint8_t>(GreenOf(color));
            rgb[at++] = static_cast<uint8_t>(BlueOf(color));
        }
    }
    return png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr) != 0;
}

platform::Dib DiffImage(const platform::Dib& a, const platform::Dib& b)
{
    int32_t width = std::max(a.width(), b.width());
    int32_t height = std::max(a.height(), b.height());
    platform::Dib diff(width, height, 32, true);
    for (int32_t y = 0; y < height; ++y) {
        uint8_t* row = diff.row(y);
        for (int32_t x = 0; x < width; ++x) {
            bool inA = x < a.width() && y < a.height();
            bool inB = x < b.width() && y < b.height();
            uint8_t* pixel = row + x * 4;
            if (!inA || !inB) {
                pixel[0] = 255;
                continue;
            }
            ColorRef ca = a.pixel(x, y);
            ColorRef cb = b.pixel(x, y);
            if (ca != cb) {
                pixel[2] = 255;
                continue;
            }
            uint8_t grey = static_cast<uint8_t>(64 + (RedOf(ca) + GreenOf(ca) + BlueOf(ca)) / 12);
            pixel[0] = pixel[1] = pixel[2] = grey;
        }
    }
    return diff;
}

} // namespace vex::drawtest
