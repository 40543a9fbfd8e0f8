#include "qt/qt_pictures.h"

#include <cstring>

namespace vex::qt {

QImage ToQImage(const platform::Dib& dib)
{
    QImage image(dib.width(), dib.height(), QImage::Format_RGB32);
    for (int32_t y = 0; y < dib.height(); ++y) {
        auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
        if (dib.bitCount() == 32) {
            const uint8_t* in = dib.row(y);
            for (int32_t x = 0; x < dib.width(); ++x, in += 4)
                out[x] = qRgb(in[2], in[1], in[0]);
        } else {
            for (int32_t x = 0; x < dib.width(); ++x) {
                const ColorRef color = dib.pixel(x, y);
                out[x] = qRgb(RedOf(color), GreenOf(color), BlueOf(color));
            }
        }
    }
    return image;
}

platform::Dib ToDib(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    platform::Dib dib(rgb.width(), rgb.height(), 32, true);
    for (int32_t y = 0; y < rgb.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        uint8_t* out = dib.row(y);
        for (int32_t x = 0; x < rgb.width(); ++x, out += 4) {
            out[0] = static_cast<uint8_t>(qBlue(in[x]));
            out[1] = static_cast<uint8_t>(qGreen(in[x]));
            out[2] = static_cast<uint8_t>(qRed(in[x]));
            out[3] = 0;
        }
    }
    return dib;
}

QImage ToQImage(const platform::Picture& picture)
{
    if (picture.type() == platform::PictureType::Bitmap)
        return ToQImage(picture.bitmap());
    if (picture.type() != platform::PictureType::Icon)
        return {};
    // The AND mask's set bits keep what lies below: they become clear pixels.
    const platform::Icon& icon = picture.icon();
    QImage image = ToQImage(icon.color).convertToFormat(QImage::Format_ARGB32);
    if (icon.mask.width() == image.width() && icon.mask.height() >= image.height()) {
        for (int32_t y = 0; y < image.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
            const uint8_t* mask = icon.mask.row(y);
            for (int32_t x = 0; x < image.width(); ++x)
                if (mask[x / 8] & (0x80 >> (x % 8)))
                    row[x] = 0;
        }
    }
    return image;
}

} // namespace vex::qt
