// Icon and cursor files. An ICONDIR (6 bytes: 0, type 1 icon / 2 cursor, count) is followed by
// count 16-byte entries (width, height, colours, 0, planes or hot spot x, bit count or hot spot
// y, bytes in the image, offset of the image). Each image is a DIB whose header counts twice the
// rows: the colour (XOR) rows, then a 1-bit AND mask, both bottom-up. Images stored as PNG are
// decoded by LoadPNG, their alpha recovered from two compositions.
#include <algorithm>
#include <tuple>

#include "base/runtime_error.h"
#include "picture_formats.h"
#include "pages/picture_import.h"
#include "png/load_png.h"

namespace vex::pages::formats {

namespace {

struct Entry {
    size_t offset = 0;
    size_t size = 0;
    int64_t area = 0;
    int bitCount = 0;
    bool png = false;
};

constexpr uint8_t kPngSignature[8] = { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };

platform::Dib ColourOf(const platform::Dib& stored)
{
    platform::Dib colour(stored.width(), stored.height(), 32, true);
    for (int32_t y = 0; y < stored.height(); ++y) {
        uint8_t* out = colour.row(y);
        if (stored.bitCount() == 32) {
            std::copy_n(stored.row(y), stored.width() * 4, out); // the fourth byte is the icon's alpha
            continue;
        }
        for (int32_t x = 0; x < stored.width(); ++x) {
            ColorRef c = stored.pixel(x, y);
            out[x * 4] = static_cast<uint8_t>(BlueOf(c));
            out[x * 4 + 1] = static_cast<uint8_t>(GreenOf(c));
            out[x * 4 + 2] = static_cast<uint8_t>(RedOf(c));
        }
    }
    return colour;
}

platform::Dib ComposedPng(std::span<const uint8_t> image, const std::string& format, ColorRef background)
{
    png::LoadPNG decoder;
    auto box = std::make_shared<png::PictureBox>();
    decoder.setPicBox(box);
    decoder.setSetAlpha(true);
    decoder.SetOwnBkgndColor(true, background);
    decoder.setMaxPixels(kMaxImportPixels);
    try {
        decoder.OpenPNGFromMemory(image);
    } catch (const RuntimeError&) {
        BadPicture(format, "its PNG image is damaged");
    }
    if (decoder.ErrorNumber() != 0 || !box->Picture || box->Picture->type() != platform::PictureType::Bitmap)
        BadPicture(format, "its PNG image cannot be decoded");
    return ColourOf(box->Picture->bitmap());
}

// LoadPNG composes alpha onto a background colour; composed onto black and onto white, a pixel
// of colour c and alpha a gives B = c a / 255 and W = B + 255 - a, which give back a and c.
platform::PictureRef FromPng(std::span<const uint8_t> image, const std::string& format)
{
    platform::Dib onBlack = ComposedPng(image, format, Rgb(0, 0, 0));
    platform::Dib onWhite = ComposedPng(image, format, Rgb(255, 255, 255));
    platform::Icon icon { platform::Dib(onBlack.width(), onBlack.height(), 32, true),
        platform::Dib(onBlack.width(), onBlack.height(), 1, true) };
    icon.mask.palette() = { {}, { 255, 255, 255, 0 } };
    for (int32_t y = 0; y < onBlack.height(); ++y) {
        const uint8_t* black = onBlack.row(y);
        const uint8_t* white = onWhite.row(y);
        uint8_t* out = icon.color.row(y);
        for (int32_t x = 0; x < onBlack.width(); ++x) {
            int spread = 0;
            for (int c = 0; c < 3; ++c)
                spread = std::max(spread, white[x * 4 + c] - black[x * 4 + c]);
            int alpha = 255 - std::clamp(spread, 0, 255);
            for (int c = 0; c < 3; ++c)
                out[x * 4 + c] = alpha ? static_cast<uint8_t>(std::min(255, (black[x * 4 + c] * 255 + alpha / 2) / alpha)) : 0;
            out[x * 4 + 3] = static_cast<uint8_t>(alpha);
            if (alpha == 0)
                icon.mask.row(y)[x >> 3] = static_cast<uint8_t>(icon.mask.row(y)[x >> 3] | (0x80 >> (x & 7)));
        }
    }
    return platform::Picture::FromIcon(std::move(icon));
}

} // namespace

platform::PictureRef ReadIconFile(std::span<const uint8_t> bytes)
{
    if (bytes.size() < 6)
        BadPicture("ICO", "the icon directory is cut short");
    uint16_t type = Little16(&bytes[2]);
    const std::string format = type == 2 ? "CUR" : "ICO";
    size_t count = Little16(&bytes[4]);
    if (count == 0 || bytes.size() < 6 + count * 16)
        BadPicture(format, count == 0 ? "the file holds no image" : "the icon directory is cut short");

    // The largest image wins, then the deepest; a DIB before a PNG of the same size.
    Entry best;
    bool found = false;
    for (size_t i = 0; i < count; ++i) {
        const uint8_t* raw = &bytes[6 + i * 16];
        Entry entry;
        entry.size = Little32(raw + 8);
        entry.offset = Little32(raw + 12);
        if (entry.offset > bytes.size() || entry.size > bytes.size() - entry.offset || entry.size < 40)
            BadPicture(format, "image " + std::to_string(i + 1) + " lies outside the file");
        int width = raw[0] ? raw[0] : 256;
        int height = raw[1] ? raw[1] : 256;
        entry.area = int64_t { width } * height;
        entry.png = std::equal(std::begin(kPngSignature), std::end(kPngSignature), &bytes[entry.offset]);
        entry.bitCount = entry.png ? 32 : Little16(&bytes[entry.offset + 14]);
        auto rank = [](const Entry& e) { return std::tuple(e.area, e.bitCount, !e.png); };
        if (!found || rank(entry) > rank(best))
            best = entry, found = true;
    }
    std::span<const uint8_t> image = bytes.subspan(best.offset, best.size);
    if (best.png)
        return FromPng(image, format);

    auto storedHeight = static_cast<int32_t>(Little32(&image[8]));
    if (storedHeight <= 0 || storedHeight % 2 != 0)
        BadPicture(format, "the image's height does not hold its mask");
    int32_t rows = storedHeight / 2;
    platform::Dib stored = ReadDib(image, 0, format, rows);

    // The AND mask follows the colour rows: 1 bit per pixel, rows padded to 4 bytes.
    uint32_t headerSize = Little32(&image[0]);
    bool masksAfterHeader = Little32(&image[16]) == 3 && headerSize == 40;
    size_t colourBytes = static_cast<size_t>(platform::Dib::StrideFor(stored.width(), Little16(&image[14]))) * rows;
    size_t maskAt = headerSize + (masksAfterHeader ? 12 : 0) + stored.palette().size() * 4 + colourBytes;
    int32_t maskStride = platform::Dib::StrideFor(stored.width(), 1);
    bool hasMask = maskAt <= image.size()
        && image.size() - maskAt >= static_cast<size_t>(maskStride) * static_cast<size_t>(rows);
    // Some writers leave the mask out of 32-bit images, whose alpha says the same.
    if (!hasMask && stored.bitCount() != 32)
        BadPicture(format, "the image's mask is cut short");
    platform::Icon icon { ColourOf(stored), platform::Dib(stored.width(), rows, 1, true) };
    icon.mask.palette() = { {}, { 255, 255, 255, 0 } };
    for (int32_t y = 0; y < rows; ++y) {
        uint8_t* out = icon.mask.row(y);
        if (hasMask) {
            std::copy_n(&image[maskAt + static_cast<size_t>(rows - 1 - y) * static_cast<size_t>(maskStride)], maskStride, out);
            continue;
        }
        for (int32_t x = 0; x < stored.width(); ++x)
            if (icon.color.row(y)[x * 4 + 3] == 0)
                out[x >> 3] = static_cast<uint8_t>(out[x >> 3] | (0x80 >> (x & 7)));
    }
    return platform::Picture::FromIcon(std::move(icon));
}

} // namespace vex::pages::formats
