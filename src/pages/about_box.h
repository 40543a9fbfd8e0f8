#pragma once
// The About box that Acerca opens through the host: the control's name, its version (the one
// version number of the library and the command line) and a line of copyright. Each host shows it
// its own way: a small dialog in the toolkits, a message box's record headless.

#include <string>

namespace vex::pages {

struct AboutBox {
    std::string title;     // "About VexPanel"
    std::string name;      // "VexPanel"
    std::string version;   // "0.1.0"
    std::string copyright; // one line

    // The three lines as a message box shows them.
    std::string Text() const;
};

const AboutBox& TheAboutBox();

} // namespace vex::pages
