// Checks the recorded text conversions (tests/base/text_conversions.txt, the file named on the
// command line) against the platform's VarI2FromStr, VarI4FromStr and VarBoolFromStr (en-US);
// prints each difference and exits with the number of differences (-1: no table).

#include <windows.h>
#include <oleauto.h>

#include <cstdio>
#include <string>

#include "../base/text_conversion_cases.h"


namespace {

int64_t Outcome(HRESULT result, int64_t value)
{
    if (result == DISP_E_OVERFLOW)
        return vex::testing::kOverflow;
    if (FAILED(result))
        return vex::testing::kMismatch;
    return value;
}

} // namespace

int main(int argc, char** argv)
{
    const auto cases = vex::testing::ReadConversionCases(argc > 1 ? argv[1] : "");
    if (cases.empty())
        return -1;
    const LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    int differences = 0;
    for (const auto& c : cases) {
        std::wstring text(MultiByteToWideChar(CP_UTF8, 0, c.text.c_str(), -1, nullptr, 0), L'\0');
        MultiByteToWideChar(CP_UTF8, 0, c.text.c_str(), -1, text.data(), static_cast<int>(text.size()));
        SHORT integer = 0;
        LONG longValue = 0;
        VARIANT_BOOL boolean = 0;
        const HRESULT i2Result = VarI2FromStr(text.data(), english, 0, &integer);
        const HRESULT i4Result = VarI4FromStr(text.data(), english, 0, &longValue);
        const HRESULT bResult = VarBoolFromStr(text.data(), english, 0, &boolean);
        const int64_t i2 = Outcome(i2Result, integer);
        const int64_t i4 = Outcome(i4Result, longValue);
        const int64_t b = Outcome(bResult, boolean);
        if (i2 != c.integer || i4 != c.longValue || b != c.boolean) {
            ++differences;
            std::printf("\"%s\": platform %lld, %lld, %lld\n", c.text.c_str(), static_cast<long long>(i2),
                static_cast<long long>(i4), static_cast<long long>(b));
        }
    }
    std::printf("%d of %zu cases differ\n", differences, cases.size());
    return differences;
}
