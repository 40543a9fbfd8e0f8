#pragma once
// Text to number and Boolean as the host converts a String (CInt("1,000"), a Long property set
// from a text box, a Boolean from "#TRUE#"), with the en-US separators: '.' decimal point,
// ',' thousands, '$' currency.
//
// What is accepted, around the digits:
//   leading   blanks, at most one each of '+', '-', '$' and '(' in any order, blanks between
//   number    decimal digits with ',' anywhere after the first digit, one '.', an exponent
//             'E'/'e' with an optional sign and at least one digit; or "&H" hexadecimal /
//             "&O" octal digits, where a sign is ignored and the value wraps into the type
//             ("&HFFFF" is -1 as an Integer, 65535 as a Long)
//   trailing  blanks, a '+' or '-' (not repeating a leading one), ')' closing '(' (which
//             makes the number negative), a '$' when there was none before
// Decimal numbers round half to even from their digits, not from a double, and raise Overflow
// (6) beyond the type; anything else raises Type mismatch (13). A Boolean is True for any
// non-zero number, False for zero, and also reads "True"/"False" (any case, nothing around
// them) and "#TRUE#"/"#FALSE#" (exactly so).

#include <cstdint>
#include <string_view>

namespace vex {

int16_t IntegerFromText(std::string_view text);
int32_t LongFromText(std::string_view text);
bool BooleanFromText(std::string_view text);
// The number as a double (Overflow beyond its range; underflow gives 0).
double DoubleFromText(std::string_view text);

} // namespace vex
