// vexpanel png-info FILE.png: decodes the file and lists every LoadPNG property, one
// "Name = value" a line, then "Bits = <bits per pixel of the bitmap built>". Text and zText show
// NUL as \0 (and a backslash, newline, carriage return and tab as \\, \n, \r, \t, so that each
// property stays on one line). Exit status 2 when no picture was produced.

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "commands.h"
#include "png/load_png.h"

namespace vex::cli {

namespace {

// Writes the text escaped, a piece at a time: a zText of tens of megabytes is not copied.
void WriteEscaped(std::ostream& out, const std::string& text)
{
    std::string piece;
    for (char c : text) {
        switch (c) {
        case '\0': piece += "\\0"; break;
        case '\\': piece += "\\\\"; break;
        case '\n': piece += "\\n"; break;
        case '\r': piece += "\\r"; break;
        case '\t': piece += "\\t"; break;
        default: piece += c;
        }
        if (piece.size() >= 4096) {
            out << piece;
            piece.clear();
        }
    }
    out << piece;
}

const char* Boolean(bool value)
{
    return value ? "True" : "False";
}

std::string Shortest(double value)
{
    char buffer[32];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

} // namespace

int CommandPngInfo(Arguments arguments)
{
    if (arguments.size() != 1)
        return UsageError("png-info", "expects one argument: FILE.png");
    png::LoadPNG decoder;
    auto box = std::make_shared<png::PictureBox>();
    decoder.setPicBox(box);
    decoder.setMessageBox([](const std::string& text) { std::cerr << "vexpanel png-info: message: " << text << "\n"; });
    // The decoder opens its file for appending, which would leave an empty file behind a
    // mistyped name: a missing file is reported here instead.
    if (std::error_code error; !std::filesystem::is_regular_file(std::string(arguments[0]), error)) {
        std::cerr << "vexpanel png-info: " << arguments[0] << ": no such file\n";
        return 2;
    }
    decoder.OpenPNG(std::string(arguments[0]));

    char colour[16];
    std::snprintf(colour, sizeof colour, "0x%06X", static_cast<unsigned>(decoder.BkgdColor()));
    std::cout << "ErrorNumber = " << decoder.ErrorNumber() << "\n"
              << "Width = " << decoder.Width() << "\n"
              << "Height = " << decoder.Height() << "\n"
              << "Bitdepht = " << decoder.Bitdepht() << "\n"
              << "ColorType = " << decoder.ColorType() << "\n"
              << "Compression = " << decoder.Compression() << "\n"
              << "Filter = " << decoder.Filter() << "\n"
              << "Interlacing = " << decoder.Interlacing() << "\n"
              << "HaveAlpha = " << Boolean(decoder.HaveAlpha()) << "\n"
              << "HaveTransparence = " << Boolean(decoder.HaveTransparence()) << "\n"
              << "HasBKGDChunk = " << Boolean(decoder.HasBKGDChunk()) << "\n"
              << "BkgdColor = " << colour << "\n"
              << "gama = " << Shortest(decoder.gama()) << "\n"
              << "Text = ";
    WriteEscaped(std::cout, decoder.Text());
    std::cout << "\nzText = ";
    WriteEscaped(std::cout, decoder.zText());
    std::cout << "\nModiTime = " << decoder.ModiTime() << "\n"
              << "Bits = " << decoder.OutputBitsPerPixel() << "\n";
    if (!box->Picture) {
        std::cerr << "vexpanel png-info: no picture was produced (ErrorNumber " << decoder.ErrorNumber() << ")\n";
        return 2;
    }
    return 0;
}

} // namespace vex::cli
