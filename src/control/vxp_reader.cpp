// Reading .vxp text. Each top-level entry becomes a bag value: a scalar as it stands, the "Font"
// block as a font, any other block as a picture. Every error names its line.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
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
    // At most 8 digits, leading zeros included: more is beyond what the form can hold.
    if (digits.size() > 8 && digits.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos)
        Fail(static_cast<int32_t>(ErrorCode::Overflow), "hexadecimal number of more than 8 digits", line);
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

// Whether a numeral too far from 1 for a double lies below its range rather than above it:
// by the decimal position of its first significant digit plus its exponent.
bool BelowRange(std::string_view numeral)
{
    size_t e = numeral.find_first_of("eE");
    std::string_view mantissa = numeral.substr(0, e);
    int64_t exponent = 0;
    if (e != std::string_view::npos) {
        std::string_view digits = numeral.substr(e + 1);
        if (!digits.empty() && digits.front() == '+')
            digits.remove_prefix(1);
        auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (error == std::errc::result_out_of_range)
            return !digits.empty() && digits.front() == '-';
    }
    if (!mantissa.empty() && mantissa.front() == '-')
        mantissa.remove_prefix(1);
    size_t point = mantissa.find('.');
    std::string_view whole = mantissa.substr(0, point);
    if (size_t first = whole.find_first_not_of('0'); first != std::string_view::npos)
        return static_cast<int64_t>(whole.size() - first) + exponent <= 0;
    std::string_view fraction = point == std::string_view::npos ? std::string_view {} : mantissa.substr(point + 1);
    size_t first = fraction.find_first_not_of('0');
    return first == std::string_view::npos || exponent - static_cast<int64_t>(first) <= 0;
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
    // Digits, a sign, a point and an exponent only: "nan" and "inf" are not numbers here.
    bool numeral = !digits.empty() && digits.find_first_not_of("0123456789.eE+-") == std::string_view::npos;
    double number = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (!numeral || end != digits.data() + digits.size() || error == std::errc::invalid_argument)
        Malformed("'" + std::string(text) + "' is not a value", line);
    bool integral = digits.find_first_of(".eE") == std::string_view::npos;
    auto overflow = [&] { Fail(static_cast<int32_t>(ErrorCode::Overflow), "number out of range: " + std::string(text), line); };
    // Too small to tell from zero is zero (as it is for a single); too large is an Overflow.
    if (error == std::errc::result_out_of_range && BelowRange(digits))
        number = 0;
    else if (error == std::errc::result_out_of_range || !std::isfinite(number))
        overflow();
    if (suffix == '!' || (!integral && suffix == 0)) {
        if (std::fabs(number) >= kSingleOverflow) // the largest single is written 3.4028235e+38
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

// ---- Lines ----------------------------------------------------------------------------------------

// Walks the lines in order and hands each one to `visitor`: Open(key, line) for `Key {`,
// Close() for `}`, Scalar(key, line, value) for `Key = value`, each with the depth of blocks
// around it. Syntax errors are raised here, in line order.
template <typename Visitor>
void ScanLines(std::string_view text, Visitor& visitor)
{
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
            if (openLines.empty())
                Malformed("'}' without an open block", line);
            openLines.pop_back();
            visitor.Close(openLines.size());
            continue;
        }
        size_t nameEnd = 0;
        while (nameEnd < content.size() && IsNameChar(content[nameEnd], nameEnd == 0))
            ++nameEnd;
        if (nameEnd == 0)
            Malformed("a key name is expected", line);
        std::string_view key = content.substr(0, nameEnd);
        std::string_view rest = Trim(content.substr(nameEnd));
        if (rest == "{") {
            if (static_cast<int>(openLines.size()) >= kMaxDepth)
                Malformed("blocks nested too deeply", line);
            visitor.Open(key, line, openLines.size());
            openLines.push_back(line);
            continue;
        }
        if (rest.empty() || rest.front() != '=')
            Malformed("'=' or '{' expected after " + std::string(key), line);
        visitor.Scalar(key, line, openLines.size(), ParseScalar(Trim(rest.substr(1)), line));
    }
    if (!openLines.empty())
        Malformed("block opened here is not closed", openLines.back());
}

// The first pass: the top-level keys, to find a repeated one without holding the file's
// entries. A key is kept as its hash and its position in the text (16 bytes a key).
struct TopLevelKey {
    uint64_t hash;
    uint32_t offset; // the key's first character in the text (files are at most 64 MB)
    uint32_t index;  // the entry's place among the top-level entries
};

struct KeyCollector {
    std::string_view text;
    std::vector<TopLevelKey> keys;

    void Open(std::string_view key, int, size_t depth) { Note(key, depth); }
    void Close(size_t) { }
    void Scalar(std::string_view key, int, size_t depth, const PropertyValue&) { Note(key, depth); }
    void Note(std::string_view key, size_t depth)
    {
        if (depth == 0)
            keys.push_back({ std::hash<std::string_view> {}(key), static_cast<uint32_t>(key.data() - text.data()),
                static_cast<uint32_t>(keys.size()) });
    }
};

std::string_view KeyAt(std::string_view text, uint32_t offset)
{
    size_t end = offset;
    while (end < text.size() && IsNameChar(text[end], end == offset))
        ++end;
    return text.substr(offset, end - offset);
}

// The index of the first top-level entry whose key appeared before it, or none. Sorting by
// hash, key and place puts every repeat right after an earlier entry of the same key.
std::optional<uint32_t> FirstRepeat(std::string_view text, std::vector<TopLevelKey>& keys)
{
    std::sort(keys.begin(), keys.end(), [&](const TopLevelKey& a, const TopLevelKey& b) {
        if (a.hash != b.hash)
            return a.hash < b.hash;
        if (int order = KeyAt(text, a.offset).compare(KeyAt(text, b.offset)); order != 0)
            return order < 0;
        return a.index < b.index;
    });
    std::optional<uint32_t> first;
    for (size_t i = 1; i < keys.size(); ++i) {
        const TopLevelKey& before = keys[i - 1];
        const TopLevelKey& key = keys[i];
        if (key.hash == before.hash && KeyAt(text, key.offset) == KeyAt(text, before.offset) && (!first || key.index < *first))
            first = key.index;
    }
    return first;
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

    platform::Dib dib = platform::Dib::ForWriting(width, height, bitCount, topDown);
    std::copy(bits.begin(), bits.end(), dib.bits().begin()); // the sizes are equal, checked above
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

// The second pass: top-level scalars go straight into the bag; a block is held as a tree only
// until its closing line, then becomes a font or a picture. When a key repeats, the pass only
// looks for the errors that come before the repeat, and keeps nothing.
struct BagBuilder {
    MemoryPropertyBag& bag;
    std::optional<uint32_t> repeat;
    uint32_t index = 0;
    std::vector<Entry*> open;
    Entry block;

    void CheckRepeat(std::string_view key, int line)
    {
        if (repeat && index == *repeat)
            Malformed(std::string(key) + " appears twice", line);
        ++index;
    }

    void Open(std::string_view key, int line, size_t depth)
    {
        if (depth == 0) {
            CheckRepeat(key, line);
            block = Entry { std::string(key), line, true, {}, {} };
            open.assign(1, &block);
            return;
        }
        open.back()->children.push_back(Entry { std::string(key), line, true, {}, {} });
        open.push_back(&open.back()->children.back());
    }

    void Close(size_t depth)
    {
        open.pop_back();
        if (depth != 0)
            return;
        // Converted even when it will not be kept: its errors come before a later repeat's.
        PropertyValue value = block.key == "Font" ? PropertyValue(ReadFont(block)) : PropertyValue(ReadPicture(block));
        if (!repeat)
            bag.Append(block.key, std::move(value));
        block = Entry {};
    }

    void Scalar(std::string_view key, int line, size_t depth, PropertyValue value)
    {
        if (depth == 0) {
            CheckRepeat(key, line);
            if (!repeat)
                bag.Append(std::string(key), std::move(value));
            return;
        }
        open.back()->children.push_back(Entry { std::string(key), line, false, std::move(value), {} });
    }
};

} // namespace

// Two passes over the text, each linear: the first checks every line and finds the first
// repeated key, the second fills the bag. The errors come in the order a single reading would
// meet them: any malformed line first, then the entries in order, a repeated key when its
// entry is reached.
MemoryPropertyBag ParseVxp(std::string_view text)
{
    // Editors may start a UTF-8 file with a byte-order mark.
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    KeyCollector collector { text, {} };
    ScanLines(text, collector);
    std::optional<uint32_t> repeat = FirstRepeat(text, collector.keys);
    size_t entries = collector.keys.size();
    collector.keys = {};

    MemoryPropertyBag bag;
    if (!repeat)
        bag.Reserve(entries);
    BagBuilder builder { bag, repeat, 0, {}, {} };
    ScanLines(text, builder);
    return bag;
}

} // namespace vex::control
