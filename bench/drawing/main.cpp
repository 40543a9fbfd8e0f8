// The software drawing layer's throughput on a 1920 x 1080 surface, printed one
// "<op> <ns per op>" line each. The ops and their definitions are those of bench-drawing-gdi,
// so the GDI-under-Wine column joins by name; `memory_bandwidth_fill` is the physical
// reference: a bare std::fill_n over the same number of pixels.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "platform/soft/soft_device_context.h"

namespace {

using vex::Rgb;
using vex::platform::Brush;
using vex::platform::DeviceContext;
using vex::platform::Pen;
using vex::platform::Rect;

constexpr int32_t kWidth = 1920;
constexpr int32_t kHeight = 1080;

// Runs `op` until at least 0.2 s have passed (and at least 3 times); returns ns per call.
double Measure(const std::function<void()>& op)
{
    using Clock = std::chrono::steady_clock;
    op(); // warm-up: glyph rendering and first allocations are not the op
    long runs = 0;
    auto start = Clock::now();
    std::chrono::nanoseconds elapsed {};
    do {
        op();
        ++runs;
        elapsed = Clock::now() - start;
    } while (runs < 3 || elapsed < std::chrono::milliseconds(200));
    return static_cast<double>(elapsed.count()) / static_cast<double>(runs);
}

void Report(const char* op, double nanoseconds)
{
    std::printf("%-28s %14.0f\n", op, nanoseconds);
    std::fflush(stdout);
}

} // namespace

int main()
{
    auto surface = vex::platform::soft::CreateSurface(kWidth, kHeight);
    DeviceContext& dc = *surface;

    auto source = dc.CreateCompatibleDC();
    auto bitmap = dc.CreateCompatibleBitmap(kWidth / 2, kHeight / 2);
    source->SelectBitmap(bitmap);
    source->FillRect({ 0, 0, kWidth / 2, kHeight / 2 }, Brush::Solid(Rgb(30, 60, 200)));
    for (int32_t y = 0; y < kHeight / 2; y += 8)
        source->FillRect({ 0, y, kWidth / 2, y + 3 }, Brush::Solid(Rgb(255, 0, 255)));

    std::printf("%-28s %14s\n", "op", "ns/op");
    std::vector<uint32_t> raw(static_cast<size_t>(kWidth) * kHeight);
    Report("memory_bandwidth_fill", Measure([&] {
        std::fill_n(raw.data(), raw.size(), 0x00010203u);
        asm volatile("" : : "r"(raw.data()) : "memory"); // keep the stores
    }));
    Report("fill_full_surface", Measure([&] { dc.FillRect({ 0, 0, kWidth, kHeight }, Brush::Solid(Rgb(1, 2, 3))); }));
    Report("line_runs_full_width", Measure([&] {
        // One pen per line, as the panel's line primitive does.
        for (int32_t y = 0; y < kHeight; ++y) {
            dc.SelectPen(Pen::Solid(Rgb(static_cast<uint32_t>(y), 0, 0)));
            dc.MoveToEx(0, y);
            dc.LineTo(kWidth, y);
        }
    }) / kHeight);
    Report("framerect_rings", Measure([&] {
        for (int32_t ring = 0; ring < kHeight / 2; ++ring)
            dc.FrameRect({ ring, ring, kWidth - ring, kHeight - ring }, Brush::Solid(Rgb(0, static_cast<uint32_t>(ring), 0)));
    }) / (kHeight / 2));
    Report("stretchblt_1080p", Measure([&] { dc.StretchBlt(0, 0, kWidth, kHeight, *source, 0, 0, kWidth / 2, kHeight / 2); }));
    dc.SetStretchBltMode(vex::platform::kStretchHalftone);
    Report("stretchblt_halftone_1080p", Measure([&] { dc.StretchBlt(0, 0, kWidth, kHeight, *source, 0, 0, kWidth / 2, kHeight / 2); }));
    Report("transparentblt_1080p", Measure([&] {
        dc.TransparentBlt(0, 0, kWidth, kHeight, *source, 0, 0, kWidth / 2, kHeight / 2, Rgb(255, 0, 255));
    }));
    dc.SetBkMode(vex::platform::kBkTransparent);
    Report("drawtext_caption", Measure([&] {
        for (int i = 0; i < 1000; ++i) {
            Rect rect { 0, (i % 60) * 16, 300, (i % 60) * 16 + 16 };
            dc.DrawText("Caption", rect, vex::platform::dt::SingleLine | vex::platform::dt::Center | vex::platform::dt::VCenter);
        }
    }) / 1000);
    return 0;
}
