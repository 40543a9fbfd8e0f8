#pragma once
// Reading a PNG file by path the way the host opens a file for binary access with its default
// read/write access: a path that does not exist is created as an empty file (which then fails
// the signature test); a path that cannot be opened raises the host's file error.

#include <cstdint>
#include <string>
#include <vector>

namespace vex::png {

// The whole file. Raises RuntimeError: 75 (Path/File access error) for a directory or a file
// that cannot be read, 76 (Path not found) when the folder does not exist, 70 (Permission
// denied) when a missing file cannot be created. The file is closed again on every path,
// failures included.
std::vector<uint8_t> ReadBinaryFile(const std::string& path);

} // namespace vex::png
