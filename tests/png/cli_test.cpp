// The png-info and png2bmp sub-commands, run as a user runs them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "png/load_png.h"

namespace {

namespace fs = std::filesystem;
const fs::path kSuite = fs::path(VEX_TESTDATA_DIR) / "pngsuite";

struct CliRun {
    int status = -1;
    std::string output;
};

CliRun RunCli(const std::string& arguments)
{
    CliRun run;
    std::string command = std::string(VEX_CLI) + " " + arguments + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return run;
    char buffer[4096];
    size_t count;
    while ((count = fread(buffer, 1, sizeof buffer, pipe)) > 0)
        run.output.append(buffer, count);
    int raw = pclose(pipe);
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return run;
}

uint32_t Le32(const std::vector<uint8_t>& bytes, size_t at)
{
    return bytes[at] | (bytes[at + 1] << 8) | (bytes[at + 2] << 16) | (uint32_t{bytes[at + 3]} << 24);
}

TEST(PngCli, InfoListsEveryPropertyWithNulsShown)
{
    CliRun run = RunCli("png-info " + (kSuite / "ct1n0g04.png").string());
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.output.find("ErrorNumber = 0\nWidth = 32\nHeight = 32\nBitdepht = 4\nColorType = 0\n"), std::string::npos)
        << run.output;
    EXPECT_NE(run.output.find("Text = Title\\0PngSuite\\0Author\\0"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("HaveAlpha = False\n"), std::string::npos);
    EXPECT_NE(run.output.find("gama = 1\n"), std::string::npos) << run.output;
    EXPECT_TRUE(run.output.ends_with("Bits = 4\n")) << run.output;

    CliRun time = RunCli("png-info " + (kSuite / "cm7n0g04.png").string());
    EXPECT_NE(time.output.find("ModiTime = 01.01.1970 00:00:00\n"), std::string::npos) << time.output;

    CliRun broken = RunCli("png-info " + (kSuite / "xs1n0g01.png").string());
    EXPECT_EQ(broken.status, 2);
    EXPECT_NE(broken.output.find("ErrorNumber = 1\n"), std::string::npos);
}

// The BMP holds the bitmap exactly as LoadPNG built it: header, palette and rows.
TEST(PngCli, Png2BmpWritesTheBitmapAsBuilt)
{
    struct Case {
        const char* file;
        const char* options;
        bool alpha, trans;
        uint32_t colour;
    };
    const Case cases[] = {
        {"basn6a08.png", "--alpha --bkgnd 0x0000FF", true, false, 0x0000FF},
        {"basn6a08.png", "", false, false, 0},
        {"tbbn3p08.png", "--trans", false, true, 0},
        {"basn3p04.png", "", false, false, 0},
        {"basn0g01.png", "", false, false, 0},
    };
    fs::path out = fs::temp_directory_path() / ("vex-png2bmp-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + ".bmp");
    for (const auto& c : cases) {
        fs::path input = kSuite / c.file;
        CliRun run = RunCli("png2bmp " + input.string() + " " + out.string() + " " + c.options);
        ASSERT_EQ(run.status, 0) << c.file;
        std::ifstream file(out, std::ios::binary);
        std::vector<uint8_t> bmp((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        ASSERT_GT(bmp.size(), 54u);

        vex::png::LoadPNG decoder;
        auto box = std::make_shared<vex::png::PictureBox>();
        decoder.setPicBox(box);
        decoder.setSetAlpha(c.alpha);
        decoder.setSetTrans(c.trans);
        if (c.colour != 0)
            decoder.SetOwnBkgndColor(true, c.colour);
        decoder.OpenPNG(input.string());
        ASSERT_TRUE(box->Picture);
        const auto& dib = box->Picture->bitmap();

        EXPECT_EQ(bmp[0], 'B');
        EXPECT_EQ(bmp[1], 'M');
        EXPECT_EQ(Le32(bmp, 2), bmp.size());
        EXPECT_EQ(static_cast<int32_t>(Le32(bmp, 18)), dib.width());
        EXPECT_EQ(static_cast<int32_t>(Le32(bmp, 22)), dib.topDown() ? -dib.height() : dib.height()) << c.file;
        EXPECT_EQ(bmp[28], dib.bitCount()) << c.file;
        EXPECT_EQ(Le32(bmp, 46), dib.palette().size());
        uint32_t offset = Le32(bmp, 10);
        ASSERT_EQ(offset, 54 + 4 * dib.palette().size());
        for (size_t i = 0; i < dib.palette().size(); ++i) {
            EXPECT_EQ(bmp[54 + 4 * i], dib.palette()[i].blue);
            EXPECT_EQ(bmp[54 + 4 * i + 2], dib.palette()[i].red);
        }
        EXPECT_TRUE(std::equal(bmp.begin() + offset, bmp.end(), dib.bits().begin(), dib.bits().end())) << c.file;
    }
    fs::remove(out);

    EXPECT_EQ(RunCli("png2bmp " + (kSuite / "xdtn0g01.png").string() + " " + out.string()).status, 2);
    EXPECT_FALSE(fs::exists(out));
    EXPECT_EQ(RunCli("png2bmp " + (kSuite / "basn0g01.png").string() + " --bkgnd nonsense " + out.string()).status, 2);
}

} // namespace
