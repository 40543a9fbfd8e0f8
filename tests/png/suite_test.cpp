// The PNG test suite, decoded by us and by libpng: every valid file, with the alpha and
// transparency options off and on, must give the same pixels after the decoder's rules. The
// outcome of every file (valid and corrupt) is also kept in golden.csv, so that any change in
// decoding shows up in review. To regenerate the table after an intended change:
//
//   VEX_PNG_REGENERATE_GOLDEN=1 build/tests/png/test_png_suite --gtest_filter='*Golden*'
//
// and commit tests/png/golden.csv with the change that explains it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/runtime_error.h"
#include "libpng_oracle.h"
#include "png/load_png.h"
#include "raises.h"

namespace vex::png {
namespace {

namespace fs = std::filesystem;
using testing::DecodeWithLibpng;

const fs::path kSuite = fs::path(VEX_TESTDATA_DIR) / "pngsuite";
const fs::path kGolden = fs::path(VEX_SOURCE_DIR) / "tests" / "png" / "golden.csv";

struct Options {
    const char* name;
    bool alpha;
    bool trans;
    bool ownColour;
};
constexpr Options kOptions[] = {
    {"plain", false, false, false},
    {"alpha", true, false, false},
    {"trans", false, true, false},
    {"alpha+trans+own", true, true, true},
};
constexpr ColorRef kOwnColour = 0x00336699; // B 0x33, G 0x66, R 0x99

struct Outcome {
    int32_t width = 0, height = 0, bits = 0, error = 0;
    int32_t raised = 0; // RuntimeError number, 0 if none
    ColorRef bkgdColor = 0;
    platform::PictureRef picture;
};

Outcome Decode(const fs::path& path, const Options& options)
{
    LoadPNG decoder;
    auto box = std::make_shared<PictureBox>();
    decoder.setPicBox(box);
    decoder.setSetAlpha(options.alpha);
    decoder.setSetTrans(options.trans);
    if (options.ownColour)
        decoder.SetOwnBkgndColor(true, kOwnColour);
    Outcome outcome;
    outcome.raised = vex::testing::RaisedBy([&] { decoder.OpenPNG(path.string()); });
    outcome.width = decoder.Width();
    outcome.height = decoder.Height();
    outcome.bits = decoder.OutputBitsPerPixel();
    outcome.error = decoder.ErrorNumber();
    outcome.bkgdColor = decoder.BkgdColor();
    outcome.picture = box->Picture;
    return outcome;
}

std::vector<fs::path> SuiteFiles(bool corrupt)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kSuite)) {
        std::string name = entry.path().filename().string();
        if (entry.path().extension() == ".png" && (name[0] == 'x') == corrupt)
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

uint64_t HashBitmap(const platform::Dib& dib)
{
    uint64_t hash = 1469598103934665603ull;
    auto mix = [&](uint8_t byte) { hash = (hash ^ byte) * 1099511628211ull; };
    mix(static_cast<uint8_t>(dib.bitCount()));
    mix(dib.topDown() ? 1 : 0);
    for (const auto& quad : dib.palette()) {
        mix(quad.blue), mix(quad.green), mix(quad.red), mix(quad.reserved);
    }
    size_t rowBytes = (static_cast<size_t>(dib.width()) * dib.bitCount() + 7) / 8;
    for (int32_t y = 0; y < dib.height(); ++y) {
        const uint8_t* row = dib.row(y);
        for (size_t i = 0; i < rowBytes; ++i)
            mix(row[i]);
    }
    return hash;
}

uint8_t Composed(uint8_t source, uint8_t background, uint8_t alpha)
{
    if (alpha == 255)
        return source;
    if (alpha == 0)
        return background;
    return static_cast<uint8_t>((source * alpha + background * (255 - alpha) + 255) / 256);
}

// Compares our picture with libpng's pixels; returns a description of the first difference.
std::string CompareWithOracle(const fs::path& path, const Options& options, const Outcome& ours)
{
    auto oracle = DecodeWithLibpng(path.string(), options.trans);
    if (!oracle.ok)
        return "libpng cannot decode it";
    if (!ours.picture)
        return "no picture (error " + std::to_string(ours.error) + ", raised " + std::to_string(ours.raised) + ")";
    const platform::Dib& dib = ours.picture->bitmap();
    if (dib.width() != oracle.width || dib.height() != oracle.height)
        return "size differs";

    bool fileAlpha = oracle.colorType == 4 || oracle.colorType == 6;
    bool hasTrns = false;
    for (size_t i = 3; i < oracle.rgba.size(); i += 4)
        hasTrns |= oracle.rgba[i] != 255;
    bool composed = fileAlpha ? options.alpha : (options.trans && hasTrns);
    int expectedBits = fileAlpha ? (options.alpha ? 24 : 32) : 0;
    if (expectedBits != 0 && dib.bitCount() != expectedBits)
        return "bit count " + std::to_string(dib.bitCount());
    if (composed && dib.bitCount() != 24)
        return "composed image is not 24-bit";

    ColorRef background = options.ownColour ? kOwnColour : ours.bkgdColor;
    for (int y = 0; y < dib.height(); ++y) {
        for (int x = 0; x < dib.width(); ++x) {
            const uint8_t* px = &oracle.rgba[(static_cast<size_t>(y) * oracle.width + x) * 4];
            uint8_t alpha = px[3];
            uint32_t red = px[0], green = px[1], blue = px[2];
            if (composed) {
                red = Composed(px[0], static_cast<uint8_t>(RedOf(background)), alpha);
                green = Composed(px[1], static_cast<uint8_t>(GreenOf(background)), alpha);
                blue = Composed(px[2], static_cast<uint8_t>(BlueOf(background)), alpha);
            }
            ColorRef expected = Rgb(red, green, blue);
            ColorRef actual = dib.pixel(x, y);
            bool alphaOk = true;
            if (dib.bitCount() == 32)
                alphaOk = dib.row(y)[x * 4 + 3] == alpha;
            if (actual != expected || !alphaOk) {
                std::ostringstream message;
                message << "pixel (" << x << ", " << y << "): ours " << std::hex << actual << " libpng " << expected
                        << " alpha " << std::dec << int{alpha};
                return message.str();
            }
        }
    }
    return {};
}

TEST(PngSuite, EveryValidFileMatchesLibpngUnderEveryOption)
{
    auto files = SuiteFiles(false);
    ASSERT_GT(files.size(), 140u);
    int compared = 0;
    for (const auto& path : files) {
        for (const auto& options : kOptions) {
            Outcome ours = Decode(path, options);
            std::string difference = CompareWithOracle(path, options, ours);
            EXPECT_EQ(difference, "") << path.filename() << " [" << options.name << "]";
            ++compared;
        }
    }
    EXPECT_EQ(compared, static_cast<int>(files.size() * std::size(kOptions)));
}

std::string GoldenTable()
{
    std::ostringstream table;
    table << "file,options,width,height,bits,error,hash\n";
    auto add = [&](const fs::path& path, const Options& options) {
        Outcome ours = Decode(path, options);
        std::string error = ours.raised != 0 ? "R" + std::to_string(ours.raised) : std::to_string(ours.error);
        char hash[20] = "-";
        if (ours.picture)
            std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(HashBitmap(ours.picture->bitmap())));
        table << path.filename().string() << ',' << options.name << ',' << ours.width << ',' << ours.height << ','
              << ours.bits << ',' << error << ',' << hash << '\n';
    };
    for (const auto& path : SuiteFiles(false))
        for (const auto& options : kOptions)
            add(path, options);
    for (const auto& path : SuiteFiles(true))
        add(path, kOptions[0]);
    return table.str();
}

TEST(PngSuite, GoldenTableIsUnchanged)
{
    std::string table = GoldenTable();
    if (std::getenv("VEX_PNG_REGENERATE_GOLDEN") != nullptr) {
        std::ofstream(kGolden, std::ios::binary) << table;
        GTEST_SKIP() << "golden table written to " << kGolden;
    }
    std::ifstream stored(kGolden, std::ios::binary);
    ASSERT_TRUE(stored) << "missing " << kGolden;
    std::stringstream expected;
    expected << stored.rdbuf();
    std::istringstream got(table), want(expected.str());
    std::string gotLine, wantLine;
    int line = 0;
    while (std::getline(want, wantLine)) {
        ++line;
        ASSERT_TRUE(std::getline(got, gotLine)) << "table ends early at line " << line;
        EXPECT_EQ(gotLine, wantLine) << "line " << line;
    }
    EXPECT_FALSE(std::getline(got, gotLine)) << "table has extra lines from " << gotLine;
}

} // namespace
} // namespace vex::png
