#pragma once
// Reading a PNG file by path the way the host opens a file for binary access with its default
// read/write access: a path that does not exist is created as an empty file (which then fails
// the signature test); a path that cannot be opened raises the host's file error.

#include <cstdint>
#include <fstream>
#include <string>

#include "png/chunk_reader.h"

namespace vex::png {

// A file read piece by piece where the decode asks: nothing is read ahead and nothing is held,
// so a file that is not a PNG costs its first 8 bytes whatever its size. Opening raises
// RuntimeError: 75 (Path/File access error) for a directory or a file that cannot be opened,
// 76 (Path not found) when the folder does not exist, 70 (Permission denied) when a missing file
// cannot be created; a read that fails raises 75. The file is closed with the object.
class FileSource final : public ByteSource {
public:
    explicit FileSource(const std::string& path);
    int64_t Size() const override { return size_; }
    void ReadAt(int64_t offset, uint8_t* out, size_t count) override;

private:
    std::ifstream file_;
    int64_t size_ = 0;
    int64_t position_ = 0;
};

} // namespace vex::png
