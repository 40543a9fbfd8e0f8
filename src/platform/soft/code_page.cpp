#include "platform/soft/code_page.h"

#include <array>

namespace vex::platform::soft {
namespace {

// 0x80..0x9F; 0 marks the five bytes the page leaves undefined (they map to the same C1
// control code point, as MultiByteToWideChar does).
constexpr std::array<char16_t, 32> kHighControls { {
    0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D, 0,
    0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178,
} };

int ByteFor(char32_t code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return static_cast<int>(code);
    for (size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == code || (kHighControls[i] == 0 && code == 0x80 + i))
            return static_cast<int>(0x80 + i);
    return '?';
}

// Decodes one UTF-8 sequence at text[index], advancing index. Malformed input decodes as
// U+FFFD one byte at a time.
char32_t Decode(std::string_view text, size_t& index)
{
    auto lead = static_cast<unsigned char>(text[index++]);
    if (lead < 0x80)
        return lead;
    int extra = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 && lead < 0xE0 ? 1 : -1;
    if (extra < 0 || (lead >= 0xE0 && extra == 1))
        return 0xFFFD;
    char32_t code = lead & (0x3F >> extra);
    size_t start = index;
    for (int i = 0; i < extra; ++i) {
        if (index >= text.size() || (static_cast<unsigned char>(text[index]) & 0xC0) != 0x80) {
            index = start;
            return 0xFFFD;
        }
        code = (code << 6) | (static_cast<unsigned char>(text[index++]) & 0x3F);
    }
    bool overlong = (extra == 2 && code < 0x800) || (extra == 3 && code < 0x10000);
    if (overlong || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        index = start;
        return 0xFFFD;
    }
    return code;
}

} // namespace

std::string Utf8ToCodePage1252(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (size_t index = 0; index < text.size();) {
        char32_t code = Decode(text, index);
        if (code >= 0x10000)
            result.push_back('?'); // a surrogate pair is two characters the page lacks
        result.push_back(static_cast<char>(ByteFor(code)));
    }
    return result;
}

char32_t CodePage1252ToUnicode(unsigned char byte)
{
    if (byte >= 0x80 && byte < 0xA0 && kHighControls[byte - 0x80] != 0)
        return kHighControls[byte - 0x80];
    return byte;
}

} // namespace vex::platform::soft
