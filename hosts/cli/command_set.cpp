// vexpanel set FILE.vxp Key=Value... [-o OUT.vxp]: loads a saved panel at design time, sets each
// property through the control's public set (so its rules apply; a message box's text goes to
// standard error), and saves the panel over FILE.vxp, or to OUT.vxp, atomically.
#include <iostream>

#include "base/runtime_error.h"
#include "commands.h"
#include "control/vxp_format.h"
#include "headless_panel.h"
#include "pages/panel_access.h"
#include "panel_file.h"

namespace vex::cli {

namespace {

// The public sets of the properties no property page edits; the pages reach the others.
bool SetOutsideThePages(control::VexPanel& panel, std::string_view key, const control::PropertyValue& value)
{
    if (key == "MousePointer")
        panel.setMousePointer(control::TypeMousePointer(control::AsInt32(value)));
    else if (key == "OptionPic")
        panel.setOptionPic(control::AsBoolean(value));
    else if (key == "OptionPicBackGround")
        panel.setOptionPicBackGround(control::AsBoolean(value));
    else if (key == "Panel3DBorderOption")
        panel.setPanel3DBorderOption(control::AsBoolean(value));
    else
        return false;
    return true;
}

} // namespace

int CommandSet(Arguments arguments)
{
    std::string file, output;
    std::vector<std::string_view> options;
    for (size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "-o" && i + 1 < arguments.size())
            output = std::string(arguments[++i]);
        else if (file.empty() && arguments[i].find('=') == std::string_view::npos && !arguments[i].starts_with("-"))
            file = std::string(arguments[i]);
        else if (arguments[i].find('=') != std::string_view::npos)
            options.push_back(arguments[i]);
        else
            return UsageError("set", "unexpected argument " + std::string(arguments[i]));
    }
    if (file.empty() || options.empty())
        return UsageError("set", "usage: vexpanel set FILE.vxp Key=Value... [-o OUT.vxp]");

    HeadlessPanel loaded;
    loaded.host.userMode = false; // the designer changes a panel
    LoadPanel(loaded.panel, file);
    for (std::string_view option : options) {
        const Setting setting = ParseSetting(option, "");
        const size_t shown = loaded.host.messageBoxes.size();
        try {
            if (!SetOutsideThePages(loaded.panel, setting.key, setting.value))
                pages::SetProperty(loaded.panel, setting.key, setting.value);
        } catch (const RuntimeError& error) {
            const std::string reason = error.code() == ErrorCode::InvalidProcedureCall
                ? "set it with a property page or in the file (fonts and pictures)"
                : "error " + std::to_string(error.number()) + ": " + error.description();
            throw CommandError(setting.option + ": " + reason);
        }
        for (size_t i = shown; i < loaded.host.messageBoxes.size(); ++i)
            std::cerr << "vexpanel set: " << setting.option << ": " << loaded.host.messageBoxes[i].text << "\n";
    }
    control::MemoryPropertyBag saved;
    loaded.panel.WriteProperties(saved);
    const std::string target = output.empty() ? file : output;
    try {
        control::WriteVxpFile(target, saved);
    } catch (const RuntimeError& error) {
        throw CommandError(target + ": error " + std::to_string(error.number()) + ": " + error.description());
    }
    return 0;
}

} // namespace vex::cli
