#pragma once
// Text to Integer, Long and Boolean as the host converts them: VarI2FromStr, VarI4FromStr and
// VarBoolFromStr with the en-US locale, recorded under Wine. The native test checks our
// conversions against it; the Windows build checks it against the platform (conversion_table).

#include <cstdint>

namespace vex::testing {

inline constexpr int64_t kOverflow = int64_t { 6 } << 40; // the host's error 6
inline constexpr int64_t kMismatch = int64_t { 13 } << 40; // the host's error 13

struct ConversionCase {
    const char* text; // UTF-8
    int64_t integer, longValue, boolean; // the value, or kOverflow / kMismatch
};

inline constexpr ConversionCase kConversionCases[] = {
    { "5", 5, 5, -1 }, { "+5", 5, 5, -1 },
    { "-5", -5, -5, -1 }, { " 5 ", 5, 5, -1 },
    { "\t5\t", 5, 5, -1 }, { "5 6", kMismatch, kMismatch, kMismatch },
    { "&H10", 16, 16, -1 }, { "&h10", 16, 16, -1 },
    { "&O17", 15, 15, -1 }, { "&o17", 15, 15, -1 },
    { "&H", kMismatch, kMismatch, kMismatch }, { "&O8", kMismatch, kMismatch, kMismatch },
    { "&B101", kMismatch, kMismatch, kMismatch }, { "&HFFFF", -1, 65535, -1 },
    { "&H10000", kOverflow, 65536, -1 }, { "&H8000", -32768, 32768, -1 },
    { "&H7FFF", 32767, 32767, -1 }, { "&H8000000F", kOverflow, -2147483633, kOverflow },
    { "&HC0E0FF", kOverflow, 12640511, -1 }, { "&HFFFFFFFF", kOverflow, -1, kOverflow },
    { "&H100000000", kOverflow, kOverflow, kOverflow }, { "&H7FFFFFFF", kOverflow, 2147483647, -1 },
    { "1,000", 1000, 1000, -1 }, { "1,2,3", 123, 123, -1 },
    { "(5)", -5, -5, -1 }, { "(5", kMismatch, kMismatch, kMismatch },
    { "5-", -5, -5, -1 }, { "-5-", kMismatch, kMismatch, kMismatch },
    { "$5", 5, 5, -1 }, { "$-5", -5, -5, -1 },
    { "-$5", -5, -5, -1 }, { "5%", kMismatch, kMismatch, kMismatch },
    { "2.5", 2, 2, -1 }, { "3.5", 4, 4, -1 },
    { "-2.5", -2, -2, -1 }, { "0.5", 0, 0, -1 },
    { "1.5", 2, 2, -1 }, { ".5", 0, 0, -1 },
    { "5.", 5, 5, -1 }, { "32767", 32767, 32767, -1 },
    { "32768", kOverflow, 32768, -1 }, { "-32768", -32768, -32768, -1 },
    { "-32769", kOverflow, -32769, -1 }, { "2147483647", kOverflow, 2147483647, -1 },
    { "2147483648", kOverflow, kOverflow, -1 }, { "-2147483648", kOverflow, -2147483648, -1 },
    { "-2147483649", kOverflow, kOverflow, -1 }, { "1e-400", 0, 0, 0 },
    { "1e400", kOverflow, kOverflow, kOverflow }, { "1E2", 100, 100, -1 },
    { "1.5e3", 1500, 1500, -1 }, { "1d2", kMismatch, kMismatch, kMismatch },
    { "0x10", kMismatch, kMismatch, kMismatch }, { "--5", kMismatch, kMismatch, kMismatch },
    { "+-5", -5, -5, -1 }, { "", kMismatch, kMismatch, kMismatch },
    { " ", kMismatch, kMismatch, kMismatch }, { "abc", kMismatch, kMismatch, kMismatch },
    { "tRuE", kMismatch, kMismatch, -1 }, { "true", kMismatch, kMismatch, -1 },
    { "True", kMismatch, kMismatch, -1 }, { "false", kMismatch, kMismatch, 0 },
    { "#TRUE#", kMismatch, kMismatch, -1 }, { "#FALSE#", kMismatch, kMismatch, 0 },
    { "#true#", kMismatch, kMismatch, kMismatch }, { "yes", kMismatch, kMismatch, kMismatch },
    { "on", kMismatch, kMismatch, kMismatch }, { "-1", -1, -1, -1 },
    { "0", 0, 0, 0 }, { "1", 1, 1, -1 },
    { " true ", kMismatch, kMismatch, kMismatch }, { "1 000", kMismatch, kMismatch, kMismatch },
    { "nan", kMismatch, kMismatch, kMismatch }, { "inf", kMismatch, kMismatch, kMismatch },
    { "32767.5", kOverflow, 32768, -1 }, { "-32768.5", -32768, -32768, -1 },
    { "1.2.3", kMismatch, kMismatch, kMismatch }, { "\n5", 5, 5, -1 },
    { "5\n", 5, 5, -1 }, { "1e", kMismatch, kMismatch, kMismatch },
    { "e5", kMismatch, kMismatch, kMismatch }, { "&H-1", kMismatch, kMismatch, kMismatch },
    { "1,000.5", 1000, 1000, -1 }, { ",5", kMismatch, kMismatch, kMismatch },
    { "5,", 5, 5, -1 }, { "(-5)", -5, -5, -1 },
    { "\xC2\xA0" "5", 5, 5, -1 }, { "+$5", 5, 5, -1 },
    { "$+5", 5, 5, -1 }, { "$(5)", -5, -5, -1 },
    { "($5)", -5, -5, -1 }, { "(+5)", -5, -5, -1 },
    { "(5)-", -5, -5, -1 }, { "5+", 5, 5, -1 },
    { "+5+", kMismatch, kMismatch, kMismatch }, { "5 -", -5, -5, -1 },
    { " -5", -5, -5, -1 }, { "- 5", -5, -5, -1 },
    { "$ 5", 5, 5, -1 }, { "5$", 5, 5, -1 },
    { "$$5", kMismatch, kMismatch, kMismatch }, { "&H 10", kMismatch, kMismatch, kMismatch },
    { " &H10 ", 16, 16, -1 }, { "&HFFFF ", -1, 65535, -1 },
    { "&h000000010", 16, 16, -1 }, { "&O177777", -1, 65535, -1 },
    { "&O200000", kOverflow, 65536, -1 }, { "&O37777777777", kOverflow, -1, kOverflow },
    { "&O40000000000", kOverflow, kOverflow, kOverflow }, { "&H0", 0, 0, 0 },
    { "-&H10", 16, 16, -1 }, { "+&H10", 16, 16, -1 },
    { "(&H10)", 16, 16, -1 }, { "1,,000", 1000, 1000, -1 },
    { "1.5,0", 2, 2, -1 }, { "1e+2", 100, 100, -1 },
    { "1e-2", 0, 0, -1 }, { "1E+", kMismatch, kMismatch, kMismatch },
    { "1e2.5", kMismatch, kMismatch, kMismatch }, { "1.e2", 100, 100, -1 },
    { ".e2", kMismatch, kMismatch, kMismatch }, { ".", kMismatch, kMismatch, kMismatch },
    { "$", kMismatch, kMismatch, kMismatch }, { "-", kMismatch, kMismatch, kMismatch },
    { "+", kMismatch, kMismatch, kMismatch }, { "()", kMismatch, kMismatch, kMismatch },
    { "0.5e1", 5, 5, -1 }, { "2.5e0", 2, 2, -1 },
    { "25e-1", 2, 2, -1 }, { "123456789012345678901234567890", kOverflow, kOverflow, -1 },
    { "0.000000000000000000000000001", 0, 0, -1 }, { "32767.4999999999999", 32767, 32767, -1 },
    { "1,000,000", kOverflow, 1000000, -1 }, { "9,9.9,9", 100, 100, -1 },
    { "\r5\r", 5, 5, -1 }, { "\v5", 5, 5, -1 },
    { "\f5", 5, 5, -1 }, { "TRUE", kMismatch, kMismatch, -1 },
    { "FALSE", kMismatch, kMismatch, 0 }, { "#True#", kMismatch, kMismatch, kMismatch },
    { " #TRUE#", kMismatch, kMismatch, kMismatch }, { "#TRUE# ", kMismatch, kMismatch, kMismatch },
    { "#TRUE", kMismatch, kMismatch, kMismatch }, { "true ", kMismatch, kMismatch, kMismatch },
    { "\ttrue", kMismatch, kMismatch, kMismatch }, { "-0", 0, 0, 0 },
    { "-0.4", 0, 0, -1 }, { "(0)", 0, 0, 0 },
    { "5e-1", 0, 0, -1 }, { "15e-1", 2, 2, -1 },
    { "-5e-1", 0, 0, -1 }, { "1.2e1", 12, 12, -1 },
    { "0e99999", 0, 0, 0 }, { "00005", 5, 5, -1 },
    { "&H00000000FFFFFFFF", kOverflow, -1, kOverflow }, { "&O7777777777777", kOverflow, kOverflow, kOverflow },
    { "1_000", kMismatch, kMismatch, kMismatch }, { "1'000", kMismatch, kMismatch, kMismatch },
    { "5.5.", kMismatch, kMismatch, kMismatch }, { "1e1e1", kMismatch, kMismatch, kMismatch },
    { "e", kMismatch, kMismatch, kMismatch }, { "E5", kMismatch, kMismatch, kMismatch },
    { "&", kMismatch, kMismatch, kMismatch }, { "&X10", kMismatch, kMismatch, kMismatch },
    { "&H1G", kMismatch, kMismatch, kMismatch }, { "&HG", kMismatch, kMismatch, kMismatch },
};

} // namespace vex::testing
