// Writes every case of a battery result file as a PNG, to look at what one side drew:
//     battery-to-png RESULTS DIRECTORY [SCALE]
// SCALE enlarges each pixel to a SCALE x SCALE square, to see single pixels.

#include <cstdio>
#include <cstdlib>

#include "battery_file.h"
#include "images.h"

int main(int argc, char** argv)
{
    if (argc != 3 && argc != 4) {
        std::fprintf(stderr, "usage: battery-to-png RESULTS DIRECTORY [SCALE]\n");
        return 2;
    }
    std::string error;
    auto results = vex::drawtest::ReadResults(argv[1], error);
    if (!error.empty()) {
        std::fprintf(stderr, "battery-to-png: %s\n", error.c_str());
        return 1;
    }
    for (const auto& [name, result] : results) {
        std::string path = std::string(argv[2]) + "/" + name + ".png";
        int scale = argc == 4 ? std::atoi(argv[3]) : 1;
        if (!vex::drawtest::WritePng(path, result.pixels, scale)) {
            std::fprintf(stderr, "battery-to-png: cannot write %s\n", path.c_str());
            return 1;
        }
    }
    std::printf("%zu images written to %s\n", results.size(), argv[2]);
    return 0;
}
