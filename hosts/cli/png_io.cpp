#include "png_io.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "platform/png_writer.h"
#include "png/load_png.h"

namespace vex::cli {

bool WritePng(const std::string& path, const platform::Dib& pixels)
{
    std::string error;
    if (platform::WritePng(path, pixels, &error))
        return true;
    std::cerr << error << "\n";
    return false;
}

platform::PictureRef ReadImagePicture(const std::string& path)
{
    std::string error;
    std::optional<platform::Dib> image = platform::ReadImage(path, &error);
    if (!image) {
        std::cerr << error << "\n";
        return nullptr;
    }
    return platform::Picture::FromBitmap(std::move(*image));
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
