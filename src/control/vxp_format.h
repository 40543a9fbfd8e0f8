#pragma once
// The .vxp text file: a saved panel as `Key = value` lines, with nested blocks for the font and
// for pictures (embedded, so that a file is self-contained). The format is described in
// docs/vxp-format.md. Reading fills a MemoryPropertyBag (keys in file order); writing saves one.
//
// Errors: a malformed file raises Invalid file format (321) with "line N: what" in the
// description; a number out of range raises Overflow (6), bad picture data Invalid picture (481),
// both with the line number too. File-system failures raise the host's file errors (53, 70, 75).

#include <cstddef>
#include <string>
#include <string_view>

#include "control/memory_property_bag.h"

namespace vex::control {

inline constexpr size_t kMaxVxpFileBytes = 64u << 20; // larger files are refused before reading

MemoryPropertyBag ParseVxp(std::string_view text);
std::string FormatVxp(const MemoryPropertyBag& bag);

// A value as one line of text, the way a .vxp writes a scalar ("Caption = ..." right-hand side);
// fonts and pictures are summarised on one line.
std::string DescribeValue(const PropertyValue& value);

MemoryPropertyBag ReadVxpFile(const std::string& path);
// Writes the whole file under a temporary name next to path, then renames it over path: a failed
// save leaves the previous file as it was.
void WriteVxpFile(const std::string& path, const MemoryPropertyBag& bag);

} // namespace vex::control
