// DrawText where the drawing battery does not reach: line endings, extreme rectangles, the
// Windows-1252 conversion, font selection and line-break classes. Its pixels and calc rectangles
// are checked against GDI by the battery (tests/win32/cases/text.cpp).

#include <gtest/gtest.h>

#include <climits>

#include "platform/soft/code_page.h"
#include "platform/soft/font_face.h"
#include "platform/soft/line_breaks.h"
#include "soft_test_support.h"

namespace vex::platform::soft::testing {
namespace {

Rect Calc(std::string_view text, Rect rect, uint32_t format, int32_t* height = nullptr, FontDesc font = {})
{
    auto dc = WhiteSurface(10, 10);
    dc->SelectFont(font);
    int32_t h = dc->DrawText(text, rect, format | dt::CalcRect);
    if (height)
        *height = h;
    return rect;
}

TEST(DrawText, LineEndingsAndSingleLine)
{
    int32_t height = 0;
    Calc("Line one\nLine two\r\nthree  ", { 0, 0, 200, 0 }, dt::WordBreak, &height);
    EXPECT_EQ(height, 39);
    Calc("a\n\rb\r\rc", { 0, 0, 200, 0 }, 0, &height); // LF CR is one break, CR CR two
    EXPECT_EQ(height, 13 * 4);
    Calc("Two\nlines", { 0, 0, 200, 0 }, dt::SingleLine, &height);
    EXPECT_EQ(height, 13);
}

TEST(DrawText, ExtremeRectanglesAreHandledWithoutOverflow)
{
    auto dc = WhiteSurface(20, 20);
    Rect wide { INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX };
    EXPECT_GT(dc->DrawText("Caption &x\nline", wide, dt::WordBreak | dt::Center), 0);
    Rect measured { INT32_MAX - 5, 0, INT32_MAX, 10 };
    EXPECT_EQ(dc->DrawText("Caption", measured, dt::SingleLine | dt::CalcRect), 13);
    Rect inverted { 10, 10, 0, 0 };
    EXPECT_EQ(dc->DrawText("word word word", inverted, dt::WordBreak), 13);
}

TEST(DrawText, TextFollowsWindows1252)
{
    EXPECT_EQ(Utf8ToCodePage1252("caf\xC3\xA9 \xE2\x82\xAC 5"), "caf\xE9 \x80 5");
    EXPECT_EQ(Utf8ToCodePage1252("\xE6\xBC\xA2"), "?");       // a CJK character the page lacks
    EXPECT_EQ(Utf8ToCodePage1252("\xF0\x9F\x98\x80"), "??");  // outside the BMP: a surrogate pair
    EXPECT_EQ(Utf8ToCodePage1252("a\xFF" "b\xC3"), "a?b?");   // malformed bytes
    EXPECT_EQ(CodePage1252ToUnicode(0x80), U'\u20AC');
    EXPECT_EQ(CodePage1252ToUnicode(0x81), U'\u0081');
    EXPECT_EQ(Calc("\xE2\x82\xAC", { 0, 0, 100, 0 }, dt::SingleLine).right, FontFace::For(FontDesc {})->Advance(0x80));
}

TEST(LineBreaks, SpacesHyphensAndPunctuation)
{
    auto breaks = [](std::string_view text) {
        std::string marks;
        std::vector<bool> soft = SoftBreaks(text);
        for (size_t i = 0; i < text.size(); ++i)
            marks += soft[i] ? '|' : '.';
        return marks;
    };
    EXPECT_EQ(breaks("ab  cd"), "....|.");
    EXPECT_EQ(breaks("well-known"), "....." "|....");
    EXPECT_EQ(breaks("a -5"), "..|.");
    EXPECT_EQ(breaks("x (y) z."), "..|...|.");
    EXPECT_EQ(breaks("3.14, ok"), "......|.");
}

} // namespace
} // namespace vex::platform::soft::testing
