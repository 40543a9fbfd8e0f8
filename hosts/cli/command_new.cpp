// vexpanel new [--name NAME]: the saved form of a freshly placed panel (InitProperties, then
// WriteProperties), as .vxp text on standard output.
#include <iostream>

#include "commands.h"
#include "control/vxp_format.h"
#include "headless_panel.h"

namespace vex::cli {

int CommandNew(Arguments arguments)
{
    HeadlessPanel placed;
    placed.host.userMode = false; // a panel is placed on a form at design time
    for (size_t at = 0; at < arguments.size(); ++at) {
        if (arguments[at] == "--name" && at + 1 < arguments.size())
            placed.host.displayName = std::string(arguments[++at]);
        else
            return UsageError("new", "usage: vexpanel new [--name NAME]");
    }
    placed.panel.InitProperties();
    control::MemoryPropertyBag bag;
    placed.panel.WriteProperties(bag);
    std::cout << control::FormatVxp(bag);
    return 0;
}

} // namespace vex::cli
