#include "png/png_file.h"

#include <algorithm>
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

FileSource::FileSource(const std::string& name)
{
    if (name.empty())
        Raise(ErrorCode::BadFileNameOrNumber);
    fs::path path(name);
    std::error_code error;
    fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status))
        Raise(ErrorCode::PathFileAccessError);
    if (!fs::exists(status))
        CreateEmpty(path);
    // Unbuffered: the reader asks for chunk headers here and there and for image data in
    // large pieces; a stream buffer would only read ahead what is skipped anyway.
    file_.rdbuf()->pubsetbuf(nullptr, 0);
    file_.open(path, std::ios::binary);
    if (!file_)
        Raise(ErrorCode::PathFileAccessError);
    file_.seekg(0, std::ios::end);
    std::streamoff size = file_.tellg();
    file_.seekg(0, std::ios::beg);
    if (size < 0 || !file_)
        Raise(ErrorCode::PathFileAccessError);
    size_ = size;
}

void FileSource::ReadAt(int64_t offset, uint8_t* out, size_t count)
{
    size_t available = 0;
    if (offset >= 0 && offset < size_)
        available = static_cast<size_t>(std::min<int64_t>(static_cast<int64_t>(count), size_ - offset));
    if (available > 0) {
        if (offset != position_)
            file_.seekg(offset, std::ios::beg);
        if (!file_.read(reinterpret_cast<char*>(out), static_cast<std::streamsize>(available))) {
            position_ = -1;
            file_.clear();
            Raise(ErrorCode::PathFileAccessError);
        }
        position_ = offset + static_cast<int64_t>(available);
    }
    std::fill(out + available, out + count, uint8_t{0});
}

} // namespace vex::png
