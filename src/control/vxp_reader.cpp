// Reading .vxp text. Two passes: the lines become a tree of entries (scalars and blocks), then
// each top-level entry becomes a bag value: a scalar as it stands, the "Font" block as a font,
// any other block as a picture. Every error names its line.
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/numeric.h"
#include "control/base64.h"
#include "base/runtime_error.h"
#include "control/vxp_format.h"

namespace vex::control {

namespace {

constexpr int32_t kInvalidFileFormat = static_cast<int32_t>(ErrorCode::InvalidFileFormat);
constexpr int32_t kMaxPictureSide = 32767;
constexpr int kMaxDepth = 8;

[[noreturn]] void Fail(int32_t number, const std::string& what, int line)
{
    std::string base = number == kInvalidFileFormat ? "Invalid file format" : StandardDescription(number);
    throw RuntimeError(number, base + ": line " + std::to_string(line) + ": " + what);
}

[[noreturn]] void Malformed(const std::string& what, int line) { Fail(kInvalidFileFormat, what, line); }

struct Entry {
    std::string key;
    int line = 0;
    bool block = false;
    PropertyValue value;
    std::vector<Entry> children;
};

bool IsNameChar(char c, bool first)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || (!first && c >= '0' && c <= '9');
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// ---- Scalars ----------------------------------------------------------------------------------------

std::string ParseString(std::string_view text, int line)
{
    std::string out;
    size_t at = 1; // past the opening quote
    for (;;) {
        if (at >= text.size())
            Malformed("unterminated string", line);
        char c = text[at++];
        if (c == '"')
            break;
        if (c != '\\') {
            out += c;
            continue;
        }
        if (at >= text.size())
            Malformed("unterminated string", line);
        char escape = text[at++];
        switch (escape) {
        case '"': out += '"'; break;
        case '\\': out += '\\'; break;
        case 'n': out += '\n'; break;
        case 'r': out += '\r'; break;
        case 't': out += '\t'; break;
        case 'x': {
            int high = at < text.size() ? HexDigit(text[at]) : -1;
            int low = at + 1 < text.size() ? HexDigit(text[at + 1]) : -1;
            if (high < 0 || low < 0)
                Malformed("bad \\x escape in string", line);
            out += static_cast<char>(high * 16 + low);
            at += 2;
            break;
        }
        default: Malformed(std::string("unknown escape \\") + escape + " in string", line);
        }
    }
    std::string_view rest = Trim(text.substr(at));
    if (!rest.empty() && rest.front() != '#')
        Malformed("text after the closing quote", line);
    return out;
}

PropertyValue ParseHex(std::string_view text, int line)
{
    std::string_view digits = text.substr(2);
    if (!digits.empty() && digits.back() == '&')
        digits.remove_suffix(1);
    if (digits.empty())
        Malformed("empty hexadecimal number", line);
    uint64_t value = 0;
    for (char c : digits) {
        int digit = HexDigit(c);
        if (digit < 0)
            Malformed("bad hexadecimal number '" + std::string(text) + "'", line);
        value = value * 16 + static_cast<uint64_t>(digit);
        if (value > 0xFFFFFFFFu)
            Fail(static_cast<int32_t>(ErrorCode::Overflow), "hexadecimal number beyond 32 bits", line);
    }
    return static_cast<int32_t>(static_cast<uint32_t>(value));
}

PropertyValue ParseNumber(std::string_view text, int line)
{
    char suffix = text.back();
    std::string_view digits = text;
    if (suffix == '%' || suffix == '&' || suffix == '!')
        digits.remove_suffix(1);
    else
        suffix = 0;
    if (!digits.empty() && digits.front() == '+')
        digits.remove_prefix(1);
    double number = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || end != digits.data() + digits.size() || error == std::errc::invalid_argument)
        Malformed("'" + std::string(text) + "' is not a value", line);
    bool integral = digits.find_first_of(".eE") == std::string_view::npos;
    auto overflow = [&] { Fail(static_cast<int32_t>(ErrorCode::Overflow), "number out of range: " + std::string(text), line); };
    if (error == std::errc::result_out_of_range || !std::isfinite(number))
        overflow();
    if (suffix == '!' || (!integral && suffix == 0)) {
        if (std::fabs(number) > 3.4028234663852886e38)
            overflow();
        return static_cast<float>(number);
    }
    if (!integral)
        Malformed("'" + std::string(text) + "': a whole number is expected", line);
    if (suffix == '%' || (suffix == 0 && number >= -32768 && number <= 32767)) {
        if (number < -32768 || number > 32767)
            overflow();
        return static_cast<int16_t>(number);
    }
    if (number < -2147483648.0 || number > 2147483647.0)
        overflow();
    return static_cast<int32_t>(number);
}

PropertyValue ParseScalar(std::string_view text, int line)
{
    if (text.empty())
        Malformed("a value is missing after '='", line);
    if (text.front() == '"')
        return ParseString(text, line);
    // Outside strings a '#' starts a comment.
    if (size_t hash = text.find('#'); hash != std::string_view::npos)
        text = Trim(text.substr(0, hash));
    if (text == "True" || text == "true")
        return true;
    if (text == "False" || text == "false")
        return false;
    if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h'))
        return ParseHex(text, line);
    return ParseNumber(text, line);
}

// ---- Lines into a tree ----------------------------------------------------------------------------

std::vector<Entry> ParseTree(std::string_view text)
{
    std::vector<Entry> root;
    std::vector<std::vector<Entry>*> open { &root };
    std::vector<int> openLines;
    int line = 0;
    size_t at = 0;
    while (at < text.size()) {
        size_t end = text.find('\n', at);
        std::string_view raw = text.substr(at, end == std::string_view::npos ? std::string_view::npos : end - at);
        at = end == std::string_view::npos ? text.size() : end + 1;
        ++line;
        std::string_view content = Trim(raw);
        if (content.empty() || content.front() == '#')
            continue;
        if (content == "}") {
            if (open.size() == 1)
                Malformed("'}' without an open block", line);
            open.pop_back();
            openLines.pop_back();
            continue;
        }
        size_t nameEnd = 0;
        while (nameEnd < content.size() && IsNameChar(content[nameEnd], nameEnd == 0))
            ++nameEnd;
        if (nameEnd == 0)
            Malformed("a key name is expected", line);
        Entry entry;
        entry.key = std::string(content.substr(0, nameEnd));
        entry.line = line;
        std::string_view rest = Trim(content.substr(nameEnd));
        if (rest == "{") {
            if (static_cast<int>(open.size()) > kMaxDepth)
                Malformed("blocks nested too deeply", line);
            entry.block = true;
            open.back()->push_back(std::move(entry));
            open.push_back(&open.back()->back().children);
            openLines.push_back(line);
            continue;
        }
        if (rest.empty() || rest.front() != '=')
            Malformed("'=' or '{' expected after " + entry.key, line);
        entry.value = ParseScalar(Trim(rest.substr(1)), line);
        open.back()->push_back(std::move(entry));
    }
    if (open.size() > 1)
        Malformed("block opened here is not closed", openLines.back());
    return root;
}

// ---- Blocks into fonts and pictures ---------------------------------------------------------------

const Entry* FindChild(const Entry& block, std::string_view key)
{
    for (const Entry& child : block.children)
        if (child.key == key)
            return &child;
    return nullptr;
}

// Runs a conversion and labels its run-time error with the entry's line.
template <typename Convert>
auto Converted(const Entry& entry, Convert convert)
{
    if (entry.block)
        Malformed(entry.key + " must be a value, not a block", entry.line);
    try {
        return convert(entry.value);
    } catch (const RuntimeError& error) {
        Fail(error.number(), entry.key + ": " + error.description(), entry.line);
    }
}

void CheckKeys(const Entry& block, std::initializer_list<std::string_view> allowed)
{
    for (const Entry& child : block.children) {
        bool known = false;
        for (std::string_view key : allowed)
            known = known || child.key == key;
        if (!known)
            Malformed("unknown key " + child.key + " in " + block.key, child.line);
    }
}

platform::FontDesc ReadFont(const Entry& block)
{
    CheckKeys(block, { "Name", "Size", "Bold", "Italic", "Underline", "Strikethrough" });
    platform::FontDesc font;
    if (const Entry* name = FindChild(block, "Name"))
        font.name = Converted(*name, AsText);
    if (const Entry* size = FindChild(block, "Size"))
        font.size = Converted(*size, AsSingle);
    if (const Entry* bold = FindChild(block, "Bold"))
        font.bold = Converted(*bold, AsBoolean);
    if (const Entry* italic = FindChild(block, "Italic"))
        font.italic = Converted(*italic, AsBoolean);
    if (const Entry* underline = FindChild(block, "Underline"))
        font.underline = Converted(*underline, AsBoolean);
    if (const Entry* strikethrough = FindChild(block, "Strikethrough"))
        font.strikethrough = Converted(*strikethrough, AsBoolean);
    return font;
}

[[noreturn]] void BadPicture(const std::string& what, int line)
{
    Fail(static_cast<int32_t>(ErrorCode::InvalidPicture), what, line);
}

std::vector<uint8_t> DecodeField(const Entry& entry)
{
    std::string text = Converted(entry, AsText);
    std::optional<std::vector<uint8_t>> bytes = DecodeBase64(text);
    if (!bytes)
        BadPicture("bad base64 data in " + entry.key, entry.line);
    return *bytes;
}

// Sizes are checked against the data actually present before anything is allocated, so a small
// file cannot claim a giant picture.
platform::Dib ReadDib(const Entry& block)
{
    CheckKeys(block, { "Type", "Width", "Height", "BitCount", "TopDown", "Palette", "Bits", "Color", "Mask" });
    auto required = [&](std::string_view key) -> const Entry& {
        const Entry* entry = FindChild(block, key);
        if (!entry)
            BadPicture(std::string(key) + " is missing", block.line);
        return *entry;
    };
    const Entry& widthEntry = required("Width");
    const Entry& heightEntry = required("Height");
    const Entry& bitCountEntry = required("BitCount");
    int32_t width = Converted(widthEntry, AsInt32);
    int32_t height = Converted(heightEntry, AsInt32);
    int32_t bitCount = Converted(bitCountEntry, AsInt32);
    if (width < 0 || width > kMaxPictureSide || height < 0 || height > kMaxPictureSide)
        BadPicture("picture size " + std::to_string(width) + "x" + std::to_string(height) + " out of range", widthEntry.line);
    if (bitCount != 1 && bitCount != 4 && bitCount != 8 && bitCount != 24 && bitCount != 32)
        BadPicture("bit count " + std::to_string(bitCount) + " not supported", bitCountEntry.line);
    bool topDown = true;
    if (const Entry* entry = FindChild(block, "TopDown"))
        topDown = Converted(*entry, AsBoolean);

    std::vector<uint8_t> bits;
    int bitsLine = block.line;
    for (const Entry& child : block.children) {
        if (child.key != "Bits")
            continue;
        std::vector<uint8_t> chunk = DecodeField(child);
        bits.insert(bits.end(), chunk.begin(), chunk.end());
        bitsLine = child.line;
    }
    int64_t expected = int64_t { platform::Dib::StrideFor(width, bitCount) } * height;
    if (static_cast<int64_t>(bits.size()) != expected)
        BadPicture("Bits holds " + std::to_string(bits.size()) + " bytes, the picture needs " + std::to_string(expected), bitsLine);

    std::vector<uint8_t> palette;
    if (const Entry* entry = FindChild(block, "Palette")) {
        palette = DecodeField(*entry);
        if (palette.size() % 4 != 0 || palette.size() / 4 > 256)
            BadPicture("Palette must hold up to 256 four-byte entries", entry->line);
    }

    platform::Dib dib(width, height, bitCount, topDown);
    dib.bits() = std::move(bits);
    for (size_t at = 0; at < palette.size(); at += 4)
        dib.palette().push_back(platform::RgbQuad { palette[at], palette[at + 1], palette[at + 2], palette[at + 3] });
    return dib;
}

platform::PictureRef ReadPicture(const Entry& block)
{
    const Entry* typeEntry = FindChild(block, "Type");
    if (!typeEntry)
        BadPicture("Type is missing", block.line);
    int32_t type = Converted(*typeEntry, AsInt32);
    switch (type) {
    case 0:
        CheckKeys(block, { "Type" });
        return nullptr;
    case 1: return platform::Picture::FromBitmap(ReadDib(block));
    case 3: {
        CheckKeys(block, { "Type", "Color", "Mask" });
        const Entry* color = FindChild(block, "Color");
        const Entry* mask = FindChild(block, "Mask");
        if (!color || !color->block || !mask || !mask->block)
            BadPicture("an icon needs Color and Mask blocks", block.line);
        platform::Icon icon { ReadDib(*color), ReadDib(*mask) };
        if (icon.mask.width() != icon.color.width() || icon.mask.height() != icon.color.height())
            BadPicture("icon mask and colour sizes differ", mask->line);
        return platform::Picture::FromIcon(std::move(icon));
    }
    default: BadPicture("picture type " + std::to_string(type) + " not supported", typeEntry->line);
    }
}

} // namespace

MemoryPropertyBag ParseVxp(std::string_view text)
{
    MemoryPropertyBag bag;
    for (const Entry& entry : ParseTree(text)) {
        if (bag.Contains(entry.key))
            Malformed(entry.key + " appears twice", entry.line);
        if (!entry.block)
            bag.Set(entry.key, entry.value);
        else if (entry.key == "Font")
            bag.Set(entry.key, ReadFont(entry));
        else
            bag.Set(entry.key, ReadPicture(entry));
    }
    return bag;
}

} // namespace vex::control
