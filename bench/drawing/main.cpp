// The software drawing layer's throughput on a 1920 x 1080 surface, printed one
// "<op> <ns per op>" line each. `memory_bandwidth_fill` is the physical reference: a bare
// std::fill_n over the same number of pixels.

#include <algorithm>
#include <vector>

#include "drawing_ops.h"
#include "platform/soft/soft_device_context.h"

int main()
{
    using namespace vex::bench;
    auto surface = vex::platform::soft::CreateSurface(kWidth, kHeight);

    ReportHeader();
    std::vector<uint32_t> raw(static_cast<size_t>(kWidth) * kHeight);
    Report("memory_bandwidth_fill", Measure([&] {
        std::fill_n(raw.data(), raw.size(), 0x00010203u);
        asm volatile("" : : "r"(raw.data()) : "memory"); // keep the stores
    }));
    RunDrawingOps(*surface);
    return 0;
}
