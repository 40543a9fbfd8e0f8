// LoadPNG as a whole, on files made in the test: the error codes and their "never reset" rule,
// the size limit, file opening, and the pixel rules the suite cannot show on its own.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "png/adam7.h"
#include "png/load_png.h"
#include "png_writer.h"
#include "raises.h"

namespace vex::png {
namespace {

namespace fs = std::filesystem;
using testing::PngWriter;
using testing::WithFilterBytes;
using vex::testing::RaisedBy;

struct Decoded {
    std::shared_ptr<PictureBox> box = std::make_shared<PictureBox>();
    const platform::Dib* dib() const { return box->Picture ? &box->Picture->bitmap() : nullptr; }
};

Decoded DecodeInto(LoadPNG& decoder, const std::vector<uint8_t>& file)
{
    Decoded decoded;
    decoder.setPicBox(decoded.box);
    decoder.OpenPNGFromMemory(file);
    return decoded;
}

// A 7x5 RGB image with every byte different from its neighbours.
std::vector<uint8_t> TestRgbPixels()
{
    std::vector<uint8_t> pixels(7 * 5 * 3);
    for (size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<uint8_t>(i * 37 + 11);
    return pixels;
}

TEST(LoadPNG, ErrorNumberIsNeverReset)
{
    auto good = PngWriter().Ihdr(7, 5, 8, 2).Idat(WithFilterBytes(TestRgbPixels(), 21)).Iend().bytes();
    LoadPNG decoder;
    EXPECT_EQ(decoder.ErrorNumber(), 0);
    DecodeInto(decoder, {1, 2, 3});
    EXPECT_EQ(decoder.ErrorNumber(), 1);
    auto after = DecodeInto(decoder, good);
    EXPECT_TRUE(after.dib());                // the picture is made...
    EXPECT_EQ(decoder.ErrorNumber(), 1);     // ...and the old code stays
    DecodeInto(decoder, PngWriter().Ihdr(1, 1, 8, 0).Iend().bytes());
    EXPECT_EQ(decoder.ErrorNumber(), 4);
    EXPECT_EQ(decoder.OutputBitsPerPixel(), 0); // reset by every call
}

TEST(LoadPNG, HugeDeclaredImagesAreRefusedBeforeAnyAllocation)
{
    // 60000 x 60000 RGBA from a file of a few dozen bytes.
    LoadPNG decoder;
    auto huge = DecodeInto(decoder, PngWriter().Ihdr(60000, 60000, 8, 6).Idat({0, 0, 0, 0, 0}).Iend().bytes());
    EXPECT_EQ(decoder.ErrorNumber(), kErrorImageRefused);
    EXPECT_FALSE(huge.dib());

    LoadPNG limited;
    limited.setMaxPixels(34);
    DecodeInto(limited, PngWriter().Ihdr(7, 5, 8, 2).Idat(WithFilterBytes(TestRgbPixels(), 21)).Iend().bytes());
    EXPECT_EQ(limited.ErrorNumber(), kErrorImageRefused);

    for (auto [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}}) {
        LoadPNG zero;
        DecodeInto(zero, PngWriter().Ihdr(width, height, 8, 0).Idat({0}).Iend().bytes());
        EXPECT_EQ(zero.ErrorNumber(), kErrorImageRefused) << width << "x" << height;
    }

    // Within the limit but far more than the data could inflate to: the short-data error,
    // raised before the output is allocated.
    LoadPNG bold;
    EXPECT_EQ(RaisedBy([&] { DecodeInto(bold, PngWriter().Ihdr(9000, 9000, 8, 6).Idat({0}).Iend().bytes()); }), 9);
}

TEST(LoadPNG, ShortDataAndAMissingPicBoxRaise)
{
    auto rows = WithFilterBytes(TestRgbPixels(), 21);
    auto file = PngWriter().Ihdr(7, 5, 8, 2).Idat(rows).Iend().bytes();
    LoadPNG unboxed;
    EXPECT_EQ(RaisedBy([&] { unboxed.OpenPNGFromMemory(file); }), 91);
    rows.resize(rows.size() - 1);
    LoadPNG decoder;
    EXPECT_EQ(RaisedBy([&] { DecodeInto(decoder, PngWriter().Ihdr(7, 5, 8, 2).Idat(rows).Iend().bytes()); }), 9);
}

TEST(LoadPNG, UnsupportedFormatsGiveNoPictureAndNoError)
{
    for (auto [depth, type] : {std::pair{8, 1}, {8, 5}, {3, 0}, {16, 3}, {4, 2}, {1, 6}}) {
        LoadPNG decoder;
        auto result = DecodeInto(decoder, PngWriter().Ihdr(2, 2, depth, type).Idat(std::vector<uint8_t>(64)).Iend().bytes());
        EXPECT_FALSE(result.dib());
        EXPECT_EQ(decoder.ErrorNumber(), 0);
    }
}

TEST(LoadPNG, OpeningFilesLikeTheHost)
{
    fs::path folder = fs::temp_directory_path() / ("vex-png-test-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
    fs::create_directories(folder);
    LoadPNG decoder;
    // A missing file is created empty and fails the signature test.
    fs::path missing = folder / "missing.png";
    decoder.OpenPNG(missing.string());
    EXPECT_EQ(decoder.ErrorNumber(), 1);
    EXPECT_TRUE(fs::exists(missing));
    EXPECT_EQ(fs::file_size(missing), 0u);
    // A directory cannot be opened; neither can a file in a folder that does not exist.
    auto flagged = PngWriter().Ihdr(1, 1, 8, 0).Chunk("tRNS", {0, 1}).Idat({0, 7}).Iend().bytes();
    decoder.setPicBox(std::make_shared<PictureBox>());
    decoder.OpenPNGFromMemory(flagged);
    ASSERT_TRUE(decoder.HaveTransparence());
    EXPECT_EQ(RaisedBy([&] { decoder.OpenPNG(folder.string()); }), 75);
    EXPECT_FALSE(decoder.HaveTransparence()); // reset before the open failed
    EXPECT_EQ(decoder.OutputBitsPerPixel(), 0);
    EXPECT_EQ(RaisedBy([&] { decoder.OpenPNG((folder / "no" / "such.png").string()); }), 76);
    // Sparse files far beyond 2^31 bytes: one that is not a PNG fails on its first 8 bytes, one
    // that starts like a PNG is an Overflow before anything is allocated.
    fs::path huge = folder / "huge.png";
    std::ofstream(huge, std::ios::binary) << "GIF89a..";
    fs::resize_file(huge, uintmax_t{40} << 30);
    LoadPNG notPng;
    notPng.OpenPNG(huge.string());
    EXPECT_EQ(notPng.ErrorNumber(), 1);
    std::ofstream(huge, std::ios::binary).write(reinterpret_cast<const char*>(kPngSignature), 8);
    fs::resize_file(huge, uintmax_t{40} << 30);
    EXPECT_EQ(RaisedBy([&] { notPng.OpenPNG(huge.string()); }), 6);
    fs::remove(huge);
    // A real file decodes.
    fs::path real = folder / "real.png";
    auto bytes = PngWriter().Ihdr(7, 5, 8, 2).Chunk("gAMA", {0, 0, 0xB1, 0x8F}).Idat(WithFilterBytes(TestRgbPixels(), 21)).Iend().bytes();
    std::ofstream(real, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    auto box = std::make_shared<PictureBox>();
    LoadPNG fresh;
    fresh.setPicBox(box);
    fresh.OpenPNG(real.string());
    EXPECT_TRUE(box->Picture);
    EXPECT_DOUBLE_EQ(fresh.gama(), 0.45455);
    fs::remove_all(folder);
}

// A dynamic block whose code-length code over-subscribes length 1: the inflate's one message
// goes to the host's message box, and the decode goes on with the compressed bytes as data
// (filter byte 0x05, an unknown type, then pixel 0x00).
TEST(LoadPNG, TreeErrorGoesToTheMessageBoxAndTheDecodeGoesOn)
{
    std::vector<std::string> messages;
    LoadPNG decoder;
    decoder.setMessageBox([&](const std::string& text) { messages.push_back(text); });
    auto result = DecodeInto(decoder, PngWriter().Ihdr(1, 1, 8, 0).Chunk("IDAT", {0x78, 0x9C, 0x05, 0x00, 0x92, 0x04}).Iend().bytes());
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], "Error in tree creation (Static)");
    ASSERT_TRUE(result.dib());
    EXPECT_EQ(result.dib()->pixel(0, 0), Rgb(0, 0, 0));
    EXPECT_EQ(decoder.ErrorNumber(), 0);
}

// RGB and RGBA rows of every width up to 9: the conversions work on several pixels at a time and
// finish rows pixel by pixel, and both parts must keep each channel in its place.
TEST(LoadPNG, RgbAndRgbaRowsOfEveryWidthKeepTheirChannels)
{
    for (size_t channels : {3, 4}) {
        for (int width = 1; width <= 9; ++width) {
            std::vector<uint8_t> pixels(static_cast<size_t>(width) * 2 * channels);
            for (size_t i = 0; i < pixels.size(); ++i)
                pixels[i] = static_cast<uint8_t>(i * 29 + width);
            LoadPNG decoder;
            auto file = PngWriter()
                            .Ihdr(width, 2, 8, channels == 4 ? 6 : 2)
                            .Idat(WithFilterBytes(pixels, static_cast<size_t>(width) * channels))
                            .Iend()
                            .bytes();
            auto result = DecodeInto(decoder, file);
            ASSERT_TRUE(result.dib());
            for (int y = 0; y < 2; ++y) {
                for (int x = 0; x < width; ++x) {
                    const uint8_t* source = &pixels[(static_cast<size_t>(y) * width + x) * channels];
                    const uint8_t* target = result.dib()->row(y) + x * channels;
                    std::vector<uint8_t> expected{source[2], source[1], source[0]};
                    if (channels == 4)
                        expected.push_back(source[3]);
                    ASSERT_EQ(std::vector<uint8_t>(target, target + channels), expected)
                        << channels << " channels, width " << width << " at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(LoadPNG, AlphaComposesOntoTheBackgroundPictureAtItsOffset)
{
    platform::Dib backdrop(3, 3, 24, true);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x) {
            uint8_t* px = backdrop.row(y) + x * 3;
            px[0] = static_cast<uint8_t>(10 * x), px[1] = static_cast<uint8_t>(10 * y), px[2] = 1;
        }
    // A 2x2 fully transparent grey + alpha image shows the picture from (2, 1) on; image column
    // 1 falls outside it and takes the colour.
    auto file = PngWriter().Ihdr(2, 2, 8, 4).Idat({0, 9, 0, 9, 0, 0, 9, 0, 9, 0}).Iend().bytes();
    LoadPNG decoder;
    decoder.setSetAlpha(true);
    decoder.SetOwnBkgndColor(true, Rgb(7, 7, 7));
    decoder.setBackgroundPicture(platform::Picture::FromBitmap(backdrop));
    decoder.SetToBkgrnd(true, 2, 1);
    auto result = DecodeInto(decoder, file);
    ASSERT_TRUE(result.dib());
    EXPECT_EQ(result.dib()->pixel(0, 0), Rgb(1, 10, 20));
    EXPECT_EQ(result.dib()->pixel(0, 1), Rgb(1, 20, 20));
    EXPECT_EQ(result.dib()->pixel(1, 0), Rgb(7, 7, 7));
}

TEST(LoadPNG, TransparencyForGreyRgbAndPalette)
{
    struct Case {
        std::vector<uint8_t> file;
        ColorRef first, second; // pixels 0 and 1 after composing onto Rgb(1, 2, 3)
    };
    std::vector<uint8_t> palette = {255, 0, 0, 0, 255, 0};
    const Case cases[] = {
        {PngWriter().Ihdr(2, 1, 8, 0).Chunk("tRNS", {0, 40}).Idat({0, 40, 41}).Iend().bytes(), Rgb(1, 2, 3), Rgb(41, 41, 41)},
        {PngWriter().Ihdr(2, 1, 2, 0).Chunk("tRNS", {0xFF, 0xF1}).Idat({0, 0x40}).Iend().bytes(), Rgb(1, 2, 3), Rgb(0, 0, 0)},
        {PngWriter().Ihdr(2, 1, 16, 2).Chunk("tRNS", {1, 2, 3, 4, 5, 6}).Idat({0, 1, 2, 3, 4, 5, 6, 1, 2, 3, 4, 5, 7}).Iend().bytes(),
         Rgb(1, 2, 3), Rgb(1, 3, 5)},
        {PngWriter().Ihdr(2, 1, 8, 3).Chunk("PLTE", palette).Chunk("tRNS", {128}).Idat({0, 0, 1}).Iend().bytes(),
         Rgb((255 * 128 + 127 + 255) / 256, (2 * 127 + 255) / 256, (3 * 127 + 255) / 256), Rgb(0, 255, 0)},
    };
    for (const auto& c : cases) {
        LoadPNG decoder;
        decoder.setSetTrans(true);
        decoder.SetOwnBkgndColor(true, Rgb(1, 2, 3));
        auto result = DecodeInto(decoder, c.file);
        ASSERT_TRUE(result.dib());
        EXPECT_TRUE(decoder.HaveTransparence());
        EXPECT_FALSE(decoder.HaveAlpha());
        EXPECT_EQ(result.dib()->bitCount(), 24);
        EXPECT_EQ(result.dib()->pixel(0, 0), c.first);
        EXPECT_EQ(result.dib()->pixel(1, 0), c.second);

        LoadPNG plain; // without SetTrans the tRNS is only reported
        auto opaque = DecodeInto(plain, c.file);
        EXPECT_TRUE(plain.HaveTransparence());
        EXPECT_NE(opaque.dib()->bitCount(), 24 + 8);
    }
}

// The same pixels stored as the seven Adam7 passes (filter None): every pass row holds the
// pixels of its columns, their bits packed from the most significant end.
std::vector<uint8_t> Interlaced(const std::vector<uint8_t>& packed, int32_t width, int32_t height, int bits)
{
    size_t rowBytes = static_cast<size_t>(PackedRowBytes(width, bits));
    auto bitAt = [&](const uint8_t* row, int64_t bit) { return (row[bit / 8] >> (7 - bit % 8)) & 1; };
    std::vector<uint8_t> data;
    for (int pass = 0; pass < kAdam7Passes; ++pass) {
        if (PassColumns(width, pass) == 0)
            continue;
        for (int64_t r = 0; r < PassRows(height, pass); ++r) {
            const uint8_t* source = packed.data() + static_cast<size_t>(kAdam7[pass].firstRow + r * kAdam7[pass].rowStep) * rowBytes;
            std::vector<uint8_t> row(static_cast<size_t>(PassRowBytes(width, bits, pass)) + 1, 0);
            for (int64_t i = 0; i < PassColumns(width, pass); ++i)
                for (int b = 0; b < bits; ++b)
                    if (bitAt(source, (kAdam7[pass].firstColumn + i * kAdam7[pass].columnStep) * bits + b))
                        row[1 + static_cast<size_t>((i * bits + b) / 8)] |= static_cast<uint8_t>(0x80 >> ((i * bits + b) % 8));
            data.insert(data.end(), row.begin(), row.end());
        }
    }
    return data;
}

// Pass rows are converted on their own and then scattered, so each pixel must still meet its
// own background pixel and palette entry: an interlaced file decodes exactly as its twin.
TEST(LoadPNG, AnInterlacedFileDecodesAsItsNonInterlacedTwin)
{
    struct Case {
        int depth, colorType;
        bool alpha, trans;
    };
    const Case cases[] = {{8, 6, true, false}, {8, 6, false, false}, {4, 3, false, true}, {2, 3, false, false}, {16, 2, false, false}};
    platform::Dib backdrop(9, 7, 24, true);
    for (size_t i = 0; i < backdrop.bits().size(); ++i)
        backdrop.bits()[i] = static_cast<uint8_t>(i * 29);
    std::vector<uint8_t> palette(16 * 3), alphas(16);
    for (size_t i = 0; i < palette.size(); ++i)
        palette[i] = static_cast<uint8_t>(i * 53 + 7);
    for (size_t i = 0; i < alphas.size(); ++i)
        alphas[i] = static_cast<uint8_t>(i * 17);
    const int32_t width = 11, height = 10;
    for (const Case& c : cases) {
        PngHeader header{width, height, c.depth, c.colorType, 0, 0, 0};
        int bits = BitsPerPixel(header);
        std::vector<uint8_t> packed(static_cast<size_t>(PackedRowBytes(width, bits)) * height);
        for (size_t i = 0; i < packed.size(); ++i)
            packed[i] = static_cast<uint8_t>(i * 101 + 13);
        const platform::Dib* decoded[2] = {};
        Decoded results[2];
        for (int interlace = 0; interlace < 2; ++interlace) {
            PngWriter writer;
            writer.Ihdr(width, height, c.depth, c.colorType, interlace).Chunk("PLTE", palette).Chunk("tRNS", alphas);
            writer.Idat(interlace ? Interlaced(packed, width, height, bits) : WithFilterBytes(packed, packed.size() / height)).Iend();
            LoadPNG decoder;
            decoder.setSetAlpha(c.alpha);
            decoder.setSetTrans(c.trans);
            decoder.setBackgroundPicture(platform::Picture::FromBitmap(backdrop));
            decoder.SetToBkgrnd(true, 3, 1);
            results[interlace] = DecodeInto(decoder, writer.bytes());
            decoded[interlace] = results[interlace].dib();
            ASSERT_TRUE(decoded[interlace]) << c.colorType << "/" << c.depth;
        }
        EXPECT_EQ(decoded[1]->bitCount(), decoded[0]->bitCount());
        EXPECT_EQ(decoded[1]->palette(), decoded[0]->palette());
        EXPECT_EQ(decoded[1]->bits(), decoded[0]->bits()) << c.colorType << "/" << c.depth;
    }
}

} // namespace
} // namespace vex::png
