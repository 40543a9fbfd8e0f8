#include "base/text_conversion.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

#include "base/numeric.h"
#include "base/runtime_error.h"

namespace vex {

namespace {

// A number as read: either a radix value (&H, &O) or decimal digits times a power of ten.
struct ParsedNumber {
    bool radix = false;
    uint64_t radixValue = 0;
    bool radixTooBig = false; // beyond 64 bits
    bool negative = false;
    std::string digits; // significant decimal digits, leading zeros removed
    int64_t power = 0;  // value = digits x 10^power
};

// Blanks: the ASCII white space and the no-break space (a Latin-1 byte or its UTF-8 form).
size_t BlankAt(std::string_view text, size_t at)
{
    if (at >= text.size())
        return 0;
    const auto c = static_cast<unsigned char>(text[at]);
    if (c == ' ' || (c >= '\t' && c <= '\r') || c == 0xA0)
        return 1;
    if (c == 0xC2 && at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) == 0xA0)
        return 2;
    return 0;
}

void SkipBlanks(std::string_view text, size_t& at)
{
    while (size_t length = BlankAt(text, at))
        at += length;
}

int DigitValue(char c, int base)
{
    int value = 99;
    if (c >= '0' && c <= '9')
        value = c - '0';
    else if (c >= 'a' && c <= 'f')
        value = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        value = c - 'A' + 10;
    return value < base ? value : -1;
}

std::optional<ParsedNumber> Parse(std::string_view text)
{
    ParsedNumber number;
    size_t at = 0;
    bool plus = false, minus = false, currency = false, parens = false;
    for (;;) {
        if (BlankAt(text, at)) {
            SkipBlanks(text, at);
            continue;
        }
        if (at >= text.size())
            break;
        const char c = text[at];
        bool* flag = c == '+' ? &plus : c == '-' ? &minus : c == '$' ? &currency : c == '(' ? &parens : nullptr;
        if (!flag || *flag)
            break;
        *flag = true;
        ++at;
    }
    number.negative = minus;

    int base = 10;
    if (at + 1 < text.size() && text[at] == '&') {
        const char kind = text[at + 1];
        base = (kind == 'H' || kind == 'h') ? 16 : (kind == 'O' || kind == 'o') ? 8 : 10;
        if (base != 10) {
            number.radix = true;
            at += 2;
        }
    }

    bool anyDigit = false, decimal = false, exponent = false, exponentDigit = false, exponentNegative = false;
    int64_t exponentValue = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (number.radix) {
            const int digit = DigitValue(c, base);
            if (digit < 0)
                break;
            anyDigit = true;
            if (number.radixValue > (std::numeric_limits<uint64_t>::max() - digit) / base)
                number.radixTooBig = true;
            number.radixValue = number.radixValue * base + digit;
        } else if (c >= '0' && c <= '9') {
            if (exponent) {
                exponentDigit = true;
                if (exponentValue < 1000000) // far beyond any double; saturates
                    exponentValue = exponentValue * 10 + (c - '0');
            } else {
                anyDigit = true;
                if (c != '0' || !number.digits.empty())
                    number.digits += c;
                if (decimal)
                    --number.power;
            }
        } else if (c == ',' && anyDigit && !exponent) {
            // thousands separators are skipped wherever they stand after the first digit
        } else if (c == '.' && !decimal && !exponent) {
            decimal = true;
        } else if ((c == 'e' || c == 'E') && !exponent && anyDigit) {
            exponent = true;
        } else if ((c == '+' || c == '-') && exponent && !exponentDigit && text[at - 1] != c
            && (text[at - 1] == 'e' || text[at - 1] == 'E')) {
            exponentNegative = c == '-';
        } else {
            break;
        }
    }
    if (!anyDigit || (exponent && !exponentDigit))
        return std::nullopt;
    if (exponent)
        number.power += exponentNegative ? -exponentValue : exponentValue;

    bool trailingSign = false, closed = false;
    for (;;) {
        if (BlankAt(text, at)) {
            SkipBlanks(text, at);
            continue;
        }
        if (at >= text.size())
            break;
        const char c = text[at];
        if ((c == '+' || c == '-') && !trailingSign && !plus && !minus) {
            trailingSign = true;
            number.negative = number.negative || c == '-';
        } else if (c == ')' && parens && !closed) {
            closed = true;
        } else if (c == '$' && !currency) {
            currency = true;
        } else {
            break;
        }
        ++at;
    }
    if (at != text.size() || parens != closed)
        return std::nullopt;
    if (closed)
        number.negative = true;
    if (number.radix)
        number.negative = false; // the host ignores a sign before &H and &O
    return number;
}

ParsedNumber Require(std::string_view text)
{
    std::optional<ParsedNumber> number = Parse(text);
    if (!number)
        Raise(ErrorCode::TypeMismatch);
    return *number;
}

// A decimal number rounded half to even from its digits, as a 64-bit value; Overflow when
// its magnitude needs more than 18 digits (beyond every type it is converted to).
int64_t RoundedDecimal(const ParsedNumber& number)
{
    const auto count = static_cast<int64_t>(number.digits.size());
    const int64_t whole = count + number.power; // digits before the decimal point
    if (count == 0 || whole < 0)
        return 0; // zero, or below 0.1 (which rounds to 0)
    if (whole > 18)
        Raise(ErrorCode::Overflow);
    int64_t value = 0;
    for (int64_t i = 0; i < whole; ++i)
        value = value * 10 + (i < count ? number.digits[static_cast<size_t>(i)] - '0' : 0);
    if (whole < count) {
        const char first = number.digits[static_cast<size_t>(whole)];
        const bool restZero = number.digits.find_first_not_of('0', static_cast<size_t>(whole + 1)) == std::string::npos;
        if (first > '5' || (first == '5' && (!restZero || value % 2 != 0)))
            ++value;
    }
    return number.negative ? -value : value;
}

double DecimalAsDouble(const ParsedNumber& number)
{
    if (number.digits.empty())
        return 0.0;
    const std::string text = number.digits + "e" + std::to_string(number.power);
    const double value = std::strtod(text.c_str(), nullptr);
    if (std::isinf(value))
        Raise(ErrorCode::Overflow);
    return number.negative ? -value : value;
}

// "&H"/"&O" digits wrap into the type's width ("&HFFFF" is -1 as an Integer); more is Overflow.
template <typename Int> Int Wrapped(const ParsedNumber& number)
{
    using Unsigned = std::make_unsigned_t<Int>;
    if (number.radixTooBig || number.radixValue > std::numeric_limits<Unsigned>::max())
        Raise(ErrorCode::Overflow);
    return static_cast<Int>(static_cast<Unsigned>(number.radixValue));
}

} // namespace

int16_t IntegerFromText(std::string_view text)
{
    const ParsedNumber number = Require(text);
    if (number.radix)
        return Wrapped<int16_t>(number);
    return ToInt16(RoundedDecimal(number));
}

int32_t LongFromText(std::string_view text)
{
    const ParsedNumber number = Require(text);
    if (number.radix)
        return Wrapped<int32_t>(number);
    return ToInt32(RoundedDecimal(number));
}

double DoubleFromText(std::string_view text)
{
    const ParsedNumber number = Require(text);
    if (number.radix) // the literal's own type: an Integer when the value fits 16 bits, else a Long
        return number.radixValue <= 0xFFFFu ? Wrapped<int16_t>(number) : Wrapped<int32_t>(number);
    return DecimalAsDouble(number);
}

bool BooleanFromText(std::string_view text)
{
    if (text == "#TRUE#")
        return true;
    if (text == "#FALSE#")
        return false;
    auto equalsIgnoringCase = [text](std::string_view word) {
        if (text.size() != word.size())
            return false;
        for (size_t i = 0; i < word.size(); ++i)
            if ((text[i] | 0x20) != word[i])
                return false;
        return true;
    };
    if (equalsIgnoringCase("true"))
        return true;
    if (equalsIgnoringCase("false"))
        return false;
    const ParsedNumber number = Require(text);
    if (number.radix) {
        // Beyond a positive Long the host reports an overflow.
        if (number.radixTooBig || number.radixValue > 0x7FFFFFFFu)
            Raise(ErrorCode::Overflow);
        return number.radixValue != 0;
    }
    return DecimalAsDouble(number) != 0.0;
}

} // namespace vex
