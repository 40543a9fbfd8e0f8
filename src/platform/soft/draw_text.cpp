#include "platform/soft/draw_text.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/device_context.h"
#include "platform/soft/code_page.h"
#include "platform/soft/font_face.h"
#include "platform/soft/line_breaks.h"
#include "platform/soft/raster.h"

namespace vex::platform::soft {
namespace {

constexpr char kPrefix = '&';
constexpr char kAlphaPrefix = 0x1E;
constexpr char kKanaPrefix = 0x1F;
constexpr uint32_t kNoClip = 0x100;

// ---- Measuring ------------------------------------------------------------------------------

struct Extent {
    int32_t width = 0;
    int32_t fit = 0; // characters whose running width stays within the limit
};

Extent Measure(FontFace& face, std::string_view text, int64_t limit)
{
    Extent extent;
    bool fitting = true;
    for (char c : text) {
        extent.width += face.Advance(static_cast<unsigned char>(c));
        if (fitting && extent.width <= limit)
            ++extent.fit;
        else
            fitting = false;
    }
    return extent;
}

// ---- Line breaking --------------------------------------------------------------------------

struct Line {
    std::string text;     // what is drawn, access-key marks removed
    int32_t width = 0;    // its extent
    int prefixOffset = -1; // the underlined character, or -1
};

// Shortens a line that does not fit at a break opportunity. charsFit characters fit;
// returns how many of the line's characters are used up (the break and a space after it).
size_t BreakWords(std::string& line, uint32_t format, int32_t charsFit)
{
    auto length = static_cast<int32_t>(line.size());
    std::vector<bool> soft = SoftBreaks(line);
    int32_t p = charsFit;
    int32_t i = charsFit;
    bool wordFits = true;
    if (charsFit == 0) {
        wordFits = false;
    } else if (soft[static_cast<size_t>(i)]) {
        --p; // the word just fitted
    } else {
        // Back to the last break opportunity; p ends on the character before it.
        while (i > 0 && !soft[static_cast<size_t>((--i) + 1)])
            --p;
        --p;
        wordFits = i != 0 || soft[static_cast<size_t>(i + 1)];
    }
    size_t used = 0;
    if (wordFits) {
        if (!(format & (dt::Right | dt::Center)) || line[static_cast<size_t>(p)] != ' ')
            ++p;
        bool nextIsSpace = p < length && line[static_cast<size_t>(p)] == ' ';
        line.resize(static_cast<size_t>(p));
        used = line.size() + (nextIsSpace ? 1 : 0);
    } else {
        // No break opportunity: the whole word stays on the line, one following space is used up.
        p = charsFit;
        while (p < length && line[static_cast<size_t>(p)] != ' ')
            ++p;
        used = static_cast<size_t>(p) + (p < length ? 1 : 0);
        line.resize(static_cast<size_t>(p));
    }
    return used;
}

// Moves over `used` characters of the line as it was drawn, counting the access-key marks that
// were removed from it (only marks within the `available` characters the segment spanned).
size_t SkipDrawnCharacters(std::string_view raw, size_t available, size_t used)
{
    size_t at = 0;
    auto spare = static_cast<int64_t>(available) - static_cast<int64_t>(used);
    while (used--) {
        if ((raw[at] == kPrefix || raw[at] == kAlphaPrefix) && spare-- > 0)
            ++at;
        ++at;
    }
    return at;
}

// The next line of text from position `at` (advanced past it). Returns false at the end.
bool NextLine(FontFace& face, std::string_view text, size_t& at, int64_t width, uint32_t format, Line& line)
{
    line = Line {};
    size_t start = at;
    while (at < text.size()) {
        char c = text[at];
        if ((c == '\r' || c == '\n') && !(format & dt::SingleLine))
            break;
        if (text.size() - at <= 1) {
            line.text.push_back(c);
            ++at;
            continue;
        }
        if (c == kPrefix || c == kAlphaPrefix) {
            ++at; // the mark itself is not drawn
            if (text[at] == kPrefix) {
                line.text.push_back(text[at++]);
            } else if (line.prefixOffset == -1) {
                line.prefixOffset = static_cast<int>(line.text.size());
            }
        } else if (c == kKanaPrefix) {
            at += 2; // katakana access keys are dropped with their letter
        } else {
            line.text.push_back(c);
            ++at;
        }
    }
    at = std::min(at, text.size());

    Extent extent = Measure(face, line.text, width);
    line.width = extent.width;
    bool broken = false;
    if (extent.fit < static_cast<int32_t>(line.text.size()) && (format & dt::WordBreak)) {
        size_t used = BreakWords(line.text, format, extent.fit);
        line.width = Measure(face, line.text, 0).width;
        at = start + SkipDrawnCharacters(text.substr(start), at - start, used);
        broken = true;
        if (line.prefixOffset >= static_cast<int>(line.text.size()))
            line.prefixOffset = -1;
    }
    if (broken)
        return at < text.size();
    if (at >= text.size())
        return false;
    // CR, LF, CR LF or LF CR end the line.
    char ending = text[at++];
    if (at < text.size() && (text[at] == '\r' || text[at] == '\n') && text[at] != ending)
        ++at;
    return at < text.size();
}

// ---- Drawing --------------------------------------------------------------------------------

struct Clip {
    int64_t left, top, right, bottom;
};

// Anti-aliased glyph pixels, 17 coverage levels. A level does not mix linearly: it bounds the
// result between a darkest and a lightest value taken from a fixed perceptual ramp, the way the
// GDI under test blends grey glyphs (levels 0 and 1 leave the pixel alone).
constexpr uint8_t kCoverageRamp[17] = { 0, 0x4d, 0x68, 0x7c, 0x8c, 0x9a, 0xa7, 0xb2, 0xbd, 0xc7, 0xd0, 0xd9, 0xe1, 0xe9, 0xf0, 0xf8, 0xff };

uint32_t BlendChannel(uint32_t under, uint32_t text, uint32_t level)
{
    if (under == text)
        return under;
    if (under > text) {
        uint32_t lightest = kCoverageRamp[16 - level] + ((0xFF - kCoverageRamp[16 - level]) * text) / 0xFF;
        return text + ((under - text) * (lightest - text)) / (0xFF - text);
    }
    uint32_t darkest = (kCoverageRamp[level] * text) / 0xFF;
    return text - ((text - under) * (text - darkest)) / text;
}

Pixel Blend(Pixel under, Pixel over, uint32_t level) // level 0..16
{
    if (level >= 16)
        return over;
    Pixel result = 0;
    for (int shift = 0; shift <= 16; shift += 8)
        result |= BlendChannel((under >> shift) & 0xFF, (over >> shift) & 0xFF, level) << shift;
    return result;
}

void FillClipped(SoftBitmap& target, const Clip& clip, int64_t left, int64_t top, int64_t right, int64_t bottom, Pixel pixel)
{
    FillSpanRect(target, std::max(left, clip.left), std::max(top, clip.top), std::min(right, clip.right),
        std::min(bottom, clip.bottom), pixel);
}

// ExtTextOut of one line at (x, y), the top-left of its cell.
void DrawLine(SoftBitmap& target, FontFace& face, const Line& line, int32_t x, int32_t y, const Clip& clip, const TextStyle& style)
{
    const TextMetrics& metrics = face.Metrics();
    int64_t baseline = int64_t { y } + metrics.ascent;
    if (style.opaque)
        FillClipped(target, clip, x, y, int64_t { x } + line.width, int64_t { y } + metrics.height, PixelFromColorRef(style.backgroundColor));
    Pixel ink = PixelFromColorRef(style.textColor);
    int64_t pen = x;
    for (char c : line.text) {
        const Glyph& glyph = face.GlyphFor(static_cast<unsigned char>(c));
        int64_t left = pen + glyph.left, top = baseline - glyph.top;
        int64_t x0 = std::max(left, clip.left), x1 = std::min(left + glyph.width, clip.right);
        int64_t y0 = std::max(top, clip.top), y1 = std::min(top + glyph.rows, clip.bottom);
        for (int64_t py = y0; py < y1; ++py) {
            const uint8_t* coverage = glyph.coverage.data() + (py - top) * glyph.width;
            Pixel* out = target.row(static_cast<int32_t>(py));
            for (int64_t px = x0; px < x1; ++px)
                if (uint8_t level = coverage[px - left]; level > 1)
                    out[px] = Blend(out[px], ink, level);
        }
        pen += glyph.penAdvance;
    }
    // Underline and strikeout bars span the line's extent.
    Clip whole { 0, 0, target.width(), target.height() };
    if (style.font.underline)
        FillClipped(target, whole, x, baseline + metrics.underlineTop, int64_t { x } + line.width,
            baseline + metrics.underlineTop + metrics.underlineThickness, ink);
    if (style.font.strikethrough)
        FillClipped(target, whole, x, baseline + metrics.strikeoutTop, int64_t { x } + line.width,
            baseline + metrics.strikeoutTop + metrics.strikeoutThickness, ink);
}

// The access key's underscore: one row below the baseline under the marked character, one
// pixel short of its advance (a LineTo that stops before its end).
void DrawUnderscore(SoftBitmap& target, FontFace& face, const Line& line, int32_t x, int32_t y, const Rect* rect, ColorRef color,
    Point& position)
{
    int64_t start = int64_t { x } + Measure(face, std::string_view(line.text).substr(0, static_cast<size_t>(line.prefixOffset)), 0).width;
    int64_t end = int64_t { x } + Measure(face, std::string_view(line.text).substr(0, static_cast<size_t>(line.prefixOffset) + 1), 0).width - 1;
    int64_t row = int64_t { y } + face.Metrics().ascent + 1;
    if (rect) {
        if (start > rect->right || end < rect->left || row < rect->top || row > rect->bottom)
            return;
        start = std::max<int64_t>(start, rect->left);
        end = std::min<int64_t>(end, rect->right);
    }
    Point from { static_cast<int32_t>(start), static_cast<int32_t>(row) }, to { static_cast<int32_t>(end), static_cast<int32_t>(row) };
    DrawLine(target, from, to, PixelFromColorRef(color));
    position = to;
}

} // namespace

int32_t DrawTextOn(SoftBitmap& target, std::string_view utf8, Rect& rect, uint32_t format, const TextStyle& style,
    Point& position)
{
    std::string text = Utf8ToCodePage1252(utf8);
    if (text.empty())
        return 0;
    std::shared_ptr<FontFace> face = FontFace::For(style.font);
    const TextMetrics& metrics = face->Metrics();
    if (format & dt::SingleLine)
        format &= ~dt::WordBreak;
    if (format & dt::CalcRect)
        format |= kNoClip;
    int32_t lineHeight = metrics.height;
    int64_t x = rect.left, y = rect.top;
    int64_t width = int64_t { rect.right } - rect.left;
    int32_t widest = 0;
    Clip clip { 0, 0, target.width(), target.height() };
    if (!(format & kNoClip))
        clip = Clip { std::max<int64_t>(rect.left, 0), std::max<int64_t>(rect.top, 0),
            std::min<int64_t>(rect.right, target.width()), std::min<int64_t>(rect.bottom, target.height()) };

    size_t at = 0;
    bool more = true;
    bool lastLine = false;
    Line line;
    do {
        lastLine = !(format & kNoClip) && y + lineHeight > rect.bottom;
        more = NextLine(*face, text, at, width, format, line);
        if (format & dt::Center)
            x = (int64_t { rect.left } + rect.right - line.width) / 2;
        else if (format & dt::Right)
            x = int64_t { rect.right } - line.width;
        if (format & dt::SingleLine) {
            if (format & dt::VCenter)
                y = rect.top + (int64_t { rect.bottom } - rect.top) / 2 - lineHeight / 2;
            else if (format & dt::Bottom)
                y = int64_t { rect.bottom } - lineHeight;
        }
        if (!(format & dt::CalcRect)) {
            DrawLine(target, *face, line, static_cast<int32_t>(x), static_cast<int32_t>(y), clip, style);
            if (line.prefixOffset != -1 && line.prefixOffset < static_cast<int>(line.text.size()))
                DrawUnderscore(target, *face, line, static_cast<int32_t>(x), static_cast<int32_t>(y),
                    (format & kNoClip) ? nullptr : &rect, style.textColor, position);
        } else {
            widest = std::max(widest, line.width);
        }
        y += lineHeight;
    } while (more && !lastLine);

    if (format & dt::CalcRect) {
        rect.right = static_cast<int32_t>(int64_t { rect.left } + widest); // wraps as GDI's would
        rect.bottom = static_cast<int32_t>(y);
    }
    auto height = static_cast<int32_t>(y - rect.top);
    return height == 0 ? 1 : height;
}

} // namespace vex::platform::soft
