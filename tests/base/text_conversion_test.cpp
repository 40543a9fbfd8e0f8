// Text conversions against the host's, case by case (the table was recorded under Wine).

#include <gtest/gtest.h>

#include <functional>

#include "base/runtime_error.h"
#include "base/text_conversion.h"
#include "text_conversion_cases.h"
#include "raises.h"

namespace vex {
namespace {

int64_t Outcome(const std::function<int64_t()>& convert)
{
    int64_t value = 0;
    const int32_t error = vex::testing::RaisedBy([&] { value = convert(); });
    return error ? int64_t { error } << 40 : value;
}

TEST(TextConversion, AsTheHostConvertsText)
{
    const auto cases = testing::ReadConversionCases(VEX_SOURCE_DIR "/tests/base/text_conversions.txt");
    ASSERT_EQ(cases.size(), 166u);
    for (const auto& c : cases) {
        EXPECT_EQ(Outcome([&] { return IntegerFromText(c.text); }), c.integer) << "Integer \"" << c.text << '"';
        EXPECT_EQ(Outcome([&] { return LongFromText(c.text); }), c.longValue) << "Long \"" << c.text << '"';
        EXPECT_EQ(Outcome([&] { return BooleanFromText(c.text) ? -1 : 0; }), c.boolean) << "Boolean \"" << c.text << '"';
    }
}

TEST(TextConversion, DoublesKeepTheirFraction)
{
    EXPECT_EQ(DoubleFromText("(1,234.5)"), -1234.5);
    EXPECT_EQ(DoubleFromText("1e-400"), 0.0);
    EXPECT_EQ(DoubleFromText("&HFFFF"), -1.0);
    EXPECT_EQ(Outcome([] { return static_cast<int64_t>(DoubleFromText("1e400")); }), int64_t { 6 } << 40);
}

} // namespace
} // namespace vex
