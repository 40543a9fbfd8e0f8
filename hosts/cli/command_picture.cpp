// vexpanel picture FILE.vxp (--set PROPERTY=IMAGE | --clear PROPERTY) [--png-trans] [--png-alpha]
//                           [--png-bkgnd 0xBBGGRR] [--icon-as-bitmap] [-o OUT.vxp]
// Imports a picture file (PNG, BMP, ICO, CUR, GIF or JPEG) into Picture, PictureBackground or
// MouseIcon of a saved panel, or clears one, through the ImagePNG page as a designer would, and
// saves the panel to OUT.vxp (over FILE.vxp without -o). A file that cannot be imported ends the
// command with status 2 and saves nothing.
#include <iostream>

#include "base/runtime_error.h"
#include "commands.h"
#include "control/property_value.h"
#include "control/vxp_format.h"
#include "headless_panel.h"
#include "pages/image_page.h"

namespace vex::cli {

namespace {

constexpr std::string_view kUsage = "usage: vexpanel picture FILE.vxp (--set PROPERTY=IMAGE | --clear PROPERTY) "
                                     "[--png-trans] [--png-alpha] [--png-bkgnd 0xBBGGRR] [--icon-as-bitmap] [-o OUT.vxp]";

} // namespace

int CommandPicture(Arguments arguments)
{
    if (arguments.empty())
        return UsageError("picture", kUsage);
    std::string file(arguments[0]);
    std::string output, property, image, background;
    bool clear = false, transparency = false, alpha = false, iconAsBitmap = false;
    for (size_t at = 1; at < arguments.size(); ++at) {
        std::string_view option = arguments[at];
        bool hasValue = at + 1 < arguments.size();
        if (option == "--set" && hasValue && property.empty()) {
            std::string_view setting = arguments[++at];
            size_t equals = setting.find('=');
            if (equals == std::string_view::npos || equals + 1 == setting.size())
                return UsageError("picture", "--set needs PROPERTY=IMAGE");
            property = setting.substr(0, equals);
            image = setting.substr(equals + 1);
        } else if (option == "--clear" && hasValue && property.empty()) {
            property = arguments[++at];
            clear = true;
        } else if (option == "--png-bkgnd" && hasValue) {
            background = arguments[++at];
        } else if (option == "--png-trans") {
            transparency = true;
        } else if (option == "--png-alpha") {
            alpha = true;
        } else if (option == "--icon-as-bitmap") {
            iconAsBitmap = true;
        } else if (option == "-o" && hasValue) {
            output = arguments[++at];
        } else {
            return UsageError("picture", kUsage);
        }
    }
    if (property.empty())
        return UsageError("picture", kUsage);

    pages::ImagePage page(*pages::FindPage("ImagePNG"));
    std::optional<size_t> target = page.Find("cboTarget");
    page.Initialize();
    int32_t index = -1;
    for (size_t item = 0; item < page.Editor(*target).list.size(); ++item)
        if (page.Editor(*target).list[item] == property)
            index = static_cast<int32_t>(item);
    if (index < 0)
        return UsageError("picture", "the picture properties are Picture, PictureBackground and MouseIcon");

    control::MemoryPropertyBag bag = control::ReadVxpFile(file);
    HeadlessPanel loaded;
    loaded.host.userMode = false;
    loaded.panel.ReadProperties(bag);
    control::VexPanel* selection[] = { &loaded.panel };
    page.SelectionChanged(selection);
    page.SetReferenceContext(&loaded.surface.Dc());
    page.Choose(*target, index);
    if (clear) {
        page.ClearPicture();
    } else {
        page.Type(*page.Find("txtFileName"), image);
        page.Check(*page.Find("chkPNGTransparency"), transparency);
        page.Check(*page.Find("chkPNGAlpha"), alpha);
        page.Check(*page.Find("chkIconAsBitmap"), iconAsBitmap);
        if (!background.empty()) {
            // 0xBBGGRR as the PNG tools of this command take it
            if (background.starts_with("0x") || background.starts_with("0X"))
                background = "&H" + background.substr(2);
            page.Check(*page.Find("chkPNGOwnBackground"), 1);
            page.Type(*page.Find("clrPNGBackground"), background);
        }
    }
    page.ApplyChanges();

    control::MemoryPropertyBag saved;
    loaded.panel.WriteProperties(saved);
    std::string destination = output.empty() ? file : output;
    control::WriteVxpFile(destination, saved);
    std::cout << property << " = " << control::DescribeValue(loaded.panel.PersistedValue(property)) << "\n";
    return 0;
}

} // namespace vex::cli
