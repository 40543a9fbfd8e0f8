// This build's picture import of each file given (GIF and JPEG go through the system's picture
// loader here), its pixels written to DIR/<file name>.bmp as a 32-bit top-down BMP for the native
// comparer:  picture-import DIR FILE...
#include <cstdint>
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
            const int32_t width = dib.width(), height = dib.height();
            const uint32_t size = 4u * static_cast<uint32_t>(width) * static_cast<uint32_t>(height);
            // BITMAPFILEHEADER then BITMAPINFOHEADER, little-endian, height negative: top-down.
            uint8_t header[54] {};
            auto put = [&](int at, uint32_t value, int bytes) {
                for (int b = 0; b < bytes; ++b)
                    header[at + b] = static_cast<uint8_t>(value >> (8 * b));
            };
            put(0, 0x4D42, 2);
            put(2, 54 + size, 4);
            put(10, 54, 4);
            put(14, 40, 4);
            put(18, static_cast<uint32_t>(width), 4);
            put(22, static_cast<uint32_t>(-height), 4);
            put(26, 1, 2);
            put(28, 32, 2);
            std::ofstream out(std::string(argv[1]) + "/" + file.substr(file.find_last_of("/\\") + 1) + ".bmp", std::ios::binary);
            out.write(reinterpret_cast<const char*>(header), sizeof header);
            for (int32_t y = 0; y < height; ++y)
                for (int32_t x = 0; x < width; ++x) {
                    const uint32_t colour = dib.pixel(x, y); // 0x00BBGGRR
                    const char bgra[4] = { char(colour >> 16), char(colour >> 8), char(colour), 0 };
                    out.write(bgra, 4);
                }
            if (!out)
                throw std::runtime_error("cannot write its pixels");
        } catch (const std::exception& error) {
            std::printf("FAIL %s: %s\n", file.c_str(), error.what());
            ++failures;
        }
    }
    return failures ? 1 : 0;
}
