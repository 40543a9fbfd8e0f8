// vexpanel png2bmp FILE.png OUT.bmp [--alpha] [--trans] [--bkgnd 0xBBGGRR]: decodes the file
// with the given output settings and writes the bitmap exactly as built (bit count, palette,
// row order). --bkgnd composes onto that colour instead of the file's bKGD colour. Exit status
// 2 when no picture was produced.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "bmp_writer.h"
#include "commands.h"
#include "png/load_png.h"

namespace vex::cli {

namespace {

bool ParseColour(std::string_view text, uint32_t& colour)
{
    std::string digits(text);
    char* end = nullptr;
    unsigned long value = std::strtoul(digits.c_str(), &end, 0);
    if (digits.empty() || *end != '\0' || value > 0xFFFFFFul)
        return false;
    colour = static_cast<uint32_t>(value);
    return true;
}

} // namespace

int CommandPng2Bmp(Arguments arguments)
{
    constexpr std::string_view kName = "png2bmp";
    std::vector<std::string_view> files;
    png::LoadPNG decoder;
    for (size_t i = 0; i < arguments.size(); ++i) {
        std::string_view argument = arguments[i];
        if (argument == "--alpha") {
            decoder.setSetAlpha(true);
        } else if (argument == "--trans") {
            decoder.setSetTrans(true);
        } else if (argument == "--bkgnd") {
            uint32_t colour = 0;
            if (i + 1 >= arguments.size() || !ParseColour(arguments[i + 1], colour))
                return UsageError(kName, "--bkgnd expects a colour 0xBBGGRR");
            decoder.SetOwnBkgndColor(true, colour);
            ++i;
        } else if (argument.starts_with("--")) {
            return UsageError(kName, "unknown option " + std::string(argument));
        } else {
            files.push_back(argument);
        }
    }
    if (files.size() != 2)
        return UsageError(kName, "expects FILE.png OUT.bmp [--alpha] [--trans] [--bkgnd 0xBBGGRR]");

    auto box = std::make_shared<png::PictureBox>();
    decoder.setPicBox(box);
    decoder.setMessageBox([](const std::string& text) { std::cerr << "vexpanel png2bmp: message: " << text << "\n"; });
    // The decoder opens its file for appending, which would leave an empty file behind a
    // mistyped name: a missing file is reported here instead.
    if (std::error_code error; !std::filesystem::is_regular_file(std::string(files[0]), error)) {
        std::cerr << "vexpanel png2bmp: " << files[0] << ": no such file\n";
        return 2;
    }
    decoder.OpenPNG(std::string(files[0]));
    if (!box->Picture) {
        std::cerr << "vexpanel png2bmp: no picture was produced (ErrorNumber " << decoder.ErrorNumber() << ")\n";
        return 2;
    }
    const platform::Dib& dib = box->Picture->bitmap();
    if (!WriteBmpFile(std::string(files[1]), dib)) {
        std::cerr << "vexpanel png2bmp: cannot write " << files[1] << "\n";
        return 2;
    }
    std::cout << files[1] << ": " << dib.width() << "x" << dib.height() << ", " << dib.bitCount() << " bits\n";
    return 0;
}

} // namespace vex::cli
