#include "png_io.h"

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/png_writer.h"
#include "panel_file.h"
#include "png/load_png.h"

namespace vex::cli {

namespace {

// A reason with the file's name in front, unless it names the file already.
std::string Named(const std::string& path, const std::string& reason)
{
    return reason.find(path) != std::string::npos ? reason : path + ": " + reason;
}

} // namespace

bool WritePng(const std::string& path, const platform::Dib& pixels)
{
    std::string error;
    if (platform::WritePng(path, pixels, &error))
        return true;
    throw CommandError(Named(path, error));
}

platform::PictureRef ReadImagePicture(const std::string& path)
{
    std::string error;
    std::optional<platform::Dib> image = platform::ReadImage(path, &error);
    if (!image)
        throw CommandError(Named(path, error));
    return platform::Picture::FromBitmap(std::move(*image));
}

platform::PictureRef ReadPngPicture(const std::string& path, ColorRef background)
{
    // LoadPNG creates a missing file (empty) before it fails on it: look first.
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw CommandError(path + ": no such file");
    png::LoadPNG loader;
    auto box = std::make_shared<png::PictureBox>();
    loader.setPicBox(box);
    loader.setSetAlpha(true);
    loader.setSetTrans(true);
    loader.SetOwnBkgndColor(true, background);
    loader.OpenPNG(path);
    if (loader.ErrorNumber() != 0 || !box->Picture)
        throw CommandError(path + ": not a PNG picture LoadPNG can read (ErrorNumber " + std::to_string(loader.ErrorNumber()) + ")");
    return box->Picture;
}

} // namespace vex::cli
