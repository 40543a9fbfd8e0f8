#pragma once
// Saved panels on the command line: loading one with errors that name the file, the key and its
// line; `Key=Value` options, where an enumeration may be given by a member's name; and the
// listing of a loaded panel that `props` prints and that loads again.

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "control/memory_property_bag.h"
#include "control/vex_panel.h"

namespace vex::cli {

// A failure that ends a command; main prints "vexpanel COMMAND: " and the message.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One --set option or `set` argument: the key, its value as a .vxp line holds it, and the
// option as given (for messages).
struct Setting {
    std::string key;
    control::PropertyValue value;
    std::string option;
};

// Reads "Key=Value". The key must be a persisted property; the value is written as in a .vxp
// line, or for an enumerated property as the name of one of its members. Raises CommandError
// naming `optionName` and the option when it is wrong.
Setting ParseSetting(std::string_view option, std::string_view optionName);

// Loads FILE.vxp into the panel (ReadProperties), the settings taking the place of the file's
// values. Every failure is a CommandError: "FILE: error 6: Overflow: Appearance = 70000 (line 3)",
// or "--set Appearance=70000: error 6: Overflow" for a setting.
void LoadPanel(control::VexPanel& panel, const std::string& path, const std::vector<Setting>& settings = {});

// Every persisted property of the panel in read order, as a .vxp that loads again; an
// enumerated property's line ends in a comment naming its member.
std::string ListProperties(const control::VexPanel& panel);

// The exact name of an enumerated property's enumeration (such as "TypeAppearance"), or empty.
std::string_view EnumerationOf(std::string_view key);

} // namespace vex::cli
