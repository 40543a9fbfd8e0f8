// The headless render behind `vexpanel render` and `gallery`: settings given as .vxp lines, run
// mode with the parent activated (capture behind a transparent panel, animation ticks).

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <cstdlib>
#include <set>

#include "base/runtime_error.h"
#include "panel_file.h"
#include "render_job.h"

namespace vex::cli {
namespace {

const std::string kExamples = VEX_SOURCE_DIR "/examples";

std::vector<platform::Dib> Render(std::vector<std::string_view> arguments)
{
    RenderJob job;
    std::string problem = ParseRenderJob(arguments, job, kExamples);
    EXPECT_EQ(problem, "");
    return RunRenderJob(job);
}

TEST(RenderJob, OptionsAndTheirMistakes)
{
    RenderJob job;
    std::vector<std::string_view> good = { "a.vxp", "-o", "out.png", "--size", "30x20", "--set", "Caption=\"x = y\"",
        "--frames", "3", "--backdrop", "form.png" };
    EXPECT_EQ(ParseRenderJob(good, job, "/ex"), "");
    EXPECT_EQ(job.file, "/ex/a.vxp");
    EXPECT_EQ(job.backdrop, "/ex/form.png");
    EXPECT_EQ(job.output, "out.png");
    EXPECT_EQ(job.size, (platform::Size { 30, 20 }));
    EXPECT_EQ(job.settings, (std::vector<std::string> { "Caption=\"x = y\"" }));
    EXPECT_EQ(job.frames, 3);
    for (std::vector<std::string_view> bad : { std::vector<std::string_view> { "a.vxp", "--size", "30" },
             { "a.vxp", "--size", "0x5" }, { "a.vxp", "--set", "Caption" }, { "a.vxp", "--frames", "-1" },
             { "a.vxp", "b.vxp" }, { "-o", "x.png" }, { "a.vxp", "--frames" } }) {
        RenderJob other;
        EXPECT_NE(ParseRenderJob(bad, other), "") << bad.size();
    }
}

TEST(RenderJob, SettingsOverrideTheFile)
{
    // Without its caption, which would cover the middle of so small a panel.
    std::vector<platform::Dib> plain = Render({ "custom-linear.vxp", "--size", "40x20", "--set", "Caption=\"\"" });
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(plain[0].width(), 40);
    EXPECT_NE(plain[0].pixel(20, 3), plain[0].pixel(20, 16)); // a gradient from top to bottom

    // Appearance 3 is no appearance: the surface keeps its clear colour (button face).
    std::vector<platform::Dib> none = Render({ "custom-linear.vxp", "--size", "40x20", "--set", "Appearance=3" });
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 40; ++x)
            ASSERT_EQ(none[0].pixel(x, y), none[0].pixel(0, 0)) << x << "," << y;

    std::vector<platform::Dib> reversed
        = Render({ "custom-linear.vxp", "--size", "40x20", "--set", "CustomGradientDirection=1", "--set", "Caption=\"\"" });
    // Row y of one is row 20 - y of the other, give or take the rounding of a half.
    const ColorRef a = reversed[0].pixel(20, 3), b = plain[0].pixel(20, 17);
    for (int shift : { 0, 8, 16 })
        EXPECT_LE(std::abs(int((a >> shift) & 255) - int((b >> shift) & 255)), 1) << shift;
    EXPECT_NE(reversed[0].pixel(20, 3), plain[0].pixel(20, 3));

    // A member's name stands for its value.
    EXPECT_EQ(Render({ "custom-linear.vxp", "--size", "40x20", "--set", "CustomGradientDirection=ButtomToTop", "--set", "Caption=\"\"" })[0].bits(),
        reversed[0].bits());

    // A bad setting names its option; an unknown key is an error.
    auto failure = [](std::vector<std::string_view> arguments) -> std::string {
        RenderJob job;
        EXPECT_EQ(ParseRenderJob(arguments, job, kExamples), "");
        try {
            RunRenderJob(job);
        } catch (const CommandError& error) {
            return error.what();
        }
        return "no error";
    };
    EXPECT_EQ(failure({ "custom-linear.vxp", "--set", "CustomBorderWidth=\"wide\"" }), "--set CustomBorderWidth=\"wide\": error 13: Type mismatch");
    EXPECT_EQ(failure({ "custom-linear.vxp", "--set", "Appearance=70000" }), "--set Appearance=70000: error 6: Overflow");
    EXPECT_EQ(failure({ "custom-linear.vxp", "--set", "Apperance=1" }), "--set Apperance=1: no property is called 'Apperance'");
}

TEST(RenderJob, TransparentPanelShowsTheBackdropBehindIt)
{
    std::vector<platform::Dib> shown = Render({ "transparent.vxp", "--size", "100x40", "--backdrop", "backdrop.png" });
    // The 220x80 backdrop is centred behind the 100x40 panel: panel (50, 20) is form (110, 40).
    // Two pixels inside the borders show the form's stripes, which differ from each other.
    std::set<ColorRef> seen;
    for (int x = 10; x < 90; ++x)
        seen.insert(shown[0].pixel(x, 20));
    EXPECT_GE(seen.size(), 2u);
    EXPECT_TRUE(seen.count(Rgb(255, 214, 140)) || seen.count(Rgb(250, 235, 200)));

    RenderJob job;
    std::vector<std::string_view> missing = { "transparent.vxp", "--backdrop", "no-such.png" };
    ASSERT_EQ(ParseRenderJob(missing, job, kExamples), "");
    EXPECT_THROW(RunRenderJob(job), CommandError);
    EXPECT_FALSE(std::filesystem::exists(kExamples + "/no-such.png"));
}

TEST(RenderJob, PngPictureIsComposedOntoTheBackColour)
{
    std::vector<platform::Dib> shown
        = Render({ "picture-png-alpha.vxp", "--size", "300x100", "--picture", "badge.png" });
    // Raised 3D border of width 2: margin 5; LeftMiddle puts the 40x40 badge at (5, 30).
    const ColorRef back = Rgb(205, 220, 240);
    EXPECT_EQ(shown[0].pixel(5, 30), back);   // a transparent corner of the badge
    EXPECT_EQ(shown[0].pixel(150, 20), back); // the panel's own back colour
    const ColorRef centre = shown[0].pixel(25, 50);
    EXPECT_GT(RedOf(centre), 200u);           // the opaque orange middle
    EXPECT_LT(BlueOf(centre), 120u);
}

TEST(RenderJob, FramesAreAnimationTicks)
{
    std::vector<platform::Dib> frames = Render({ "picture-strip.vxp", "--size", "220x80", "--frames", "6" });
    ASSERT_EQ(frames.size(), 7u);
    // The first tick shows frame 0 again; the next ones differ from it, and the strip repeats.
    EXPECT_EQ(frames[1].bits(), frames[0].bits());
    EXPECT_NE(frames[2].bits(), frames[1].bits());
    EXPECT_NE(frames[3].bits(), frames[2].bits());
}

} // namespace
} // namespace vex::cli
