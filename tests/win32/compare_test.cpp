// The differential test: every battery case drawn here through platform/soft must give the
// pixels and facts that platform/win32 gave under Wine (read from the file the Windows program
// wrote). On a difference the three images (soft, gdi, diff) are written for a look
// (VEX_BATTERY_IMAGES=1 writes them for accepted differences too, VEX_BATTERY_SCALE=N enlarges them).

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "battery.h"
#include "battery_file.h"
#include "images.h"
#include "platform/soft/soft_device_context.h"

namespace vex::drawtest {
namespace {

const std::map<std::string, CaseResult>& GdiResults(std::string& error)
{
    static std::string readError;
    static const std::map<std::string, CaseResult> results = ReadResults(VEX_GDI_BATTERY_FILE, readError);
    error = readError;
    return results;
}

std::string Hex(ColorRef color)
{
    char text[16];
    std::snprintf(text, sizeof text, "%02X%02X%02X", RedOf(color), GreenOf(color), BlueOf(color));
    return std::string("#") + text;
}

int ChannelDifference(ColorRef a, ColorRef b)
{
    auto channel = [](uint32_t x, uint32_t y) { return x > y ? int(x - y) : int(y - x); };
    return std::max({ channel(RedOf(a), RedOf(b)), channel(GreenOf(a), GreenOf(b)), channel(BlueOf(a), BlueOf(b)) });
}

void WriteImages(const std::string& name, const platform::Dib& soft, const platform::Dib& gdi)
{
    std::filesystem::create_directories(VEX_DIFF_DIR);
    std::string base = std::string(VEX_DIFF_DIR) + "/" + name;
    const char* scaleSetting = std::getenv("VEX_BATTERY_SCALE");
    int scale = scaleSetting ? std::max(1, std::atoi(scaleSetting)) : 1;
    WritePng(base + ".soft.png", soft, scale);
    WritePng(base + ".gdi.png", gdi, scale);
    WritePng(base + ".diff.png", DiffImage(soft, gdi), scale);
}

std::unique_ptr<DeviceContext> MakeSoftSurface(int32_t width, int32_t height)
{
    return platform::soft::CreateSurface(width, height);
}

class SoftMatchesGdi : public testing::TestWithParam<std::string> { };

TEST_P(SoftMatchesGdi, PixelsAndFacts)
{
    const DrawingCase* drawingCase = FindCase(GetParam());
    ASSERT_NE(drawingCase, nullptr);
    std::string error;
    const auto& gdiResults = GdiResults(error);
    ASSERT_TRUE(error.empty()) << error;
    auto found = gdiResults.find(drawingCase->name);
    ASSERT_NE(found, gdiResults.end()) << "the Windows program wrote no result for " << drawingCase->name;
    const CaseResult& gdi = found->second;
    CaseResult soft = RunCase(*drawingCase, MakeSoftSurface);

    EXPECT_EQ(soft.facts, gdi.facts) << "facts differ (left soft, right GDI)";

    ASSERT_EQ(soft.pixels.width(), gdi.pixels.width());
    ASSERT_EQ(soft.pixels.height(), gdi.pixels.height());
    int differing = 0;
    int worst = 0;
    std::ostringstream first;
    for (int32_t y = 0; y < soft.pixels.height(); ++y) {
        for (int32_t x = 0; x < soft.pixels.width(); ++x) {
            ColorRef a = soft.pixels.pixel(x, y);
            ColorRef b = gdi.pixels.pixel(x, y);
            if (a == b)
                continue;
            if (differing++ == 0)
                first << "first difference at (" << x << "," << y << "): soft " << Hex(a) << ", GDI " << Hex(b);
            worst = std::max(worst, ChannelDifference(a, b));
        }
    }
    bool accepted = worst <= drawingCase->tolerance;
    if (differing > 0 && (!accepted || std::getenv("VEX_BATTERY_IMAGES")))
        WriteImages(drawingCase->name, soft.pixels, gdi.pixels);
    EXPECT_TRUE(accepted) << differing << " pixels differ, by up to " << worst << " per channel (tolerance "
                          << drawingCase->tolerance << "); " << first.str() << "; images in " << VEX_DIFF_DIR << "/"
                          << drawingCase->name << ".{soft,gdi,diff}.png";
}

std::vector<std::string> CaseNames()
{
    std::vector<std::string> names;
    for (const auto& drawingCase : Battery())
        names.push_back(drawingCase.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Battery, SoftMatchesGdi, testing::ValuesIn(CaseNames()),
    [](const testing::TestParamInfo<std::string>& info) { return info.param; });

// A case the Windows program did not run, or a stale result file, shows here.
TEST(GdiBatteryFile, HoldsExactlyTheBattery)
{
    std::string error;
    const auto& gdiResults = GdiResults(error);
    ASSERT_TRUE(error.empty()) << error;
    std::vector<std::string> inFile;
    for (const auto& entry : gdiResults)
        inFile.push_back(entry.first);
    EXPECT_EQ(inFile, CaseNames());
}

// GdiContext over a window's DC (what a container gives the control) draws every case as it
// does over a memory DC with a DIB section, except the cases about the fourth byte of 32-bit
// pixels: onto a window (or a bitmap compatible with it) TransparentBlt keys on the colour
// alone, so those must come out differently there.
TEST(GdiBatteryFile, WindowSurfacesDrawAsMemorySurfaces)
{
    std::string error;
    const auto& memory = GdiResults(error);
    ASSERT_TRUE(error.empty()) << error;
    const auto window = ReadResults(VEX_GDI_WINDOW_BATTERY_FILE, error);
    ASSERT_TRUE(error.empty()) << error;
    ASSERT_EQ(window.size(), memory.size());
    for (const auto& [name, onMemory] : memory) {
        auto found = window.find(name);
        ASSERT_NE(found, window.end()) << name;
        const CaseResult& onWindow = found->second;
        EXPECT_EQ(onWindow.facts, onMemory.facts) << name;
        if (name.starts_with("alpha_byte_"))
            EXPECT_FALSE(onWindow.pixels.bits() == onMemory.pixels.bits()) << name << ": the window keyed the fourth byte too";
        else
            EXPECT_TRUE(onWindow.pixels.bits() == onMemory.pixels.bits()) << name << ": the window's pixels differ";
    }
}

} // namespace
} // namespace vex::drawtest
