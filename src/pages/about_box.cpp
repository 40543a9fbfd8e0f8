#include "pages/about_box.h"

// The version comes from the project's one number, configured into this generated header.
#include <vexpanel/version.h>

namespace vex::pages {

std::string AboutBox::Text() const { return name + "\nVersion " + version + "\n" + copyright; }

const AboutBox& TheAboutBox()
{
    static const AboutBox about { "About VexPanel", "VexPanel", VEXPANEL_VERSION,
        "Copyright (C) 2026 the VexPanel developers" };
    return about;
}

} // namespace vex::pages
