#pragma once
// The host language's numeric rules, in one place:
//  - 16-bit (Integer) and 32-bit (Long) arithmetic is checked; a result out of range raises
//    Overflow (6) instead of wrapping.
//  - Floating point to integer conversion (CInt, CLng and every implicit conversion) rounds to
//    nearest with ties to even, then raises Overflow when the result does not fit.
//  - `a \ b` rounds both operands to integers, then divides truncating toward zero; a zero
//    divisor raises Division by zero (11).
// Painters, parsers and the control never round or narrow by hand: they call these.

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/runtime_error.h"

namespace vex {

// ---- Narrowing -------------------------------------------------------------------------------

constexpr int16_t ToInt16(int64_t value)
{
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        Raise(ErrorCode::Overflow);
    return static_cast<int16_t>(value);
}

constexpr int32_t ToInt32(int64_t value)
{
    if (value < std::numeric_limits<int32_t>::min() || value > std::numeric_limits<int32_t>::max())
        Raise(ErrorCode::Overflow);
    return static_cast<int32_t>(value);
}

constexpr uint8_t ToByte(int64_t value)
{
    if (value < 0 || value > 255)
        Raise(ErrorCode::Overflow);
    return static_cast<uint8_t>(value);
}

// ---- Rounding --------------------------------------------------------------------------------

// Round to nearest, ties to even, as a double (no range check). NaN stays NaN.
inline double RoundHalfEven(double value)
{
    return std::nearbyint(value); // the default floating-point environment rounds to nearest-even
}

// CInt: round half to even, then narrow to 16 bits (Overflow when it does not fit).
inline int16_t CInt(double value)
{
    double rounded = RoundHalfEven(value);
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) // also catches NaN
        Raise(ErrorCode::Overflow);
    return static_cast<int16_t>(rounded);
}

// CLng: round half to even, then narrow to 32 bits.
inline int32_t CLng(double value)
{
    double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
        Raise(ErrorCode::Overflow);
    return static_cast<int32_t>(rounded);
}

// CByte: round half to even, then narrow to 0..255.
inline uint8_t CByte(double value)
{
    double rounded = RoundHalfEven(value);
    if (!(rounded >= 0.0 && rounded <= 255.0))
        Raise(ErrorCode::Overflow);
    return static_cast<uint8_t>(rounded);
}

// The smallest magnitude that does not round to a finite single: half a unit above the largest
// single. "3.4028235e+38", the shortest text of that largest single, lies between the two.
inline constexpr double kSingleOverflow = 3.4028235677973366e38;

// CSng: a double narrowed to single precision (Overflow when it would round beyond float's range).
inline float CSng(double value)
{
    if (std::isfinite(value) && std::fabs(value) >= kSingleOverflow)
        Raise(ErrorCode::Overflow);
    return static_cast<float>(value);
}

// CCur's range: a Currency holds +-922337203685477.5807. Beyond it, and NaN, Overflow.
inline double CheckCurrency(double value)
{
    if (!(value > -922337203685477.5808 && value < 922337203685477.5808))
        Raise(ErrorCode::Overflow);
    return value;
}

// ---- Checked arithmetic ------------------------------------------------------------------------

constexpr int16_t Add16(int16_t a, int16_t b) { return ToInt16(int64_t{a} + b); }
constexpr int16_t Sub16(int16_t a, int16_t b) { return ToInt16(int64_t{a} - b); }
constexpr int16_t Mul16(int16_t a, int16_t b) { return ToInt16(int64_t{a} * b); }
constexpr int32_t Add32(int32_t a, int32_t b) { return ToInt32(int64_t{a} + b); }
constexpr int32_t Sub32(int32_t a, int32_t b) { return ToInt32(int64_t{a} - b); }
constexpr int32_t Mul32(int32_t a, int32_t b) { return ToInt32(int64_t{a} * b); }
constexpr int32_t Neg32(int32_t a) { return ToInt32(-int64_t{a}); }

// `a \ b` on integers: truncates toward zero. Division by zero raises 11; the one quotient
// that does not fit (-2^31 \ -1) raises Overflow.
constexpr int32_t IntDiv32(int32_t a, int32_t b)
{
    if (b == 0)
        Raise(ErrorCode::DivisionByZero);
    return ToInt32(int64_t{a} / b);
}

constexpr int16_t IntDiv16(int16_t a, int16_t b)
{
    if (b == 0)
        Raise(ErrorCode::DivisionByZero);
    return ToInt16(int64_t{a} / b);
}

// `x \ y` where an operand is a floating-point value: both are first rounded to 32-bit
// integers (half to even), then divided as above.
inline int32_t IntDiv(double a, double b) { return IntDiv32(CLng(a), CLng(b)); }

// `a / b` in floating point where the host raises Division by zero (11) for x / 0 and
// Overflow (6) for 0 / 0 instead of producing infinities and NaNs.
inline double Divide(double a, double b)
{
    if (b == 0.0)
        Raise(a == 0.0 ? ErrorCode::Overflow : ErrorCode::DivisionByZero);
    return a / b;
}

} // namespace vex
