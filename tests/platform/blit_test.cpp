// What the drawing battery cannot show against GDI: a copy within one context, and the stretch
// walk's closed form against its error-term loop. The blits themselves are checked pixel for pixel
// against GDI by the battery (tests/win32/cases/blits.cpp).

#include <gtest/gtest.h>

#include "platform/soft/bresenham.h"
#include "platform/soft/raster.h"
#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

// A memory context whose pixel (x, y) has red x and green y: every pixel tells where it came from.
std::unique_ptr<DeviceContext> Gradient(DeviceContext& compatible, int32_t width, int32_t height)
{
    auto memory = MemoryWith(compatible, width, height, 0);
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            memory->FillRect(Rect { x, y, x + 1, y + 1 }, Brush::Solid(Rgb(x, y, 0)));
    return memory;
}

TEST(BitBlt, OverlappingCopyWithinOneContext)
{
    auto dc = Gradient(*WhiteSurface(1, 1), 8, 8);
    dc->BitBlt(1, 1, 6, 6, *dc, 0, 0);
    EXPECT_EQ(dc->GetPixel(6, 6), Rgb(5, 5, 0));
    EXPECT_EQ(dc->GetPixel(1, 1), Rgb(0, 0, 0));
    dc->BitBlt(0, 0, 6, 6, *dc, 2, 2);
    EXPECT_EQ(dc->GetPixel(0, 0), Rgb(1, 1, 0));
}

TEST(StretchBlt, ScaleWalkMatchesTheIncrementalBresenhamLoop)
{
    // The closed form used to start clipped walks must agree with the error-term loop.
    for (int64_t major = 1; major <= 40; ++major)
        for (int64_t minor = 1; minor <= major; ++minor) {
            int64_t err = 3 * minor - 2 * major, steps = 0;
            for (int64_t k = 0; k < major; ++k) {
                ASSERT_EQ(ScaleMinorSteps(k, major, minor), steps) << major << "/" << minor << " k=" << k;
                if (err > 0) {
                    ++steps;
                    err += 2 * minor - 2 * major;
                } else {
                    err += 2 * minor;
                }
            }
        }
}

} // namespace
} // namespace vex::platform::soft::testing
