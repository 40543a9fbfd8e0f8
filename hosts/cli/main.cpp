// The vexpanel command: dispatches to one sub-command per file. A run-time error ends the
// program with its host error number and description on standard error and exit status 2.
#include <array>
#include <iostream>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "commands.h"
#include "pages/about_box.h"

namespace vex::cli {

namespace {

struct Command {
    std::string_view name;
    std::string_view synopsis;
    int (*run)(Arguments);
};

constexpr std::array kCommands = {
    Command { "new", "new [--name NAME]     print a freshly placed panel as .vxp", CommandNew },
    Command { "props", "props FILE.vxp        load a saved panel and list its properties", CommandProps },
    Command { "render", "render FILE.vxp -o OUT.png [--size WxH] [--set Key=Value ...] [--backdrop IMAGE] [--frames N]\n"
                        "                        [--picture FILE.png]\n"
                        "                        render a saved panel as a running program shows it", CommandRender },
    Command { "gallery", "gallery -o DIR [--examples DIR]\n"
                         "                        render the example panels and a contact sheet", CommandGallery },
    Command { "pages", "pages FILE.vxp [--page NAME] [--edit EDITOR=TEXT] [--choose EDITOR=INDEX] [--check EDITOR=0|1|2]\n"
                       "                        [--apply] [-o OUT.vxp]\n"
                       "                        list the property pages as they load the panel; with --page, edit as a\n"
                       "                        user would and apply, then save (over FILE.vxp without -o; an error\n"
                       "                        in Apply saves nothing, though the control kept what was written)", CommandPages },
    Command { "picture", "picture FILE.vxp (--set PROPERTY=IMAGE | --clear PROPERTY) [--png-trans] [--png-alpha]\n"
                         "                        [--png-bkgnd 0xBBGGRR] [--icon-as-bitmap] [-o OUT.vxp]\n"
                         "                        import a PNG, BMP, ICO, CUR, GIF or JPEG file into Picture,\n"
                         "                        PictureBackground or MouseIcon, or clear one, and save", CommandPicture },
    Command { "about", "about                 open the control's About box and print it", CommandAbout },
    Command { "png-info", "png-info FILE.png      decode a PNG file and list every LoadPNG property", CommandPngInfo },
    Command { "png2bmp", "png2bmp FILE.png OUT.bmp [--alpha] [--trans] [--bkgnd 0xBBGGRR]\n"
                         "                        decode a PNG file and write the bitmap exactly as built", CommandPng2Bmp },
};

int Usage()
{
    std::cerr << "usage: vexpanel COMMAND [ARGUMENTS]    (vexpanel --version: the version)\n";
    for (const Command& command : kCommands)
        std::cerr << "  vexpanel " << command.synopsis << "\n";
    return 2;
}

} // namespace

int UsageError(std::string_view command, std::string_view message)
{
    std::cerr << "vexpanel " << command << ": " << message << "\n";
    return 2;
}

} // namespace vex::cli

int main(int argc, char** argv)
{
    using namespace vex::cli;
    std::vector<std::string_view> arguments(argv + 1, argv + argc);
    if (arguments.empty())
        return Usage();
    if (arguments[0] == "--version") {
        std::cout << "vexpanel " << vex::pages::TheAboutBox().version << "\n";
        return 0;
    }
    for (const Command& command : kCommands) {
        if (command.name != arguments[0])
            continue;
        try {
            return command.run(Arguments(arguments).subspan(1));
        } catch (const vex::RuntimeError& error) {
            std::cerr << "vexpanel " << command.name << ": error " << error.number() << ": " << error.description() << "\n";
            return 2;
        }
    }
    std::cerr << "vexpanel: unknown command '" << arguments[0] << "'\n";
    return Usage();
}
