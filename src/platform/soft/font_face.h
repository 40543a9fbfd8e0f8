#pragma once
// A font as GDI selects it for a 96-dpi screen: one face file at one size, its text metrics
// and its glyphs for the 256 bytes of Windows-1252, rendered once and kept.
//
// Faces are found through fontconfig, with Wine's font folder (Debian's fonts-wine) added, so
// that "MS Sans Serif" is the bitmap face of sserife.fon and "Tahoma" is tahoma.ttf. A name
// that no installed family carries falls back to fontconfig's best match for it (its aliases
// give metric-compatible faces, e.g. Arial -> Liberation Sans), and to "MS Sans Serif" when
// fontconfig finds nothing at all.
//
// Sizes: the cell height is -round(points * 96 / 72) (a character height). A bitmap face takes
// the largest strike whose character height (pixel height - internal leading) fits it, or its
// smallest strike, its metrics and advances enlarged by a whole factor when the size is about
// twice the strike or more (the glyph bitmaps themselves are drawn at the strike size);
// an outline face is scaled to that many pixels per em.
//
// Outline faces measure with their hinted outlines but draw an embedded bitmap strike of the
// size when the face has one (moving the pen by the bitmap's advances, which may be narrower):
// that is how the GDI under test behaves. Outlines without a strike are drawn anti-aliased
// with 17 levels.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/font.h"

namespace vex::platform::soft {

struct Glyph {
    int32_t advance = 0;    // width in text extents (GetTextExtentPoint, DrawText's layout)
    int32_t penAdvance = 0; // pen movement when drawing (an embedded bitmap's own advance)
    int32_t left = 0;    // bitmap offset from the pen position
    int32_t top = 0;     // bitmap rows above the baseline
    int32_t width = 0;
    int32_t rows = 0;
    // Coverage per pixel, row-major, 0..16 (16 = fully the text colour): bitmap faces and
    // embedded strikes give only 0 and 16.
    std::vector<uint8_t> coverage;
};

struct TextMetrics {
    int32_t height = 0;
    int32_t ascent = 0;
    int32_t descent = 0;
    int32_t internalLeading = 0;
    int32_t externalLeading = 0;
    int32_t averageWidth = 0;
    // Underline and strikeout bars: top row relative to the baseline (positive = below) and
    // thickness.
    int32_t underlineTop = 0;
    int32_t underlineThickness = 1;
    int32_t strikeoutTop = 0;
    int32_t strikeoutThickness = 1;
};

class FontFace {
public:
    // The face for a font description; never null (the fallback chain ends in a built-in
    // blank face if no font file can be opened at all).
    static std::shared_ptr<FontFace> For(const FontDesc& font);

    ~FontFace();
    const TextMetrics& Metrics() const { return metrics_; }
    const Glyph& GlyphFor(unsigned char byte); // Windows-1252 byte
    int32_t Advance(unsigned char byte) { return GlyphFor(byte).advance; }
    const std::string& File() const { return file_; }
    bool IsBitmapFace() const { return bitmapFace_; }

    // The cell height GDI asks for: -round(points * 96 / 72).
    static int32_t CellHeight(float points);

private:
    FontFace() = default;
    void Load(const std::string& file, int index, int32_t emHeight, bool bold, bool italic);
    Glyph Render(unsigned char byte);

    struct FreeTypeFace;
    std::unique_ptr<FreeTypeFace> face_;
    std::string file_;
    bool bitmapFace_ = false;
    bool fakeBold_ = false;
    bool fakeItalic_ = false;
    bool fakeItalicRequested_ = false;
    int32_t scale_ = 1; // whole-number enlargement of a bitmap face
    TextMetrics metrics_;
    std::array<std::unique_ptr<Glyph>, 256> glyphs_ {};
};

} // namespace vex::platform::soft
