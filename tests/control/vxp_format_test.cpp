// The .vxp text file: its value syntax, pictures, errors with line numbers, hostile input and
// atomic saving.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "base/runtime_error.h"
#include "control/base64.h"
#include "control/vxp_format.h"
#include "raises.h"

namespace vex::control {
namespace {

using vex::testing::RaisedBy;

// The error a text raises: number and description.
std::pair<int32_t, std::string> ErrorOf(const std::string& text)
{
    return vex::testing::ErrorRaisedBy([&] { ParseVxp(text); });
}

TEST(VxpFormat, ScalarsKeepTheirTypes)
{
    const std::pair<std::string, PropertyValue> cases[] = {
        { "12", int16_t(12) }, { "40000", int32_t(40000) }, { "7&", int32_t(7) },
        { "&H80000012&", static_cast<int32_t>(0x80000012u) }, { "&hff", int32_t(255) }, { "8.25!", 8.25f }, { "1.5", 1.5f },
        { "True", true }, { "  False   # trailing comment", false }, { "-32768", int16_t(-32768) }, { "3%", int16_t(3) },
        { "\"a \\\"q\\\" \\\\ \\n\\t\\x01\\xE9\"", std::string("a \"q\" \\ \n\t\x01\xE9") },
        { "1e-400", 0.0f }, // too small to tell from zero
        { "-0.000001e-99999999999999999999!", 0.0f },
    };
    for (const auto& [text, value] : cases) {
        MemoryPropertyBag bag = ParseVxp("# comment\n  A   = " + text + "\n\n");
        ASSERT_TRUE(bag.Get("A")) << text;
        EXPECT_EQ(TypeOf(*bag.Get("A")), TypeOf(value)) << text;
        EXPECT_TRUE(SameValue(*bag.Get("A"), value)) << text;
    }
}

TEST(VxpFormat, FormattedTextParsesBackToTheSameValues)
{
    MemoryPropertyBag bag;
    bag.Set("Small", int16_t(-7));
    bag.Set("Colour", int32_t(0x80000012));
    bag.Set("Size", 9.75f);
    bag.Set("Flag", true);
    bag.Set("Text", std::string("\"quoted\"\r\n\x7F end"));
    // The largest single is written 3.4028235e+38!, above it as a double.
    bag.Set("Font", platform::FontDesc { "Arial Black", -std::numeric_limits<float>::max(), false, true, true, false });
    bag.Set("Largest", std::numeric_limits<float>::max());
    platform::Dib colour(3, 2, 24, false);
    for (size_t at = 0; at < colour.bits().size(); ++at)
        colour.bits()[at] = static_cast<uint8_t>(at * 37);
    bag.Set("Picture", platform::Picture::FromBitmap(colour));
    bag.Set("Empty", platform::PictureRef());
    MemoryPropertyBag back = ParseVxp(FormatVxp(bag));
    ASSERT_EQ(back.Entries().size(), bag.Entries().size());
    for (size_t at = 0; at < bag.Entries().size(); ++at) {
        const auto& [key, value] = bag.Entries()[at];
        EXPECT_EQ(back.Entries()[at].first, key);
        EXPECT_EQ(TypeOf(back.Entries()[at].second), TypeOf(value)) << key;
        if (TypeOf(value) != ValueType::Picture) {
            EXPECT_TRUE(SameValue(back.Entries()[at].second, value)) << key;
        }
    }
    auto picture = std::get<platform::PictureRef>(*back.Get("Picture"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->bitmap().bits(), colour.bits());
    EXPECT_FALSE(picture->bitmap().topDown());
    EXPECT_FALSE(std::get<platform::PictureRef>(*back.Get("Empty")));
}

TEST(VxpFormat, MalformedTextNamesItsLine)
{
    struct Case {
        const char* text;
        int32_t number;
        const char* line;
    };
    const Case cases[] = {
        { "A = 1\nB 2\n", 321, "line 2:" },
        { "A = 1\n\n= 3\n", 321, "line 3:" },
        { "A = \"open\n", 321, "line 1:" },
        { "A = \"x\" y\n", 321, "line 1:" },
        { "A = \"\\q\"\n", 321, "line 1:" },
        { "A = 12abc\n", 321, "line 1:" },
        { "A =\n", 321, "line 1:" },
        { "A = 1\nA = 2\n", 321, "line 2:" },
        { "A = 1\nB = 2\nFont {\n}\nB = 3\nA = 4\nFont {\n}\n", 321, "line 5:" }, // the first repeat
        { "A = nan\n", 321, "line 1:" },
        { "A = inf!\n", 321, "line 1:" },
        { "A = -infinity\n", 321, "line 1:" },
        { "}\n", 321, "line 1:" },
        { "Font {\n Name = \"x\"\n", 321, "line 1:" },
        { "Font {\n Colour = 3\n}\n", 321, "line 2:" },
        { "A = 1.5%\n", 321, "line 1:" },
    };
    for (const Case& c : cases) {
        auto [number, description] = ErrorOf(c.text);
        EXPECT_EQ(number, c.number) << c.text;
        EXPECT_NE(description.find(c.line), std::string::npos) << c.text << " -> " << description;
    }
}

TEST(VxpFormat, HostileNumbersOverflow)
{
    for (const char* text : { "A = 99999999999999999999\n", "A = 2147483648&\n", "A = 40000%\n", "A = &H100000000\n", "A = &H000000001&\n",
             "A = 1e39\n", "A = -1e400\n", "A = 1e999999!\n" }) {
        auto [number, description] = ErrorOf(text);
        EXPECT_EQ(number, 6) << text;
        EXPECT_NE(description.find("line 1"), std::string::npos) << description;
    }
}

TEST(VxpFormat, HostilePicturesEndInInvalidPicture)
{
    auto picture = [](const std::string& body) { return "\n\nPicture {\n" + body + "}\n"; };
    const std::string good = "Type = 1\nWidth = 1\nHeight = 1\nBitCount = 32\n";
    const std::string cases[] = {
        picture(good + "Bits = \"AAA*\"\n"),                                      // bad base64 character
        picture(good + "Bits = \"AAAAA\"\n"),                                     // bad length
        picture(good + "Bits = \"AA==AAAA\"\n"),                                  // padding inside
        picture(good + "Bits = \"AAAA\"\n"),                                      // 3 bytes, needs 4
        picture("Type = 1\nWidth = 32767\nHeight = 32767\nBitCount = 32\nBits = \"AAAAAA==\"\n"), // giant claim
        picture("Type = 1\nWidth = 100000\nHeight = 1\nBitCount = 32\nBits = \"\"\n"),
        picture("Type = 1\nWidth = -1\nHeight = 1\nBitCount = 32\nBits = \"\"\n"),
        picture("Type = 1\nWidth = 1\nHeight = 1\nBitCount = 7\nBits = \"AAAAAA==\"\n"),
        picture("Type = 1\nHeight = 1\nBitCount = 32\n"),                         // no width
        picture("Type = 2\n"),                                                    // metafile
        picture(good + "Bits = \"AAAAAA==\"\nPalette = \"AAA=\"\n"),              // palette not 4-byte entries
        picture("Type = 3\nColor {\n" + good + "Bits = \"AAAAAA==\"\n}\n"),     // icon without mask
    };
    for (const std::string& text : cases) {
        auto [number, description] = ErrorOf(text);
        EXPECT_EQ(number, 481) << text;
        EXPECT_NE(description.find("line "), std::string::npos) << description;
    }
    // And the well-formed one-pixel picture loads.
    MemoryPropertyBag bag = ParseVxp(picture(good + "Bits = \"AAAA\"\nBits = \"/w==\"\n"));
    auto loaded = std::get<platform::PictureRef>(*bag.Get("Picture"));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->bitmap().bits(), (platform::PixelBytes { 0, 0, 0, 255 }));
}

TEST(VxpFormat, DeepNestingIsRefused)
{
    std::string text;
    for (int depth = 0; depth < 100; ++depth)
        text += "B {\n";
    EXPECT_EQ(ErrorOf(text).first, 321);
}

TEST(VxpFormat, Base64RoundTripsEveryLength)
{
    std::vector<uint8_t> data;
    for (int length = 0; length < 20; ++length) {
        std::string text = EncodeBase64(data.data(), data.size());
        EXPECT_EQ(text.size() % 4, 0u);
        EXPECT_EQ(DecodeBase64(text), data);
        data.push_back(static_cast<uint8_t>(length * 53 + 7));
    }
}

class VxpFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        directory = std::filesystem::temp_directory_path()
            / ("vxp-test-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-"
                + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(directory);
        std::filesystem::create_directories(directory);
    }
    void TearDown() override { std::filesystem::remove_all(directory); }

    static std::string Contents(const std::filesystem::path& path)
    {
        std::ifstream in(path);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    size_t FileCount() const
    {
        return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(directory), {}));
    }

    std::filesystem::path directory;
};

TEST_F(VxpFile, SaveReplacesTheWholeFileAndLeavesNoTemporary)
{
    std::string path = (directory / "panel.vxp").string();
    MemoryPropertyBag first;
    first.Set("Caption", std::string(5000, 'x'));
    WriteVxpFile(path, first);
    MemoryPropertyBag second;
    second.Set("Caption", std::string("short"));
    WriteVxpFile(path, second);
    EXPECT_EQ(Contents(path), FormatVxp(second));
    EXPECT_EQ(FileCount(), 1u);
    EXPECT_EQ(std::get<std::string>(*ReadVxpFile(path).Get("Caption")), "short");
}

TEST_F(VxpFile, AFailedSaveKeepsThePreviousFile)
{
    // The target is a directory holding a file: the rename cannot replace it.
    std::filesystem::path target = directory / "panel.vxp";
    std::filesystem::create_directories(target);
    std::ofstream(target / "keep") << "previous";
    MemoryPropertyBag bag;
    bag.Set("A", int16_t(1));
    EXPECT_EQ(RaisedBy([&] { WriteVxpFile(target.string(), bag); }), 75);
    EXPECT_EQ(Contents(target / "keep"), "previous");
    EXPECT_EQ(FileCount(), 1u); // no temporary left behind
}

TEST_F(VxpFile, MissingAndOversizedFiles)
{
    EXPECT_EQ(RaisedBy([&] { ReadVxpFile((directory / "none.vxp").string()); }), 53);
    std::filesystem::path big = directory / "big.vxp";
    {
        std::ofstream out(big);
        out.seekp(static_cast<std::streamoff>(kMaxVxpFileBytes));
        out << '\n';
    }
    EXPECT_EQ(RaisedBy([&] { ReadVxpFile(big.string()); }), 321);
}

} // namespace
} // namespace vex::control
