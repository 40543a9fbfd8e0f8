// vexpanel about: opens the About box (Acerca) on a headless panel and prints what the host is
// shown: its title, then its text (name, version, copyright).
#include <iostream>

#include "commands.h"
#include "headless_panel.h"

namespace vex::cli {

int CommandAbout(Arguments arguments)
{
    if (!arguments.empty())
        return UsageError("about", "usage: vexpanel about");
    HeadlessPanel placed;
    placed.panel.Acerca();
    for (const control::MessageBoxCall& about : placed.host.aboutBoxes)
        std::cout << about.title << "\n" << about.text << "\n";
    return 0;
}

} // namespace vex::cli
