// PNG writing and PNG/BMP reading for tools: a round trip keeps every pixel.

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "platform/png_writer.h"

namespace vex::platform {
namespace {

std::string TempPath(const char* name)
{
    return (std::filesystem::temp_directory_path() / (std::string("vex-soft-") + std::to_string(::getpid()) + name)).string();
}

TEST(ImageFiles, PngRoundTripKeepsPixelsAndResolvesPalettes)
{
    Dib image(5, 3, 8, false);
    image.palette() = { RgbQuad { 0, 0, 0 }, RgbQuad { 10, 20, 30 }, RgbQuad { 255, 128, 1 } };
    for (int32_t y = 0; y < 3; ++y)
        for (int32_t x = 0; x < 5; ++x)
            image.row(y)[x] = static_cast<uint8_t>((x + y) % 3);
    std::string path = TempPath("round.png");
    ASSERT_TRUE(WritePng(path, image));
    std::string error;
    auto back = ReadImage(path, &error);
    std::filesystem::remove(path);
    ASSERT_TRUE(back) << error;
    ASSERT_EQ(back->width(), 5);
    ASSERT_EQ(back->height(), 3);
    for (int32_t y = 0; y < 3; ++y)
        for (int32_t x = 0; x < 5; ++x)
            EXPECT_EQ(back->pixel(x, y), image.pixel(x, y)) << x << "," << y;
}

TEST(ImageFiles, ReadsABottomUp24BitBmpAndRejectsGarbage)
{
    // 2 x 2, 24 bits, bottom-up: rows of 6 bytes padded to 8.
    std::vector<uint8_t> bmp(54 + 16, 0);
    bmp[0] = 'B', bmp[1] = 'M', bmp[10] = 54, bmp[14] = 40, bmp[18] = 2, bmp[22] = 2, bmp[26] = 1, bmp[28] = 24;
    uint8_t* bottom = &bmp[54];
    bottom[0] = 3, bottom[1] = 2, bottom[2] = 1; // bottom-left pixel: red 1, green 2, blue 3
    uint8_t* top = &bmp[62];
    top[3] = 0xCC, top[4] = 0xBB, top[5] = 0xAA; // top-right pixel
    std::string path = TempPath("image.bmp");
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bmp.data()), static_cast<std::streamsize>(bmp.size()));
    auto image = ReadImage(path);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixel(0, 1), Rgb(1, 2, 3));
    EXPECT_EQ(image->pixel(1, 0), Rgb(0xAA, 0xBB, 0xCC));
    std::ofstream(path, std::ios::binary) << "BM not really";
    std::string error;
    EXPECT_FALSE(ReadImage(path, &error));
    EXPECT_FALSE(error.empty());
    // The header alone claiming 16384 x 16384: refused on its size, nothing built.
    bmp.resize(54);
    bmp[18] = 0, bmp[19] = 0x40, bmp[22] = 0, bmp[23] = 0x40, bmp[28] = 32;
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bmp.data()), 54);
    error.clear();
    EXPECT_FALSE(ReadImage(path, &error));
    EXPECT_EQ(error, "BMP pixel data truncated");
    std::filesystem::remove(path);
    EXPECT_FALSE(ReadImage(path + ".missing"));
}

} // namespace
} // namespace vex::platform
