#pragma once
// The reference decode: libpng, asked for 8-bit R, G, B, A with the decoder's own rules where
// libpng has them (16-bit samples truncated to their high byte, low-bit grey scaled by 255,
// 85, 17, palettes expanded). tRNS becomes alpha only when asked; otherwise a tRNS alpha that
// libpng produces anyway is ignored.

#include <png.h>

#include <cstdio>
#include <string>
#include <vector>

namespace vex::png::testing {

struct OracleImage {
    bool ok = false;
    int width = 0;
    int height = 0;
    int colorType = 0;           // of the file
    std::vector<uint8_t> rgba;   // width * height * 4
};

inline OracleImage DecodeWithLibpng(const std::string& path, bool transparencyToAlpha)
{
    OracleImage image;
    FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr)
        return image;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    std::vector<png_bytep> rows;
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_read_struct(&png, &info, nullptr);
        std::fclose(file);
        image.ok = false;
        return image;
    }
    png_init_io(png, file);
    png_read_info(png, info);
    image.width = static_cast<int>(png_get_image_width(png, info));
    image.height = static_cast<int>(png_get_image_height(png, info));
    image.colorType = png_get_color_type(png, info);
    bool fileHasAlpha = (image.colorType & PNG_COLOR_MASK_ALPHA) != 0;

    png_set_strip_16(png);
    png_set_palette_to_rgb(png);
    png_set_expand_gray_1_2_4_to_8(png);
    if (transparencyToAlpha && png_get_valid(png, info, PNG_INFO_tRNS))
        png_set_tRNS_to_alpha(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (png_get_rowbytes(png, info) != static_cast<size_t>(image.width) * 4)
        longjmp(png_jmpbuf(png), 1);

    image.rgba.assign(static_cast<size_t>(image.width) * image.height * 4, 0);
    rows.resize(static_cast<size_t>(image.height));
    for (int y = 0; y < image.height; ++y)
        rows[static_cast<size_t>(y)] = image.rgba.data() + static_cast<size_t>(y) * image.width * 4;
    png_read_image(png, rows.data());
    png_read_end(png, nullptr);
    png_destroy_read_struct(&png, &info, nullptr);
    std::fclose(file);

    if (!fileHasAlpha && !transparencyToAlpha)
        for (size_t i = 3; i < image.rgba.size(); i += 4)
            image.rgba[i] = 255;
    image.ok = true;
    return image;
}

} // namespace vex::png::testing
