#include "platform/soft/line_breaks.h"

#include "platform/soft/code_page.h"

namespace vex::platform::soft {
namespace {

enum class Class { AL, SP, BA, HY, CL, CP, OP, EX, IS, SY, QU, NU, PR, PO, GL, BB };

Class ClassOf(unsigned char byte)
{
    char32_t c = CodePage1252ToUnicode(byte);
    if (c >= '0' && c <= '9')
        return Class::NU;
    switch (c) {
    case ' ': return Class::SP;
    case '\t': case '|': case 0xAD: return Class::BA;
    case '-': return Class::HY;
    case ')': case '}': return Class::CL;
    case ']': return Class::CP;
    case '(': case '[': case '{': case 0xA1: case 0xBF: return Class::OP;
    case '!': case '?': return Class::EX;
    case ',': case '.': case ':': case ';': return Class::IS;
    case '/': return Class::SY;
    case '"': case '\'': case 0xAB: case 0xBB: case 0x2018: case 0x2019: case 0x201C: case 0x201D: return Class::QU;
    case '$': case '+': case '\\': case 0x20AC: case 0xA3: case 0xA5: return Class::PR;
    case '%': case 0xA2: case 0xB0: case 0x2030: return Class::PO;
    case 0xA0: return Class::GL;
    case 0xB4: return Class::BB;
    default: return Class::AL;
    }
}

bool Either(Class c, Class a, Class b) { return c == a || c == b; }

// May the line break between a and b, neither of them a space?
bool BreakBetween(Class a, Class b)
{
    using enum Class;
    if (b == CL || b == CP || b == EX || b == IS || b == SY)
        return false; // nothing breaks before closing punctuation
    if (a == OP || a == QU || b == QU || a == GL || b == GL || a == BB)
        return false;
    if (b == BA || b == HY)
        return false; // hyphens and break-after characters stay with what precedes them
    if (a == HY && b == NU)
        return false; // -5
    if (Either(a, AL, NU) && Either(b, AL, NU))
        return false; // inside words and numbers
    if ((a == IS || a == SY) && Either(b, AL, NU))
        return a == SY && b == AL; // 3.14, e.g. stay; a slash may break before a letter
    if (a == PR && (b == NU || b == AL || b == OP))
        return false;
    if (a == PO && (b == NU || b == AL || b == OP))
        return false;
    if (a == NU && (b == PO || b == PR))
        return false;
    if (Either(a, AL, NU) && b == OP)
        return false;
    if (Either(a, CL, CP) && (b == PO || b == PR || b == AL || b == NU))
        return a == CL && b == AL;
    return true;
}

} // namespace

std::vector<bool> SoftBreaks(std::string_view text)
{
    std::vector<bool> soft(text.size(), false);
    for (size_t i = 1; i < text.size(); ++i) {
        Class a = ClassOf(static_cast<unsigned char>(text[i - 1]));
        Class b = ClassOf(static_cast<unsigned char>(text[i]));
        if (b == Class::SP)
            continue; // never before a space
        if (a == Class::SP) {
            // After a run of spaces, unless the run follows an opening bracket.
            size_t k = i - 1;
            while (k > 0 && ClassOf(static_cast<unsigned char>(text[k - 1])) == Class::SP)
                --k;
            soft[i] = !(k > 0 && ClassOf(static_cast<unsigned char>(text[k - 1])) == Class::OP);
            continue;
        }
        soft[i] = BreakBetween(a, b);
    }
    return soft;
}

} // namespace vex::platform::soft
