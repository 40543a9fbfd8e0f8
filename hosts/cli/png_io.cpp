#include "png_io.h"

#include <png.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <vector>

#include "png/load_png.h"

namespace vex::cli {

bool WritePng(const std::string& path, const platform::Dib& pixels)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    if (!file) {
        std::cerr << "cannot write " << path << "\n";
        return false;
    }
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!png || !info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        std::cerr << "cannot write " << path << "\n";
        return false;
    }
    png_init_io(png, file.get());
    png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.width()), static_cast<png_uint_32>(pixels.height()), 8,
        PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    std::vector<png_byte> row(static_cast<size_t>(pixels.width()) * 3);
    for (int32_t y = 0; y < pixels.height(); ++y) {
        for (int32_t x = 0; x < pixels.width(); ++x) {
            const ColorRef colour = pixels.pixel(x, y);
            row[3 * x] = static_cast<png_byte>(RedOf(colour));
            row[3 * x + 1] = static_cast<png_byte>(GreenOf(colour));
            row[3 * x + 2] = static_cast<png_byte>(BlueOf(colour));
        }
        png_write_row(png, row.data());
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

platform::PictureRef ReadPngPicture(const std::string& path, ColorRef background)
{
    // LoadPNG creates a missing file (empty) before it fails on it: look first.
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        std::cerr << "no such file: " << path << "\n";
        return nullptr;
    }
    png::LoadPNG loader;
    auto box = std::make_shared<png::PictureBox>();
    loader.setPicBox(box);
    loader.setSetAlpha(true);
    loader.setSetTrans(true);
    loader.SetOwnBkgndColor(true, background);
    loader.OpenPNG(path);
    if (loader.ErrorNumber() != 0 || !box->Picture) {
        std::cerr << "cannot read " << path << " as a PNG picture (error " << loader.ErrorNumber() << ")\n";
        return nullptr;
    }
    return box->Picture;
}

} // namespace vex::cli
