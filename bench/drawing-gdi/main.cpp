// The drawing benchmark's operations through real GDI (run under Wine by `make bench`), printed
// one "<op> <ns per op>" line each so scripts/run-benchmarks can join them with bench-drawing's
// soft numbers by op name.

#include "drawing_ops.h"
#include "platform/win32/surface.h"

int main()
{
    using namespace vex::bench;
    auto surface = vex::platform::win32::CreateSurface(kWidth, kHeight);
    ReportHeader();
    RunDrawingOps(*surface);
    return 0;
}
