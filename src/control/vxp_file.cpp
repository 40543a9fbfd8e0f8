// Loading and saving .vxp files. A save writes a temporary file beside the target and renames it
// over the target only once the whole text is on disk, so a failed save never destroys the
// previous file.
#include <filesystem>
#include <fstream>
#include <random>
#include <system_error>

#include "base/runtime_error.h"
#include "control/vxp_format.h"

namespace vex::control {

namespace {

[[noreturn]] void FileError(ErrorCode code, const std::string& path)
{
    throw RuntimeError(code, StandardDescription(static_cast<int32_t>(code)) + ": " + path);
}

std::string TemporaryNameFor(const std::string& path)
{
    std::random_device random;
    return path + ".tmp" + std::to_string(random() % 1000000);
}

} // namespace

MemoryPropertyBag ReadVxpFile(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        FileError(ErrorCode::FileNotFound, path);
    auto size = std::filesystem::file_size(path, error);
    if (error)
        FileError(ErrorCode::PathFileAccessError, path);
    if (size > kMaxVxpFileBytes)
        throw RuntimeError(ErrorCode::InvalidFileFormat, "Invalid file format: " + path + " is larger than " + std::to_string(kMaxVxpFileBytes >> 20) + " MB");
    std::ifstream in(path, std::ios::binary);
    if (!in)
        FileError(ErrorCode::PermissionDenied, path);
    std::string text(static_cast<size_t>(size), '\0');
    if (!in.read(text.data(), static_cast<std::streamsize>(size)))
        FileError(ErrorCode::DeviceIOError, path);
    return ParseVxp(text);
}

void WriteVxpFile(const std::string& path, const MemoryPropertyBag& bag)
{
    std::string text = FormatVxp(bag);
    std::string temporary = TemporaryNameFor(path);
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out)
            FileError(ErrorCode::PathFileAccessError, path);
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        out.flush();
        if (!out) {
            out.close();
            std::filesystem::remove(temporary);
            FileError(ErrorCode::DeviceIOError, path);
        }
    }
    std::error_code error;
    std::filesystem::rename(temporary, path, error);
    if (error) {
        std::filesystem::remove(temporary, error);
        FileError(ErrorCode::PathFileAccessError, path);
    }
}

} // namespace vex::control
