// Picture import: each format gives the picture it holds; a damaged file of any kind is refused
// with Invalid picture and nothing else; the Image page sets and clears the three properties.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "base/runtime_error.h"
#include "headless/headless_surface.h"
#include "headless/headless_host.h"
#include "control/vex_panel.h"
#include "pages/image_page.h"
#include "pages/picture_import.h"
#include "platform/soft/soft_device_context.h"
#include "raises.h"

namespace vex::pages {
namespace {

// The sample files: pixel (x, y) of each is Colour(x, y), the JPEG's 8 x 8 blocks Colour(x / 8,
// y / 8); the icon's and the cursor's mask is clear on the diagonal x == y. The BMPs are 24-bit
// bottom-up and 4-bit top-down, the GIFs plain and interlaced.
ColorRef Colour(int x, int y) { return Rgb(40u * x, 200 - 50u * y, (x + y) % 2 ? 255 : 0); }

std::vector<uint8_t> SampleFile(std::string_view name)
{
    std::ifstream in(std::string(VEX_SOURCE_DIR "/tests/pages/samples/") + std::string(name), std::ios::binary);
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), {});
}

struct Sample {
    std::string_view name;
    std::vector<uint8_t> bytes;
    platform::PictureType type;
    int width, height;
    int tolerance; // per channel: JPEG is lossy
    std::function<ColorRef(int, int)> expected;
};

std::vector<Sample> Samples()
{
    auto grid = [](int x, int y) { return Colour(x, y); };
    return {
        { "BMP 24", SampleFile("grid-24.bmp"), platform::PictureType::Bitmap, 5, 3, 0, grid },
        { "BMP 4", SampleFile("grid-4.bmp"), platform::PictureType::Bitmap, 5, 3, 0, grid },
        { "ICO", SampleFile("grid.ico"), platform::PictureType::Icon, 5, 3, 0, grid },
        { "CUR", SampleFile("grid.cur"), platform::PictureType::Icon, 5, 3, 0, grid },
        { "GIF", SampleFile("grid.gif"), platform::PictureType::Bitmap, 5, 3, 0, grid },
        { "GIF interlaced", SampleFile("grid-interlaced.gif"), platform::PictureType::Bitmap, 5, 3, 0, grid },
        { "JPEG", SampleFile("blocks.jpg"), platform::PictureType::Bitmap, 16, 16, 4,
            [](int x, int y) { return Colour(x / 8, y / 8); } },
        { "PNG", SampleFile("grid.png"), platform::PictureType::Bitmap, 5, 3, 0, grid },
    };
}

ColorRef PixelOf(const platform::Picture& picture, int x, int y)
{
    return picture.type() == platform::PictureType::Icon ? picture.icon().color.pixel(x, y) : picture.bitmap().pixel(x, y);
}

TEST(PictureImport, EachFormatGivesItsPixels)
{
    for (const Sample& sample : Samples()) {
        platform::PictureRef picture = LoadPictureFromMemory(sample.bytes);
        ASSERT_TRUE(picture) << sample.name;
        EXPECT_EQ(picture->type(), sample.type) << sample.name;
        ASSERT_EQ(picture->pixelWidth(), sample.width) << sample.name;
        ASSERT_EQ(picture->pixelHeight(), sample.height) << sample.name;
        for (int y = 0; y < sample.height; ++y)
            for (int x = 0; x < sample.width; ++x) {
                ColorRef got = PixelOf(*picture, x, y), want = sample.expected(x, y);
                for (int shift = 0; shift <= 16; shift += 8)
                    ASSERT_NEAR(int(got >> shift & 0xFF), int(want >> shift & 0xFF), sample.tolerance)
                        << sample.name << " at " << x << "," << y;
            }
        if (sample.type != platform::PictureType::Icon)
            continue;
        for (int y = 0; y < sample.height; ++y) // the mask is clear on the diagonal
            for (int x = 0; x < sample.width; ++x)
                EXPECT_EQ(picture->icon().mask.pixel(x, y) != 0, x == y) << sample.name;
    }
}

TEST(PictureImport, DamagedFilesAreRefused)
{
    std::vector<std::pair<std::string, std::vector<uint8_t>>> damaged;
    for (const Sample& sample : Samples()) {
        const std::vector<uint8_t>& bytes = sample.bytes;
        for (size_t keep : { size_t { 8 }, bytes.size() / 2, bytes.size() - 13 })
            damaged.emplace_back(std::string(sample.name) + " cut to " + std::to_string(keep),
                std::vector<uint8_t>(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(keep)));
    }
    auto patched = [](std::vector<uint8_t> bytes, size_t at, std::vector<uint8_t> with) {
        std::copy(with.begin(), with.end(), bytes.begin() + static_cast<ptrdiff_t>(at));
        return bytes;
    };
    damaged.emplace_back("BMP claiming 30000 x 30000", patched(SampleFile("grid-24.bmp"), 18, { 0x30, 0x75, 0, 0, 0x30, 0x75 }));
    damaged.emplace_back("BMP run-length", patched(SampleFile("grid-4.bmp"), 30, { 2 }));
    damaged.emplace_back("BMP palette of 4096", patched(SampleFile("grid-4.bmp"), 46, { 0, 0x10 }));
    damaged.emplace_back("ICO image outside the file", patched(SampleFile("grid.ico"), 18, { 0xFF, 0xFF }));
    damaged.emplace_back("ICO with no image", patched(SampleFile("grid.ico"), 4, { 0 }));
    damaged.emplace_back("GIF 65535 x 65535", patched(SampleFile("grid.gif"), 6, { 0xFF, 0xFF, 0xFF, 0xFF }));
    damaged.emplace_back("JPEG without its scan", patched(SampleFile("blocks.jpg"), 2, { 0xFF, 0xD9 }));
    damaged.emplace_back("unknown", std::vector<uint8_t> { 'h', 'e', 'l', 'l', 'o' });
    damaged.emplace_back("empty", std::vector<uint8_t> {});
    for (const auto& [name, bytes] : damaged)
        EXPECT_EQ(vex::testing::RaisedBy([&] { LoadPictureFromMemory(bytes); }), 481) << name;
}

TEST(PictureImport, AnIconBecomesABitmapOnTheBackColour)
{
    auto reference = platform::soft::SoftDeviceContext::CreateSurface(8, 8);
    platform::PictureRef icon = LoadPictureFromMemory(SampleFile("grid.ico"));
    platform::PictureRef bitmap = IconToBitmap(icon, Rgb(1, 2, 3), *reference);
    ASSERT_EQ(bitmap->type(), platform::PictureType::Bitmap);
    EXPECT_EQ(bitmap->bitmap().pixel(1, 1), Rgb(1, 2, 3) ^ Colour(1, 1)); // clear: screen XOR colour
    EXPECT_EQ(bitmap->bitmap().pixel(2, 1), Colour(2, 1));
}

class ImagePageTest : public ::testing::Test {
protected:
    ImagePageTest()
    {
        panel.InitProperties();
        page.Initialize();
        control::VexPanel* selection[] = { &panel };
        page.SelectionChanged(selection);
    }
    ~ImagePageTest() override { std::filesystem::remove_all(directory); }

    std::string Write(std::string_view name, const std::vector<uint8_t>& bytes)
    {
        std::filesystem::create_directories(directory);
        std::string path = (directory / name).string();
        std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
        return path;
    }
    platform::PictureRef Held(int target)
    {
        return target == 0 ? panel.Picture() : target == 1 ? panel.PictureBackground() : panel.MouseIcon();
    }

    std::filesystem::path directory = std::filesystem::temp_directory_path() / ("vex-image-page-" + std::to_string(::getpid()));
    control::HeadlessHost host;
    control::HeadlessSurface surface { platform::Size { 40, 20 } };
    control::VexPanel panel { host, surface };
    ImagePage page { *FindPage("ImagePNG") };
};

TEST_F(ImagePageTest, ApplySetsAndClearsEachPictureAndADamagedFileChangesNothing)
{
    std::string good = Write("good.gif", SampleFile("grid.gif"));
    std::vector<uint8_t> bmp = SampleFile("grid-24.bmp");
    std::string bad = Write("bad.bmp", std::vector<uint8_t>(bmp.begin(), bmp.begin() + 60));
    for (int target = 0; target < 3; ++target) {
        page.Choose(*page.Find("cboTarget"), target);
        page.Type(*page.Find("txtFileName"), good);
        ASSERT_EQ(page.Preview()->pixelWidth(), 5);
        page.ApplyChanges();
        platform::PictureRef held = Held(target);
        ASSERT_TRUE(held) << target;
        EXPECT_EQ(held->pixelWidth(), 5);

        page.Type(*page.Find("txtFileName"), bad);
        EXPECT_THROW(page.ApplyChanges(), RuntimeError);
        EXPECT_EQ(Held(target), held);

        page.ClearPicture();
        page.ApplyChanges();
        EXPECT_FALSE(Held(target)) << target;
    }
    page.Type(*page.Find("txtFileName"), (directory / "missing.png").string());
    EXPECT_EQ(vex::testing::RaisedBy([&] { page.ApplyChanges(); }), 53);
}

} // namespace
} // namespace vex::pages
