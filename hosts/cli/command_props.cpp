// vexpanel props FILE.vxp: loads a saved panel as a running program would (ReadProperties in run
// mode) and prints every persisted property in read order, one "Key = value" a line.
#include <iostream>

#include "commands.h"
#include "control/persisted_keys.h"
#include "control/vxp_format.h"
#include "headless_panel.h"

namespace vex::cli {

int CommandProps(Arguments arguments)
{
    if (arguments.size() != 1)
        return UsageError("props", "usage: vexpanel props FILE.vxp");
    control::MemoryPropertyBag bag = control::ReadVxpFile(std::string(arguments[0]));
    HeadlessPanel loaded;
    loaded.panel.ReadProperties(bag);
    for (std::string_view key : control::ReadOrder())
        std::cout << key << " = " << control::DescribeValue(loaded.panel.PersistedValue(key)) << "\n";
    return 0;
}

} // namespace vex::cli
