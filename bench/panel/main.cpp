// bench-panel: the time of one DrawControl(True) on a 1920x1080 headless surface for each
// appearance, each with a caption, as a ratio to filling the same surface once with one colour
// (measured in the same run). The best of many runs is taken for both, so the ratio compares
// work, not scheduling noise.

#include <algorithm>
#include <cstdlib>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "headless/headless_surface.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"

namespace {

using namespace vex;
using control::VexPanel;

constexpr int32_t kWidth = 1920;
constexpr int32_t kHeight = 1080;

double BestMilliseconds(const std::function<void()>& work, int runs)
{
    double best = 1e30;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const auto end = std::chrono::steady_clock::now();
        best = std::min(best, std::chrono::duration<double, std::milli>(end - start).count());
    }
    return best;
}

struct Case {
    const char* name;
    std::function<void(VexPanel&)> configure;
};

} // namespace

int main(int argc, char** argv)
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 40;
    control::HeadlessHost host;
    control::HeadlessSurface surface({ kWidth, kHeight });
    VexPanel panel(host, surface);
    panel.InitProperties();
    panel.setCaption("VexPanel painting benchmark");

    const std::vector<Case> cases = {
        { "Windows, gradient top to bottom", [](VexPanel& p) {
             p.setAppearance(control::TypeAppearance::Windows);
             p.setWinGradientDirection(control::TypeWinGradientDirection::pTopToButtomDirection);
         } },
        { "Windows, gradient from the vertical centre", [](VexPanel& p) {
             p.setAppearance(control::TypeAppearance::Windows);
             p.setWinGradientDirection(control::TypeWinGradientDirection::pVerticalCenterDirection);
         } },
        { "3D, GB rings (width 3, offset 4)", [](VexPanel& p) {
             p.setAppearance(control::TypeAppearance::Window3D);
             p.setPanel3DBorderStyle(control::TypePanel3DStyle::GBLowered3D);
             p.setPanel3DBorderWidth(3);
             p.setPanel3DBorderOffset(4);
         } },
        { "Custom, linear gradient", [](VexPanel& p) {
             p.setAppearance(control::TypeAppearance::Custom);
             p.setCustomGradientDirection(control::TypeCustomGradientDirection::TopToButtom);
         } },
        { "Custom, linear gradient left to right", [](VexPanel& p) {
             p.setAppearance(control::TypeAppearance::Custom);
             p.setCustomGradientDirection(control::TypeCustomGradientDirection::LeftToRight);
         } },
        { "Custom, rectangular gradient", [](VexPanel& p) {
             p.setAppearance(control::TypeAppearance::Custom);
             p.setCustomGradientDirection(control::TypeCustomGradientDirection::RetangleCenterToBorder);
         } },
    };

    platform::DeviceContext& dc = surface.Dc();
    auto fill = [&] { dc.FillRect({ 0, 0, kWidth, kHeight }, platform::Brush::Solid(Rgb(18, 52, 86))); };
    fill();
    const double fillTime = BestMilliseconds(fill, runs);

    std::printf("Painting: one DrawControl(True) at %dx%d, best of %d runs\n\n", kWidth, kHeight, runs);
    std::printf("| Appearance | ms | x one fill |\n|---|---:|---:|\n");
    std::printf("| one FillRect of the surface | %.3f | 1.00 |\n", fillTime);
    for (const Case& c : cases) {
        c.configure(panel);
        panel.DrawControl(true);
        const double time = BestMilliseconds([&] { panel.DrawControl(true); }, runs);
        std::printf("| %s | %.3f | %.2f |\n", c.name, time, time / fillTime);
    }
    return 0;
}
