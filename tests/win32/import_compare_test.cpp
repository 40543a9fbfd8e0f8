// GIF and JPEG import: the Windows build decodes them through the system's picture loader (run
// under Wine by win32.import.run, which writes each picture's pixels as a BMP), this build
// through giflib and libjpeg. GIFs must give the same pixels. JPEG decoders may round their
// transforms differently: Wine's differs from libjpeg's by up to 12 per channel on the photo-like
// samples (flat 8 x 8 blocks decode alike), so a JPEG must stay within 16 of each channel and
// within 1 on average.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "pages/picture_import.h"

namespace vex::pages {
namespace {

TEST(WindowsPictureImport, GifAndJpegGiveTheNativePixels)
{
    int compared = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VEX_SOURCE_DIR "/tests/pages/samples")) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".gif" && extension != ".jpg")
            continue;
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        const platform::PictureRef native = LoadPictureFile(entry.path().string());
        const platform::PictureRef windows = LoadPictureFile(VEX_IMPORT_DIR "/" + name + ".bmp");
        const platform::Dib& expected = native->bitmap();
        const platform::Dib& got = windows->bitmap();
        ASSERT_EQ(got.width(), expected.width());
        ASSERT_EQ(got.height(), expected.height());
        const bool jpeg = extension == ".jpg";
        int differing = 0;
        int64_t total = 0;
        std::string first;
        for (int32_t y = 0; y < expected.height(); ++y)
            for (int32_t x = 0; x < expected.width(); ++x)
                for (int shift = 0; shift <= 16; shift += 8) {
                    const int difference = std::abs(int(got.pixel(x, y) >> shift & 0xFF) - int(expected.pixel(x, y) >> shift & 0xFF));
                    total += difference;
                    if (difference > (jpeg ? 16 : 0) && differing++ == 0)
                        first = std::to_string(x) + "," + std::to_string(y);
                }
        EXPECT_EQ(differing, 0) << "first at " << first;
        EXPECT_LE(total, jpeg ? 3 * int64_t { expected.width() } * expected.height() : 0);
        ++compared;
    }
    EXPECT_GE(compared, 6);
}

} // namespace
} // namespace vex::pages
