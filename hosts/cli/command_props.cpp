// vexpanel props FILE.vxp: loads a saved panel as a running program would (ReadProperties in run
// mode) and prints every persisted property in read order as a .vxp that loads again, each
// enumerated property with its member's name in a comment.
#include <iostream>

#include "commands.h"
#include "headless_panel.h"
#include "panel_file.h"

namespace vex::cli {

int CommandProps(Arguments arguments)
{
    if (arguments.size() != 1)
        return UsageError("props", "usage: vexpanel props FILE.vxp");
    HeadlessPanel loaded;
    LoadPanel(loaded.panel, std::string(arguments[0]));
    std::cout << ListProperties(loaded.panel);
    return 0;
}

} // namespace vex::cli
