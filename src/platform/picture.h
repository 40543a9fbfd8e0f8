#pragma once
// A picture object as the host language has it: shared and immutable, with a type, a size in
// HiMetric units (0.01 mm) and its pixels. Setting a picture property shares the reference.

#include <cstdint>
#include <memory>

#include "platform/dib.h"

namespace vex::platform {

enum class PictureType : int16_t {
    None = 0,
    Bitmap = 1,
    Metafile = 2,
    Icon = 3,
};

// An icon: colour pixels (32 bpp, top-down) and an AND mask (1 bpp, top-down; 1 = keep the
// destination). DrawIconEx with DI_NORMAL ANDs the mask, then XORs the colour image.
struct Icon {
    Dib color;
    Dib mask;
};

class Picture {
public:
    // A bitmap picture from a DIB; its HiMetric size is derived from 96 dpi.
    static std::shared_ptr<const Picture> FromBitmap(Dib bitmap);
    static std::shared_ptr<const Picture> FromIcon(Icon icon);

    PictureType type() const { return type_; }
    int32_t width() const { return widthHiMetric_; }   // HiMetric
    int32_t height() const { return heightHiMetric_; } // HiMetric
    int32_t pixelWidth() const { return pixelWidth_; }
    int32_t pixelHeight() const { return pixelHeight_; }

    const Dib& bitmap() const { return bitmap_; } // Bitmap pictures
    const Icon& icon() const { return icon_; }    // Icon pictures

    // Pixels <-> HiMetric at 96 dpi: HiMetric = round(pixels * 2540 / 96).
    static int32_t PixelsToHiMetric(int32_t pixels);
    static double HiMetricToPixels(int32_t hiMetric); // unrounded, as the host's ScaleX gives

private:
    Picture() = default;
    PictureType type_ = PictureType::None;
    int32_t widthHiMetric_ = 0;
    int32_t heightHiMetric_ = 0;
    int32_t pixelWidth_ = 0;
    int32_t pixelHeight_ = 0;
    Dib bitmap_;
    Icon icon_;
};

using PictureRef = std::shared_ptr<const Picture>; // empty = Nothing

} // namespace vex::platform
