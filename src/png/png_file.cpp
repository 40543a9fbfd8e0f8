#include "png/png_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/runtime_error.h"

namespace vex::png {

namespace fs = std::filesystem;

namespace {

void CreateEmpty(const fs::path& path)
{
    std::error_code error;
    fs::path parent = path.parent_path();
    if (!parent.empty() && !fs::is_directory(parent, error))
        Raise(ErrorCode::PathNotFound);
    std::ofstream created(path, std::ios::binary);
    if (!created)
        Raise(ErrorCode::PermissionDenied);
} // closed here

} // namespace

std::vector<uint8_t> ReadBinaryFile(const std::string& name)
{
    if (name.empty())
        Raise(ErrorCode::BadFileNameOrNumber);
    fs::path path(name);
    std::error_code error;
    fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status))
        Raise(ErrorCode::PathFileAccessError);
    if (!fs::exists(status)) {
        CreateEmpty(path);
        return {};
    }
    // The stream closes itself when it goes out of scope, on the error paths too (the original
    // left the file open after a failed decode; we do not).
    std::ifstream file(path, std::ios::binary);
    if (!file)
        Raise(ErrorCode::PathFileAccessError);
    file.seekg(0, std::ios::end);
    std::streamoff size = file.tellg();
    file.seekg(0, std::ios::beg);
    if (size < 0)
        Raise(ErrorCode::PathFileAccessError);
    std::vector<uint8_t> bytes(static_cast<size_t>(size));
    if (size > 0 && !file.read(reinterpret_cast<char*>(bytes.data()), size))
        Raise(ErrorCode::PathFileAccessError);
    return bytes;
}

} // namespace vex::png
