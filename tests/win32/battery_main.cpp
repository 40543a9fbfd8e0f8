// Runs the drawing battery on this build's backend and writes every case's pixels and facts:
//     drawing-battery [--window] OUTPUT [NAME-SUBSTRING]
// --window (Windows only) draws each case on a window's DC instead of a memory DC.
// The Windows build draws through GDI; the comparer runs the native side in-process.

#include <cstdio>
#include <string>

#include "battery.h"
#include "battery_file.h"

#ifdef _WIN32
#include "platform/win32/surface.h"
static constexpr vex::drawtest::SurfaceFactory kMakeSurface = vex::platform::win32::CreateSurface;
#else
#include "platform/soft/soft_device_context.h"
static std::unique_ptr<vex::platform::DeviceContext> kMakeSurface(int32_t width, int32_t height)
{
    return vex::platform::soft::CreateSurface(width, height);
}
#endif

int main(int argc, char** argv)
{
    vex::drawtest::SurfaceFactory makeSurface = kMakeSurface;
    if (argc > 1 && std::string(argv[1]) == "--window") {
#ifdef _WIN32
        makeSurface = vex::platform::win32::CreateWindowSurface;
        ++argv;
        --argc;
#else
        std::fprintf(stderr, "drawing-battery: --window is for the Windows build\n");
        return 2;
#endif
    }
    if (argc < 2) {
        std::fprintf(stderr, "usage: drawing-battery [--window] OUTPUT [NAME-SUBSTRING]\n");
        return 2;
    }
    std::string filter = argc > 2 ? argv[2] : "";
    std::vector<vex::drawtest::CaseResult> results;
    for (const auto& drawingCase : vex::drawtest::Battery()) {
        if (drawingCase.name.find(filter) == std::string::npos)
            continue;
        results.push_back(vex::drawtest::RunCase(drawingCase, makeSurface));
    }
    if (!vex::drawtest::WriteResults(argv[1], results)) {
        std::fprintf(stderr, "drawing-battery: cannot write %s\n", argv[1]);
        return 1;
    }
    std::printf("drawing-battery: %zu cases written to %s\n", results.size(), argv[1]);
    return 0;
}
