// DrawText as the caption renderer calls it: the nine single-line alignments, word breaking,
// several lines, empty strings, text wider than its rectangle, in the bitmap "MS Sans Serif"
// sizes and in Tahoma. Each call's height and calc rectangle are facts.

#include <cmath>

#include "helpers.h"

namespace vex::drawtest {

namespace {

using platform::FontDesc;
namespace dt = platform::dt;

void Ground(DeviceContext& dc, int32_t width, int32_t height)
{
    dc.FillRect({ 0, 0, width, height }, Brush::Solid(Rgb(250, 250, 240)));
}

std::string FormatName(uint32_t format)
{
    std::string name;
    name += (format & dt::Center) ? "C" : (format & dt::Right) ? "R" : "L";
    name += (format & dt::VCenter) ? "V" : (format & dt::Bottom) ? "B" : "T";
    if (format & dt::SingleLine)
        name += "s";
    if (format & dt::WordBreak)
        name += "w";
    return name;
}

// Measures, then draws, recording both as facts; the box around the rectangle shows its edges.
void Caption(DeviceContext& dc, Facts& facts, std::string_view text, Rect rect, uint32_t format)
{
    Rect measured = rect;
    int32_t calcHeight = dc.DrawText(text, measured, format | dt::CalcRect);
    facts.AddRect(FormatName(format) + " calc h=" + std::to_string(calcHeight), measured);
    dc.FrameRect({ rect.left - 1, rect.top - 1, rect.right + 1, rect.bottom + 1 }, Brush::Solid(Rgb(200, 160, 160)));
    Rect drawn = rect;
    int32_t height = dc.DrawText(text, drawn, format);
    facts.AddRect(FormatName(format) + " draw h=" + std::to_string(height), drawn);
}

struct Face {
    const char* slug;
    FontDesc font;
};

std::vector<Face> Faces()
{
    auto font = [](const char* name, float size, bool bold = false) {
        FontDesc desc;
        desc.name = name;
        desc.size = size;
        desc.bold = bold;
        return desc;
    };
    return {
        { "sans8", font("MS Sans Serif", 8.25f) },
        { "sans10", font("MS Sans Serif", 9.75f) },
        { "sans12", font("MS Sans Serif", 12.0f) },
        { "sans14", font("MS Sans Serif", 13.5f) },
        { "sans18", font("MS Sans Serif", 18.0f) },
        { "sans24", font("MS Sans Serif", 24.0f) },
        { "sans8bold", font("MS Sans Serif", 8.25f, true) },
        { "tahoma8", font("Tahoma", 8.25f) },
        { "tahoma12", font("Tahoma", 12.0f) },
        { "tahoma10bold", font("Tahoma", 9.75f, true) },
    };
}

} // namespace

VEX_DRAWING_CASES(text_cases)
{
    static constexpr uint32_t kHorizontal[] = { dt::Left, dt::Center, dt::Right };
    static constexpr uint32_t kVertical[] = { dt::Top, dt::VCenter, dt::Bottom };

    for (const Face& face : Faces()) {
        // The nine single-line positions in one surface, black on a light ground, transparent.
        cases.push_back({ std::string("text_") + face.slug + "_nine_alignments", 330, 200,
            [font = face.font](DeviceContext& dc, Facts& facts) {
                Ground(dc, 330, 200);
                dc.SelectFont(font);
                dc.SetBkMode(platform::kBkTransparent);
                dc.SetTextColor(Rgb(0, 0, 0));
                for (int row = 0; row < 3; ++row) {
                    for (int column = 0; column < 3; ++column) {
                        Rect rect { 4 + column * 108, 4 + row * 65, 104 + column * 108, 64 + row * 65 };
                        Caption(dc, facts, "Caption", rect, kHorizontal[column] | kVertical[row] | dt::SingleLine);
                    }
                }
            } });

        // Word breaking: short words, a word longer than the width, explicit line breaks,
        // trailing spaces; in all three horizontal alignments.
        cases.push_back({ std::string("text_") + face.slug + "_word_break", 330, 260,
            [font = face.font](DeviceContext& dc, Facts& facts) {
                Ground(dc, 330, 260);
                dc.SelectFont(font);
                dc.SetBkMode(platform::kBkTransparent);
                dc.SetTextColor(Rgb(0, 0, 128));
                for (int column = 0; column < 3; ++column) {
                    int32_t left = 4 + column * 108;
                    Caption(dc, facts, "The quick brown fox jumps over the lazy dog", { left, 4, left + 60, 84 },
                        kHorizontal[column] | dt::WordBreak);
                    Caption(dc, facts, "Supercalifragilistic word", { left, 90, left + 50, 160 },
                        kHorizontal[column] | dt::WordBreak);
                    Caption(dc, facts, "Line one\nLine two\r\nthree  ", { left, 166, left + 100, 256 },
                        kHorizontal[column] | dt::WordBreak);
                }
            } });
    }

    // Empty strings, text wider than its rectangle (clipped), a rectangle of zero size, and
    // characters outside ASCII that Windows-1252 has (and one it has not).
    cases.push_back({ "text_edges", 200, 120, [](DeviceContext& dc, Facts& facts) {
        Ground(dc, 200, 120);
        dc.SetBkMode(platform::kBkTransparent);
        dc.SetTextColor(Rgb(128, 0, 0));
        Caption(dc, facts, "", { 4, 4, 60, 20 }, dt::SingleLine | dt::Center | dt::VCenter);
        Caption(dc, facts, "", { 64, 4, 120, 20 }, dt::WordBreak);
        Caption(dc, facts, "A caption far wider than its box", { 4, 26, 60, 40 }, dt::SingleLine | dt::Left);
        Caption(dc, facts, "A caption far wider than its box", { 64, 26, 120, 40 }, dt::SingleLine | dt::Center);
        Caption(dc, facts, "A caption far wider than its box", { 124, 26, 180, 40 }, dt::SingleLine | dt::Right);
        Caption(dc, facts, "Tall", { 4, 46, 60, 52 }, dt::SingleLine | dt::VCenter);
        Caption(dc, facts, "Zero", { 70, 50, 70, 50 }, dt::SingleLine);
        Caption(dc, facts, "Ñandú café €5 — ok", { 4, 60, 196, 76 }, dt::SingleLine);
        Caption(dc, facts, "Œuvre «» ÿ 漢", { 4, 80, 196, 96 }, dt::SingleLine);
        Caption(dc, facts, "Two\nlines", { 4, 100, 100, 116 }, dt::SingleLine);
    } });

    // Without DT_SINGLELINE the vertical flags do nothing: word-broken and multi-line text
    // starts at the top whatever VCENTER or BOTTOM say.
    cases.push_back({ "text_multiline_vertical_flags", 330, 80, [](DeviceContext& dc, Facts& facts) {
        Ground(dc, 330, 80);
        dc.SetBkMode(platform::kBkTransparent);
        for (int column = 0; column < 3; ++column) {
            int32_t left = 4 + column * 108;
            uint32_t vertical = column == 0 ? dt::Top : column == 1 ? dt::VCenter : dt::Bottom;
            Caption(dc, facts, "Two short\nlines", { left, 4, left + 100, 76 }, dt::Center | vertical);
            Caption(dc, facts, "wrapped words here", { left, 4, left + 50, 76 }, dt::Right | vertical | dt::WordBreak);
        }
    } });

    // Access keys: '&' underlines the next character ("&&" is a literal '&'), in single lines,
    // centred text and word-broken text, and a mark at the very end.
    cases.push_back({ "text_access_keys", 220, 100, [](DeviceContext& dc, Facts& facts) {
        Ground(dc, 220, 100);
        dc.SetBkMode(platform::kBkTransparent);
        dc.SetTextColor(Rgb(0, 0, 0));
        Caption(dc, facts, "&File", { 4, 4, 100, 20 }, dt::SingleLine);
        Caption(dc, facts, "Save && E&xit", { 104, 4, 216, 20 }, dt::SingleLine | dt::Center);
        Caption(dc, facts, "Trailing &", { 4, 24, 100, 40 }, dt::SingleLine | dt::Right);
        Caption(dc, facts, "Open the &recent file list now", { 104, 24, 160, 96 }, dt::WordBreak);
        Caption(dc, facts, "x & y", { 4, 44, 100, 60 }, dt::SingleLine);
        platform::Point after = dc.MoveToEx(0, 0);
        facts.Add("position after underscore " + std::to_string(after.x) + "," + std::to_string(after.y));
    } });

    // Opaque background mode fills each line's cell with the background colour (white).
    cases.push_back({ "text_opaque_and_colours", 200, 60, [](DeviceContext& dc, Facts& facts) {
        dc.FillRect({ 0, 0, 200, 60 }, Brush::Solid(Rgb(0, 90, 0)));
        dc.SetTextColor(Rgb(255, 0, 0));
        facts.Add("default bk mode " + std::to_string(dc.SetBkMode(platform::kBkOpaque)));
        Caption(dc, facts, "Opaque cell", { 4, 4, 196, 20 }, dt::SingleLine);
        Caption(dc, facts, "Opaque two words", { 4, 24, 60, 58 }, dt::WordBreak | dt::Center);
        dc.SetBkMode(platform::kBkTransparent);
        dc.SetTextColor(Rgb(255, 255, 0));
        Caption(dc, facts, "Transparent", { 100, 24, 196, 58 }, dt::SingleLine | dt::Bottom | dt::Right);
    } });

    cases.push_back({ "text_styles", 220, 90, [](DeviceContext& dc, Facts& facts) {
        Ground(dc, 220, 90);
        dc.SetBkMode(platform::kBkTransparent);
        const char* names[] = { "MS Sans Serif", "Tahoma" };
        for (int n = 0; n < 2; ++n) {
            for (int style = 0; style < 4; ++style) {
                FontDesc font;
                font.name = names[n];
                font.size = 9.75f;
                font.italic = style == 1;
                font.underline = style == 2;
                font.strikethrough = style == 3;
                dc.SelectFont(font);
                int32_t left = 4 + n * 110;
                Caption(dc, facts, "Styled Ag", { left, 4 + style * 21, left + 100, 22 + style * 21 }, dt::SingleLine);
            }
        }
    } });
}

} // namespace vex::drawtest
