#pragma once
// The vexpanel command's sub-commands. Each takes its own arguments (after the sub-command's
// name), writes its result to standard output and returns the exit status: 0 done, 2 not done.
// Errors propagate to main, which reports them and exits with status 2.
//
// To add a sub-command: write command_<name>.cpp with a function of this shape, declare it here
// and add one line to the table in main.cpp.

#include <span>
#include <string_view>

namespace vex::cli {

using Arguments = std::span<const std::string_view>;

int CommandNew(Arguments arguments);
int CommandProps(Arguments arguments);
int CommandRender(Arguments arguments);
int CommandGallery(Arguments arguments);
int CommandReference(Arguments arguments);
int CommandSet(Arguments arguments);
int CommandPngInfo(Arguments arguments);
int CommandPng2Bmp(Arguments arguments);
int CommandPages(Arguments arguments);
int CommandPicture(Arguments arguments);
int CommandAbout(Arguments arguments);

// Reports wrong usage of a sub-command on standard error; returns the exit status for it.
int UsageError(std::string_view command, std::string_view message);

} // namespace vex::cli
