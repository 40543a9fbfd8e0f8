#include "pages/picture_import.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/runtime_error.h"
#include "picture_formats.h"
#include "png/load_png.h"

namespace vex::pages {

namespace formats {

void BadPicture(const std::string& format, const std::string& what)
{
    throw RuntimeError(ErrorCode::InvalidPicture, "Invalid picture: " + format + ": " + what);
}

void CheckSize(const std::string& format, int64_t width, int64_t height)
{
    if (width <= 0 || height <= 0)
        BadPicture(format, "the size " + std::to_string(width) + "x" + std::to_string(height) + " is wrong");
    if (width > 32767 || height > 32767 || width * height > kMaxImportPixels)
        BadPicture(format, "the size " + std::to_string(width) + "x" + std::to_string(height) + " is too large");
}

} // namespace formats

namespace {

constexpr size_t kMaxFileBytes = size_t { 64 } << 20;

bool StartsWith(std::span<const uint8_t> bytes, std::initializer_list<uint8_t> prefix)
{
    return bytes.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), bytes.begin());
}

platform::PictureRef LoadPng(std::span<const uint8_t> bytes, const PngSettings& settings)
{
    png::LoadPNG decoder;
    auto box = std::make_shared<png::PictureBox>();
    decoder.setPicBox(box);
    decoder.setSetTrans(settings.transparency);
    decoder.setSetAlpha(settings.alpha);
    decoder.SetOwnBkgndColor(settings.ownBackground, settings.background);
    decoder.setMaxPixels(kMaxImportPixels);
    std::string inflateMessage;
    decoder.setMessageBox([&](const std::string& text) { inflateMessage = text; });
    try {
        decoder.OpenPNGFromMemory(bytes);
    } catch (const RuntimeError& error) {
        formats::BadPicture("PNG", std::string("the image data is damaged (") + error.description() + ")");
    }
    if (decoder.ErrorNumber() != 0)
        formats::BadPicture("PNG", "LoadPNG error " + std::to_string(decoder.ErrorNumber()));
    if (!inflateMessage.empty())
        formats::BadPicture("PNG", inflateMessage);
    if (!box->Picture)
        formats::BadPicture("PNG", "colour type " + std::to_string(decoder.ColorType()) + " at "
                + std::to_string(decoder.Bitdepht()) + " bits is not supported");
    return box->Picture;
}

} // namespace

std::string_view FormatName(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Png: return "PNG";
    case PictureFormat::Bmp: return "BMP";
    case PictureFormat::Icon: return "ICO";
    case PictureFormat::Cursor: return "CUR";
    case PictureFormat::Gif: return "GIF";
    case PictureFormat::Jpeg: return "JPEG";
    case PictureFormat::Unknown: break;
    }
    return "unknown";
}

PictureFormat DetectFormat(std::span<const uint8_t> bytes)
{
    if (StartsWith(bytes, { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' }))
        return PictureFormat::Png;
    if (StartsWith(bytes, { 'B', 'M' }))
        return PictureFormat::Bmp;
    if (StartsWith(bytes, { 0, 0, 1, 0 }))
        return PictureFormat::Icon;
    if (StartsWith(bytes, { 0, 0, 2, 0 }))
        return PictureFormat::Cursor;
    if (StartsWith(bytes, { 'G', 'I', 'F', '8' }))
        return PictureFormat::Gif;
    if (StartsWith(bytes, { 0xFF, 0xD8, 0xFF }))
        return PictureFormat::Jpeg;
    return PictureFormat::Unknown;
}

platform::PictureRef LoadPictureFromMemory(std::span<const uint8_t> bytes, const PngSettings& png)
{
    try {
        switch (DetectFormat(bytes)) {
        case PictureFormat::Png: return LoadPng(bytes, png);
        case PictureFormat::Bmp: return platform::Picture::FromBitmap(formats::ReadBmp(bytes));
        case PictureFormat::Icon:
        case PictureFormat::Cursor: return formats::ReadIconFile(bytes);
        case PictureFormat::Gif: return platform::Picture::FromBitmap(formats::ReadGif(bytes));
        case PictureFormat::Jpeg: return platform::Picture::FromBitmap(formats::ReadJpeg(bytes));
        case PictureFormat::Unknown: break;
        }
    } catch (const std::bad_alloc&) {
        Raise(ErrorCode::OutOfMemory);
    }
    throw RuntimeError(ErrorCode::InvalidPicture, "Invalid picture: not a PNG, BMP, ICO, CUR, GIF or JPEG file");
}

platform::PictureRef LoadPictureFile(const std::string& path, const PngSettings& png)
{
    namespace fs = std::filesystem;
    if (path.empty())
        Raise(ErrorCode::BadFileNameOrNumber);
    std::error_code error;
    fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
        throw RuntimeError(ErrorCode::FileNotFound, "File not found: " + path);
    if (!fs::is_regular_file(status))
        throw RuntimeError(ErrorCode::PathFileAccessError, "Path/File access error: " + path);
    uintmax_t size = fs::file_size(path, error);
    if (error || size > kMaxFileBytes)
        throw RuntimeError(ErrorCode::InvalidPicture, "Invalid picture: " + path + " is larger than 64 MiB");
    std::ifstream file(path, std::ios::binary);
    std::vector<uint8_t> bytes(static_cast<size_t>(size));
    if (!file || (size > 0 && !file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))))
        throw RuntimeError(ErrorCode::PathFileAccessError, "Path/File access error: " + path);
    return LoadPictureFromMemory(bytes, png);
}

platform::PictureRef IconToBitmap(const platform::PictureRef& picture, ColorRef background,
    platform::DeviceContext& reference)
{
    if (!picture || picture->type() != platform::PictureType::Icon)
        return picture;
    int32_t width = picture->pixelWidth();
    int32_t height = picture->pixelHeight();
    std::unique_ptr<platform::DeviceContext> memory = reference.CreateCompatibleDC();
    platform::BitmapRef previous = memory->SelectBitmap(memory->CreateCompatibleBitmap(width, height));
    memory->FillRect(platform::Rect { 0, 0, width, height }, platform::Brush::Solid(background & 0x00FFFFFFu));
    memory->DrawIconEx(0, 0, picture->icon(), width, height, platform::kDrawIconNormal);
    platform::PictureRef bitmap = platform::Picture::FromBitmap(memory->Snapshot());
    memory->SelectBitmap(previous);
    return bitmap;
}

std::span<const PictureFilter> PictureFilters()
{
    static constexpr PictureFilter kFilters[] = {
        { "All pictures", "*.png;*.bmp;*.dib;*.ico;*.cur;*.gif;*.jpg;*.jpeg" },
        { "PNG images", "*.png" },
        { "Bitmaps", "*.bmp;*.dib" },
        { "Icons and cursors", "*.ico;*.cur" },
        { "GIF images", "*.gif" },
        { "JPEG images", "*.jpg;*.jpeg" },
    };
    return kFilters;
}

} // namespace vex::pages
