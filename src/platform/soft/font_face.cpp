#include "platform/soft/font_face.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include FT_WINFONTS_H

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <mutex>
#include <strings.h>
#include <tuple>

#include "base/numeric.h"
#include "platform/soft/code_page.h"

namespace vex::platform::soft {

// ---- Libraries ------------------------------------------------------------------------------

// fontconfig loses track of a few hundred bytes while parsing its configuration, once per
// process. Sanitizer builds tell LeakSanitizer so here, for every program that draws text.
#if defined(__SANITIZE_ADDRESS__)
#define VEX_LEAK_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VEX_LEAK_SANITIZER 1
#endif
#endif
#ifdef VEX_LEAK_SANITIZER
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}
#endif

namespace {

constexpr const char* kWineFontFolder = "/usr/share/wine/fonts";
constexpr const char* kFallbackFamily = "MS Sans Serif";

std::mutex& FontMutex()
{
    static std::mutex mutex;
    return mutex;
}

FT_Library Library()
{
    static FT_Library library = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    return library;
}

FcConfig* Config()
{
    static FcConfig* config = [] {
        FcConfig* made = FcInitLoadConfigAndFonts();
        if (made)
            FcConfigAppFontAddDir(made, reinterpret_cast<const FcChar8*>(kWineFontFolder));
        return made;
    }();
    return config;
}

struct Candidate {
    std::string file;
    int index = 0;
    bool scalable = true;
    int weight = FC_WEIGHT_REGULAR;
    int slant = FC_SLANT_ROMAN;
};

std::string StringOf(FcPattern* pattern, const char* object)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch || !value)
        return {};
    return reinterpret_cast<const char*>(value);
}

int IntOf(FcPattern* pattern, const char* object, int fallback)
{
    int value = fallback;
    FcPatternGetInteger(pattern, object, 0, &value);
    return value;
}

Candidate CandidateOf(FcPattern* pattern)
{
    Candidate candidate;
    candidate.file = StringOf(pattern, FC_FILE);
    candidate.index = IntOf(pattern, FC_INDEX, 0);
    FcBool scalable = FcTrue;
    FcPatternGetBool(pattern, FC_SCALABLE, 0, &scalable);
    candidate.scalable = scalable != FcFalse;
    candidate.weight = IntOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR);
    candidate.slant = IntOf(pattern, FC_SLANT, FC_SLANT_ROMAN);
    return candidate;
}

// Bitmap (.fon) faces of Wine's font folder, read with FreeType: fontconfig's usual
// configuration rejects bitmap fonts, so they are listed here.
const std::vector<std::pair<std::string, Candidate>>& WineBitmapFaces()
{
    static const std::vector<std::pair<std::string, Candidate>> faces = [] {
        std::vector<std::pair<std::string, Candidate>> found;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(kWineFontFolder, error)) {
            std::string path = entry.path().string();
            if (entry.path().extension() != ".fon")
                continue;
            FT_Face face = nullptr;
            if (FT_New_Face(Library(), path.c_str(), -1, &face) != 0)
                continue;
            FT_Long count = face->num_faces;
            FT_Done_Face(face);
            for (FT_Long index = 0; index < count; ++index) {
                if (FT_New_Face(Library(), path.c_str(), index, &face) != 0)
                    continue;
                Candidate candidate { path, static_cast<int>(index), false, FC_WEIGHT_REGULAR, FC_SLANT_ROMAN };
                if (face->family_name)
                    found.emplace_back(face->family_name, candidate);
                FT_Done_Face(face);
            }
        }
        std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
            return std::tie(a.second.file, a.second.index) < std::tie(b.second.file, b.second.index);
        });
        return found;
    }();
    return faces;
}

// Every installed face of exactly this family (case-insensitive, as GDI compares names).
std::vector<Candidate> FacesOfFamily(const std::string& family)
{
    std::vector<Candidate> faces;
    FcConfig* config = Config();
    if (!config || family.empty())
        return faces;
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcObjectSet* objects = FcObjectSetBuild(FC_FILE, FC_INDEX, FC_SCALABLE, FC_WEIGHT, FC_SLANT, nullptr);
    FcFontSet* set = FcFontList(config, pattern, objects);
    if (set) {
        for (int i = 0; i < set->nfont; ++i)
            faces.push_back(CandidateOf(set->fonts[i]));
        FcFontSetDestroy(set);
    }
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    for (const auto& [name, candidate] : WineBitmapFaces())
        if (strcasecmp(name.c_str(), family.c_str()) == 0)
            faces.push_back(candidate);
    // A stable order: fontconfig lists in no particular one.
    std::sort(faces.begin(), faces.end(), [](const Candidate& a, const Candidate& b) {
        return std::tie(a.file, a.index) < std::tie(b.file, b.index);
    });
    return faces;
}

// The family fontconfig substitutes for a name it does not carry.
std::string SubstituteFamily(const std::string& family)
{
    FcConfig* config = Config();
    if (!config)
        return {};
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(config, pattern, &result);
    std::string found = match ? StringOf(match, FC_FAMILY) : std::string();
    if (match)
        FcPatternDestroy(match);
    FcPatternDestroy(pattern);
    return found;
}

// 26.6 fixed point to whole pixels, rounding half up as GDI's metrics do.
int32_t Round26Dot6(FT_Long value)
{
    return static_cast<int32_t>((value + 32) >> 6);
}

} // namespace

// ---- The face -------------------------------------------------------------------------------

struct FontFace::FreeTypeFace {
    FT_Face face = nullptr;
    int32_t emHeight = 0;
    ~FreeTypeFace()
    {
        if (face)
            FT_Done_Face(face);
    }
};

FontFace::~FontFace() = default;

int32_t FontFace::CellHeight(float points)
{
    return -CLng(static_cast<double>(points) * 96.0 / 72.0);
}

namespace {

struct BitmapStrike {
    std::string file;
    int index = 0;
    int32_t pixelHeight = 0;
    int32_t internalLeading = 0;
};

// The strikes of a bitmap family that GDI would consider on an English system at 96 dpi.
std::vector<BitmapStrike> StrikesOf(const std::vector<Candidate>& faces)
{
    std::vector<BitmapStrike> strikes;
    for (const Candidate& candidate : faces) {
        if (candidate.scalable)
            continue;
        FT_Face face = nullptr;
        if (FT_New_Face(Library(), candidate.file.c_str(), candidate.index, &face) != 0)
            continue;
        FT_WinFNT_HeaderRec header;
        if (FT_Get_WinFNT_Header(face, &header) == 0) {
            if (header.charset == FT_WinFNT_ID_CP1252 && header.vertical_resolution == 96)
                strikes.push_back({ candidate.file, candidate.index, header.pixel_height, header.internal_leading });
        } else if (face->num_fixed_sizes > 0) {
            strikes.push_back({ candidate.file, candidate.index, face->available_sizes[0].height, 0 });
        }
        FT_Done_Face(face);
    }
    return strikes;
}

const Candidate* BestOutline(const std::vector<Candidate>& faces, bool bold, bool italic)
{
    const Candidate* best = nullptr;
    int bestScore = 0;
    for (const Candidate& candidate : faces) {
        if (!candidate.scalable)
            continue;
        bool isBold = candidate.weight >= FC_WEIGHT_DEMIBOLD;
        bool isItalic = candidate.slant != FC_SLANT_ROMAN;
        int score = (isBold == bold ? 2 : 0) + (isItalic == italic ? 1 : 0);
        if (!best || score > bestScore) {
            best = &candidate;
            bestScore = score;
        }
    }
    return best;
}

} // namespace

std::shared_ptr<FontFace> FontFace::For(const FontDesc& font)
{
    std::lock_guard lock(FontMutex());
    int32_t em = std::max(1, -CellHeight(font.size));
    using Key = std::tuple<std::string, int32_t, bool, bool>;
    static std::map<Key, std::shared_ptr<FontFace>> cache;
    std::string lowered = font.name;
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    Key key { lowered, em, font.bold, font.italic };
    if (auto found = cache.find(key); found != cache.end())
        return found->second;
    // A panel uses a handful of fonts; a program that walks through hundreds of sizes must not
    // keep every face and its glyphs: past 64 faces, those no context holds are let go.
    if (cache.size() >= 64)
        std::erase_if(cache, [](const auto& entry) { return entry.second.use_count() == 1; });

    std::vector<Candidate> faces = FacesOfFamily(font.name);
    if (faces.empty())
        faces = FacesOfFamily(SubstituteFamily(font.name));
    if (faces.empty())
        faces = FacesOfFamily(kFallbackFamily);

    std::shared_ptr<FontFace> made(new FontFace());
    // A bitmap face wins over an outline face of the same family, as GDI prefers the .fon.
    std::vector<BitmapStrike> strikes = StrikesOf(faces);
    if (!strikes.empty()) {
        const BitmapStrike* chosen = nullptr;
        for (const BitmapStrike& strike : strikes) {
            int32_t charHeight = strike.pixelHeight - strike.internalLeading;
            if (charHeight <= em && (!chosen || charHeight > chosen->pixelHeight - chosen->internalLeading))
                chosen = &strike;
        }
        if (!chosen)
            chosen = &*std::min_element(strikes.begin(), strikes.end(),
                [](const BitmapStrike& a, const BitmapStrike& b) { return a.pixelHeight < b.pixelHeight; });
        // Bitmap faces grow by whole multiples: to the cell height the size asks for, rounded
        // up, unless that overshoots by more than a quarter of the strike (the first doubling
        // waits one pixel longer).
        int32_t wanted = chosen->pixelHeight + (em - (chosen->pixelHeight - chosen->internalLeading));
        int32_t scale = std::max(1, (wanted + chosen->pixelHeight - 1) / chosen->pixelHeight);
        int32_t overshoot = scale * chosen->pixelHeight - wanted;
        if (scale > 2 && overshoot > chosen->pixelHeight / 4)
            --scale;
        else if (scale == 2 && overshoot > chosen->pixelHeight / 4 - 1)
            --scale;
        made->scale_ = scale;
        made->Load(chosen->file, chosen->index, em, font.bold, font.italic);
    } else if (const Candidate* outline = BestOutline(faces, font.bold, font.italic)) {
        bool isBold = outline->weight >= FC_WEIGHT_DEMIBOLD;
        bool isItalic = outline->slant != FC_SLANT_ROMAN;
        made->Load(outline->file, outline->index, em, font.bold && !isBold, font.italic && !isItalic);
    }
    if (!made->face_) {
        // No font file at all: a blank face with the default face's metrics keeps layout sane.
        made->metrics_ = TextMetrics { 13, 11, 2, 2, 0, 5, 0, 1, -5, 1 };
    }
    cache.emplace(key, made);
    return made;
}

void FontFace::Load(const std::string& file, int index, int32_t emHeight, bool bold, bool italic)
{
    auto holder = std::make_unique<FreeTypeFace>();
    if (FT_New_Face(Library(), file.c_str(), index, &holder->face) != 0) {
        holder->face = nullptr;
        return;
    }
    FT_Face face = holder->face;
    holder->emHeight = emHeight;
    file_ = file;
    bitmapFace_ = !FT_IS_SCALABLE(face);
    fakeBold_ = bold;
    fakeItalic_ = italic && !bitmapFace_; // GDI does not slant bitmap faces
    fakeItalicRequested_ = italic;

    TextMetrics& m = metrics_;
    FT_WinFNT_HeaderRec header;
    if (bitmapFace_ && FT_Get_WinFNT_Header(face, &header) == 0) {
        if (face->num_fixed_sizes > 0)
            FT_Select_Size(face, 0);
        if (face->num_charmaps > 0)
            FT_Set_Charmap(face, face->charmaps[0]);
        m.height = header.pixel_height * scale_;
        m.ascent = header.ascent * scale_;
        m.descent = (header.pixel_height - header.ascent) * scale_;
        m.internalLeading = header.internal_leading * scale_;
        m.externalLeading = header.external_leading * scale_;
        m.averageWidth = header.avg_width * scale_ + (fakeBold_ ? 1 : 0);
        // No outline metrics: the bars are ascent / 20 + 1 thick, the underline at the baseline
        // and the strikeout half the ascent above it (each centred on its position).
        int32_t thickness = m.ascent / 20 + 1;
        m.underlineThickness = m.strikeoutThickness = thickness;
        m.underlineTop = -(thickness / 2);
        m.strikeoutTop = -(m.ascent / 2 + thickness / 2);
    } else {
        FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(emHeight));
        FT_Select_Charmap(face, FT_ENCODING_UNICODE);
        FT_Fixed scale = face->size->metrics.y_scale;
        auto* os2 = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
        auto* hhea = static_cast<TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA));
        auto* post = static_cast<TT_Postscript*>(FT_Get_Sfnt_Table(face, FT_SFNT_POST));
        FT_Long ascent = face->ascender, descent = -face->descender;
        if (os2 && (os2->usWinAscent || os2->usWinDescent)) {
            ascent = os2->usWinAscent;
            descent = os2->usWinDescent;
        }
        m.ascent = Round26Dot6(FT_MulFix(ascent, scale));
        m.descent = Round26Dot6(FT_MulFix(descent, scale));
        m.height = m.ascent + m.descent;
        m.internalLeading = Round26Dot6(FT_MulFix(ascent + descent - face->units_per_EM, scale));
        if (hhea) {
            FT_Long gap = hhea->Line_Gap - ((ascent + descent) - (hhea->Ascender - hhea->Descender));
            m.externalLeading = std::max(0, Round26Dot6(FT_MulFix(gap, scale)));
        }
        m.averageWidth = os2 ? Round26Dot6(FT_MulFix(os2->xAvgCharWidth, face->size->metrics.x_scale)) : emHeight / 2;
        int32_t underlinePosition = post ? Round26Dot6(FT_MulFix(post->underlinePosition, scale)) : -1;
        int32_t underlineSize = post ? Round26Dot6(FT_MulFix(post->underlineThickness, scale)) : 1;
        int32_t strikeoutPosition = os2 ? Round26Dot6(FT_MulFix(os2->yStrikeoutPosition, scale)) : m.ascent / 2;
        int32_t strikeoutSize = os2 ? Round26Dot6(FT_MulFix(os2->yStrikeoutSize, scale)) : 1;
        underlineSize = std::max(1, underlineSize);
        strikeoutSize = std::max(1, strikeoutSize);
        m.underlineThickness = underlineSize;
        m.underlineTop = -(underlinePosition + underlineSize / 2);
        m.strikeoutThickness = strikeoutSize;
        m.strikeoutTop = -(strikeoutPosition + strikeoutSize / 2);
    }
    face_ = std::move(holder);
}

const Glyph& FontFace::GlyphFor(unsigned char byte)
{
    std::unique_ptr<Glyph>& slot = glyphs_[byte];
    if (!slot) {
        std::lock_guard lock(FontMutex());
        slot = std::make_unique<Glyph>(Render(byte));
    }
    return *slot;
}

Glyph FontFace::Render(unsigned char byte)
{
    Glyph glyph;
    if (!face_) {
        glyph.advance = glyph.penAdvance = metrics_.averageWidth;
        return glyph;
    }
    FT_Face face = face_->face;
    FT_UInt index = bitmapFace_ ? FT_Get_Char_Index(face, byte) : FT_Get_Char_Index(face, CodePage1252ToUnicode(byte));
    // Index 0 is the face's default character (a bitmap face's dfDefaultChar, an outline
    // face's missing-glyph shape).
    if (!bitmapFace_) {
        // The extent advance comes from the hinted outline.
        if (FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP) == 0)
            glyph.advance = Round26Dot6(face->glyph->advance.x);
    }
    FT_Int32 flags = (fakeItalic_ || fakeBold_) ? FT_LOAD_NO_BITMAP : FT_LOAD_DEFAULT;
    if (FT_Load_Glyph(face, index, flags) != 0)
        return glyph;
    FT_GlyphSlot slot = face->glyph;
    if (slot->format == FT_GLYPH_FORMAT_OUTLINE) {
        if (fakeItalic_) {
            FT_Matrix shear { 1 << 16, (1 << 16) >> 2, 0, 1 << 16 };
            FT_Outline_Transform(&slot->outline, &shear);
        }
        if (fakeBold_)
            FT_Outline_EmboldenXY(&slot->outline, face_->emHeight * 64 / 24, 0);
    }
    glyph.penAdvance = Round26Dot6(slot->advance.x);
    if (bitmapFace_)
        glyph.advance = glyph.penAdvance;
    if (slot->format == FT_GLYPH_FORMAT_OUTLINE && FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0)
        return glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    glyph.left = slot->bitmap_left;
    if (bitmapFace_ && fakeItalicRequested_)
        glyph.left -= 1; // a bitmap face is not slanted, but its italic is drawn one pixel left
    glyph.top = slot->bitmap_top;
    glyph.width = static_cast<int32_t>(bitmap.width);
    glyph.rows = static_cast<int32_t>(bitmap.rows);
    glyph.coverage.assign(static_cast<size_t>(glyph.width) * static_cast<size_t>(glyph.rows), 0);
    for (int32_t y = 0; y < glyph.rows; ++y) {
        const unsigned char* row = bitmap.buffer + static_cast<ptrdiff_t>(y) * bitmap.pitch;
        for (int32_t x = 0; x < glyph.width; ++x) {
            uint8_t level = 0;
            if (bitmap.pixel_mode == FT_PIXEL_MODE_MONO)
                level = (row[x >> 3] >> (7 - (x & 7))) & 1 ? 16 : 0;
            else if (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY)
                level = static_cast<uint8_t>(row[x] * 17 / 256); // 17 grey levels, truncated
            glyph.coverage[static_cast<size_t>(y) * static_cast<size_t>(glyph.width) + static_cast<size_t>(x)] = level;
        }
    }
    if (bitmapFace_ && scale_ > 1) {
        // An enlarged bitmap face moves the pen and places the glyph by the enlarged metrics
        // but draws the strike's own, unenlarged bitmap (as the GDI under test does).
        glyph.advance *= scale_;
        glyph.penAdvance *= scale_;
        glyph.left *= scale_;
        glyph.top *= scale_;
    }
    if (bitmapFace_ && fakeBold_) {
        // A bitmap face made bold: each row ORed with itself one pixel to the right, one pixel
        // wider and one pixel more advance.
        Glyph bold = glyph;
        bold.width = glyph.width + 1;
        bold.advance = glyph.advance + 1;
        bold.penAdvance = glyph.penAdvance + 1;
        bold.coverage.assign(static_cast<size_t>(bold.width) * static_cast<size_t>(bold.rows), 0);
        for (int32_t y = 0; y < glyph.rows; ++y)
            for (int32_t x = 0; x < bold.width; ++x) {
                auto at = [&](int32_t column) {
                    return column >= 0 && column < glyph.width ? glyph.coverage[static_cast<size_t>(y * glyph.width + column)] : uint8_t { 0 };
                };
                bold.coverage[static_cast<size_t>(y * bold.width + x)] = std::max(at(x), at(x - 1));
            }
        return bold;
    }
    return glyph;
}

} // namespace vex::platform::soft
