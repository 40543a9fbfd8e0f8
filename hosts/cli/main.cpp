// The vexpanel command: dispatches to one sub-command per file. Whatever a command raises ends
// in one message on standard error, "vexpanel COMMAND: ...", and exit status 2.
#include <array>
#include <filesystem>
#include <new>
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
    Command { "reference", "reference -o DIR [--examples DIR]\n"
                           "                        write the property reference (properties.md and its pictures)", CommandReference },
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
    Command { "set", "set FILE.vxp Key=Value... [-o OUT.vxp]\n"
                     "                        change a saved panel through the control's own sets", CommandSet },
    Command { "png-info", "png-info FILE.png      decode a PNG file and list every LoadPNG property", CommandPngInfo },
    Command { "png2bmp", "png2bmp FILE.png OUT.bmp [--alpha] [--trans] [--bkgnd 0xBBGGRR]\n"
                         "                        decode a PNG file and write the bitmap exactly as built", CommandPng2Bmp },
};

void Usage(std::ostream& out)
{
    out << "usage: vexpanel COMMAND [ARGUMENTS]\n";
    for (const Command& command : kCommands)
        out << "  vexpanel " << command.synopsis << "\n";
    out << "  vexpanel --help | --version\n"
           "  vexpanel COMMAND --help\n"
           "Exit status: 0 when the command did its work, 2 when it did not (wrong usage, a file that\n"
           "cannot be read or written, a run-time error); the reason is on standard error.\n";
}

bool IsHelp(std::string_view argument)
{
    return argument == "--help" || argument == "-h" || argument == "help";
}

// Runs a command: whatever it raises ends here, as one message and exit status 2.
int Run(const Command& command, Arguments arguments)
{
    const std::string prefix = "vexpanel " + std::string(command.name) + ": ";
    try {
        return command.run(arguments);
    } catch (const vex::RuntimeError& error) {
        std::cerr << prefix << "error " << error.number() << ": " << error.description() << "\n";
    } catch (const std::filesystem::filesystem_error& error) {
        std::cerr << prefix << error.path1().string() << ": " << error.code().message() << "\n";
    } catch (const std::bad_alloc&) {
        std::cerr << prefix << "out of memory\n";
    } catch (const std::exception& error) {
        std::cerr << prefix << error.what() << "\n";
    } catch (...) {
        std::cerr << prefix << "failed for an unknown reason\n";
    }
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
    if (arguments.empty()) {
        Usage(std::cerr);
        return 2;
    }
    if (arguments[0] == "--version") {
        std::cout << "vexpanel " << vex::pages::TheAboutBox().version << "\n";
        return 0;
    }
    if (IsHelp(arguments[0]) && arguments.size() == 1) {
        Usage(std::cout);
        return 0;
    }
    // "help COMMAND" is "COMMAND --help".
    const bool help = IsHelp(arguments[0]) || (arguments.size() > 1 && (arguments[1] == "--help" || arguments[1] == "-h"));
    const std::string_view name = IsHelp(arguments[0]) ? arguments[1] : arguments[0];
    for (const Command& command : kCommands) {
        if (command.name != name)
            continue;
        if (help) {
            std::cout << "usage: vexpanel " << command.synopsis << "\n";
            return 0;
        }
        return Run(command, Arguments(arguments).subspan(1));
    }
    std::cerr << "vexpanel: unknown command '" << name << "'\n";
    Usage(std::cerr);
    return 2;
}
