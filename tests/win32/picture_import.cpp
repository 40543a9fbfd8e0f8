// This build's picture import of each file given (GIF and JPEG go through the system's picture
// loader here), its 32-bit pixels written to DIR/<file name>.bmp for the native comparer:
//     picture-import DIR FILE...
#include <windows.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "pages/picture_import.h"

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: picture-import DIR FILE...\n");
        return 2;
    }
    std::filesystem::create_directories(argv[1]);
    int failures = 0;
    for (int i = 2; i < argc; ++i) {
        const std::string file = argv[i];
        try {
            const vex::platform::PictureRef picture = vex::pages::LoadPictureFile(file);
            const vex::platform::Dib& dib = picture->bitmap();
            if (dib.bitCount() != 32)
                throw std::runtime_error("not a 32-bit picture");
            const BITMAPINFOHEADER info { sizeof info, dib.width(), -dib.height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0 };
            const DWORD offset = sizeof(BITMAPFILEHEADER) + sizeof info;
            const BITMAPFILEHEADER header { 0x4D42, static_cast<DWORD>(offset + dib.bits().size()), 0, 0, offset };
            std::ofstream out(std::string(argv[1]) + "/" + file.substr(file.find_last_of("/\\") + 1) + ".bmp", std::ios::binary);
            out.write(reinterpret_cast<const char*>(&header), sizeof header);
            out.write(reinterpret_cast<const char*>(&info), sizeof info);
            out.write(reinterpret_cast<const char*>(dib.bits().data()), static_cast<std::streamsize>(dib.bits().size()));
            if (!out)
                throw std::runtime_error("cannot write its pixels");
        } catch (const std::exception& error) {
            std::printf("FAIL %s: %s\n", file.c_str(), error.what());
            ++failures;
        }
    }
    return failures ? 1 : 0;
}
