// DrawText: the calc rectangles measured under GDI for the default font, line breaking, the
// access-key underscore, clipping, background modes, and the Windows-1252 conversion.

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

TEST(DrawText, CalcRectsOfTheDefaultFontMatchGdi)
{
    int32_t height = 0;
    EXPECT_EQ(Calc("Caption", { 0, 0, 100, 100 }, dt::SingleLine, &height), (Rect { 0, 0, 36, 13 }));
    EXPECT_EQ(height, 13);
    EXPECT_EQ(Calc("The quick brown fox jumps over the lazy dog", { 0, 0, 60, 0 }, dt::WordBreak, &height), (Rect { 0, 0, 57, 52 }));
    EXPECT_EQ(height, 52);
    // A word wider than the rectangle stays whole on its line.
    EXPECT_EQ(Calc("Supercalifragilistic word", { 0, 0, 50, 0 }, dt::WordBreak), (Rect { 0, 0, 84, 26 }));
    // Vertical centring moves the calc rectangle's bottom (to below the centred line); the top
    // and left edges never move.
    EXPECT_EQ(Calc("Caption", { 100, 0, 200, 60 }, dt::SingleLine | dt::VCenter | dt::Center), (Rect { 100, 0, 136, 37 }));
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

TEST(DrawText, EmptyTextReturnsZeroAndLeavesTheRectangle)
{
    auto dc = WhiteSurface(20, 20);
    Rect rect { 1, 2, 3, 4 };
    EXPECT_EQ(dc->DrawText("", rect, dt::CalcRect | dt::SingleLine), 0);
    EXPECT_EQ(rect, (Rect { 1, 2, 3, 4 }));
    EXPECT_TRUE(PaintedPixels(*dc).empty());
}

TEST(DrawText, AccessKeyMarksAreNotDrawnAndUnderlineTheNextCharacter)
{
    EXPECT_EQ(Calc("&Caption", { 0, 0, 100, 0 }, dt::SingleLine), Calc("Caption", { 0, 0, 100, 0 }, dt::SingleLine));
    auto face = FontFace::For(FontDesc {});
    EXPECT_EQ(Calc("A&&B", { 0, 0, 100, 0 }, dt::SingleLine).right, face->Advance('A') + face->Advance('&') + face->Advance('B'));
    EXPECT_EQ(Calc("A&B", { 0, 0, 100, 0 }, dt::SingleLine).right, face->Advance('A') + face->Advance('B'));
    auto plain = WhiteSurface(60, 20), marked = WhiteSurface(60, 20);
    Rect a { 0, 0, 60, 20 }, b { 0, 0, 60, 20 };
    plain->DrawText("Caption", a, dt::SingleLine);
    marked->DrawText("&Caption", b, dt::SingleLine);
    PixelSet extra = PaintedPixels(*marked);
    for (auto p : PaintedPixels(*plain))
        extra.erase(p);
    // One row below the baseline (ascent 11 + 1), under the C, one pixel short of its advance.
    ASSERT_FALSE(extra.empty());
    for (auto [x, y] : extra)
        EXPECT_EQ(y, 12) << x;
    // The underscore is a MoveToEx/LineTo of the context: the current position ends there.
    auto face8 = FontFace::For(FontDesc {});
    EXPECT_EQ(marked->MoveToEx(0, 0), (Point { face8->Advance('C') - 1, 12 }));
    EXPECT_EQ(plain->MoveToEx(0, 0), (Point { 0, 0 }));
}

TEST(DrawText, ClipsToItsRectangleUnlessMeasuring)
{
    auto dc = WhiteSurface(100, 30);
    dc->SetBkMode(kBkTransparent);
    Rect rect { 10, 5, 30, 12 };
    dc->DrawText("A caption far wider than its box", rect, dt::SingleLine);
    PixelSet painted = PaintedPixels(*dc);
    ASSERT_FALSE(painted.empty());
    for (auto [x, y] : painted) {
        EXPECT_TRUE(x >= 10 && x < 30 && y >= 5 && y < 12) << x << "," << y;
    }
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

TEST(DrawText, OpaqueModeFillsTheCellTransparentDoesNot)
{
    auto dc = SoftDeviceContext::CreateSurface(60, 20);
    dc->FillRect({ 0, 0, 60, 20 }, Brush::Solid(Rgb(0, 90, 0)));
    Rect rect { 0, 0, 60, 20 };
    dc->DrawText("Caption", rect, dt::SingleLine); // OPAQUE is the default
    EXPECT_EQ(dc->GetPixel(35, 12), 0xFFFFFFu);    // inside the 36 x 13 cell
    EXPECT_EQ(dc->GetPixel(36, 0), Rgb(0, 90, 0)); // just right of it
    EXPECT_EQ(dc->GetPixel(0, 13), Rgb(0, 90, 0)); // just below it
    auto clear = SoftDeviceContext::CreateSurface(60, 20);
    clear->FillRect({ 0, 0, 60, 20 }, Brush::Solid(Rgb(0, 90, 0)));
    clear->SetBkMode(kBkTransparent);
    clear->DrawText("Caption", rect, dt::SingleLine);
    EXPECT_EQ(clear->GetPixel(35, 12), Rgb(0, 90, 0));
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

TEST(Fonts, DefaultFaceIsTheThirteenPixelBitmapStrike)
{
    auto face = FontFace::For(FontDesc {});
    EXPECT_TRUE(face->IsBitmapFace());
    EXPECT_NE(face->File().find("sserife.fon"), std::string::npos);
    EXPECT_EQ(face->Metrics().height, 13);
    EXPECT_EQ(face->Metrics().ascent, 11);
    EXPECT_EQ(face->Metrics().internalLeading, 2);
    EXPECT_EQ(face, FontFace::For(FontDesc {})); // cached
    FontDesc bigger;
    bigger.size = 24;
    EXPECT_EQ(FontFace::For(bigger)->Metrics().height, 40); // the 20-pixel strike enlarged twice
}

TEST(Fonts, TahomaIsAnOutlineFaceAndUnknownNamesFallBack)
{
    FontDesc tahoma;
    tahoma.name = "Tahoma";
    auto face = FontFace::For(tahoma);
    EXPECT_FALSE(face->IsBitmapFace());
    EXPECT_NE(face->File().find("tahoma.ttf"), std::string::npos);
    EXPECT_EQ(face->Metrics().height, 13);
    FontDesc unknown;
    unknown.name = "No Such Face Anywhere";
    auto fallback = FontFace::For(unknown);
    EXPECT_FALSE(fallback->File().empty());
    EXPECT_GT(fallback->Metrics().height, 0);
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
