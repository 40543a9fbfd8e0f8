#pragma once
// The drawing benchmark's operations, written once for every drawing layer: bench-drawing runs
// them on the software layer, bench-drawing-gdi on real GDI under Wine, and scripts/run-benchmarks
// joins the two columns by op name. Each op prints one "<op> <ns per op>" line.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>

#include "platform/device_context.h"

namespace vex::bench {

inline constexpr int32_t kWidth = 1920;
inline constexpr int32_t kHeight = 1080;

// Runs `op` until at least 0.2 s have passed (and at least 3 times); returns ns per call.
inline double Measure(const std::function<void()>& op)
{
    using Clock = std::chrono::steady_clock;
    op(); // warm-up: first-use costs (fonts, glyphs, allocations) are not the op
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

inline void Report(const char* op, double nanoseconds)
{
    std::printf("%-28s %14.0f\n", op, nanoseconds);
    std::fflush(stdout);
}

inline void ReportHeader() { std::printf("%-28s %14s\n", "op", "ns/op"); }

// The ops on a kWidth x kHeight surface.
inline void RunDrawingOps(platform::DeviceContext& dc)
{
    using platform::Brush;
    using platform::Pen;
    using platform::Rect;

    // A source for the blits at half size, so that the stretches really scale.
    auto source = dc.CreateCompatibleDC();
    auto bitmap = dc.CreateCompatibleBitmap(kWidth / 2, kHeight / 2);
    source->SelectBitmap(bitmap);
    source->FillRect({ 0, 0, kWidth / 2, kHeight / 2 }, Brush::Solid(Rgb(30, 60, 200)));
    for (int32_t y = 0; y < kHeight / 2; y += 8)
        source->FillRect({ 0, y, kWidth / 2, y + 3 }, Brush::Solid(Rgb(255, 0, 255)));

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
    dc.SetStretchBltMode(platform::kStretchHalftone);
    Report("stretchblt_halftone_1080p", Measure([&] { dc.StretchBlt(0, 0, kWidth, kHeight, *source, 0, 0, kWidth / 2, kHeight / 2); }));
    Report("transparentblt_1080p", Measure([&] {
        dc.TransparentBlt(0, 0, kWidth, kHeight, *source, 0, 0, kWidth / 2, kHeight / 2, Rgb(255, 0, 255));
    }));
    dc.SetBkMode(platform::kBkTransparent);
    Report("drawtext_caption", Measure([&] {
        for (int i = 0; i < 1000; ++i) {
            Rect rect { 0, (i % 60) * 16, 300, (i % 60) * 16 + 16 };
            dc.DrawText("Caption", rect, platform::dt::SingleLine | platform::dt::Center | platform::dt::VCenter);
        }
    }) / 1000);
}

} // namespace vex::bench
