#include <gtest/gtest.h>

#include <limits>

#include "base/numeric.h"
#include "raises.h"

using namespace vex;
using vex::testing::RaisedBy;

TEST(Rounding, HalvesGoToEven)
{
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(-3.5), -4);
    EXPECT_EQ(CLng(20.5), 20);
    EXPECT_EQ(CLng(21.5), 22);
    EXPECT_EQ(CLng(12.5000001), 13);
    EXPECT_EQ(CByte(254.5), 254);
}

TEST(Rounding, OutOfRangeIsOverflow)
{
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(RaisedBy([] { CInt(32767.5); }), 6); // rounds to 32768
    EXPECT_EQ(CInt(-32768.5), -32768);            // rounds to even -32768
    EXPECT_EQ(RaisedBy([] { CInt(-32769); }), 6);
    EXPECT_EQ(RaisedBy([] { CLng(2147483647.5); }), 6);
    EXPECT_EQ(RaisedBy([] { CLng(std::nan("")); }), 6);
    EXPECT_EQ(RaisedBy([] { CByte(-1); }), 6);
    EXPECT_EQ(RaisedBy([] { CByte(255.5); }), 6);
    EXPECT_EQ(CSng(3.4028235e38), std::numeric_limits<float>::max()); // rounds down to the largest
    EXPECT_EQ(RaisedBy([] { CSng(3.4028236e38); }), 6);
    EXPECT_EQ(RaisedBy([] { CheckCurrency(std::numeric_limits<float>::infinity()); }), 6);
    EXPECT_EQ(RaisedBy([] { CheckCurrency(std::nan("")); }), 6);
    EXPECT_EQ(CheckCurrency(-922337203685477.0), -922337203685477.0);
}

TEST(CheckedArithmetic, SixteenBitOverflowRaisesSix)
{
    EXPECT_EQ(Add16(32000, 767), 32767);
    EXPECT_EQ(RaisedBy([] { Add16(32000, 768); }), 6);
    EXPECT_EQ(RaisedBy([] { Sub16(-32768, 1); }), 6);
    EXPECT_EQ(RaisedBy([] { Mul16(256, 128); }), 6);
    EXPECT_EQ(ToInt16(-32768), -32768);
    EXPECT_EQ(RaisedBy([] { ToInt16(40000); }), 6);
}

TEST(CheckedArithmetic, ThirtyTwoBitOverflowRaisesSix)
{
    EXPECT_EQ(Add32(2147483600, 47), 2147483647);
    EXPECT_EQ(RaisedBy([] { Add32(2147483600, 48); }), 6);
    EXPECT_EQ(RaisedBy([] { Mul32(65536, 32768); }), 6);
    EXPECT_EQ(RaisedBy([] { Neg32(INT32_MIN); }), 6);
}

TEST(IntegerDivision, TruncatesTowardZero)
{
    EXPECT_EQ(IntDiv32(-31, 2), -15);
    EXPECT_EQ(IntDiv32(31, 2), 15);
    EXPECT_EQ(IntDiv32(-7, -2), 3);
    EXPECT_EQ(RaisedBy([] { IntDiv32(1, 0); }), 11);
    EXPECT_EQ(RaisedBy([] { IntDiv32(INT32_MIN, -1); }), 6);
    // Floating operands are rounded (half to even) before dividing.
    EXPECT_EQ(IntDiv(101.5, 2.0), 51); // 102 \ 2
    EXPECT_EQ(IntDiv(100.5, 2.0), 50); // 100 \ 2
}

TEST(FloatingDivision, ZeroDivisorsRaiseTheHostsErrors)
{
    EXPECT_DOUBLE_EQ(Divide(40, 16), 2.5);
    EXPECT_EQ(RaisedBy([] { Divide(1, 0); }), 11);
    EXPECT_EQ(RaisedBy([] { Divide(0, 0); }), 6);
}

TEST(RuntimeError, CarriesNumberAndStandardDescription)
{
    RuntimeError overflow(ErrorCode::Overflow);
    EXPECT_EQ(overflow.number(), 6);
    EXPECT_STREQ(overflow.what(), "Overflow");
    EXPECT_EQ(StandardDescription(91), "Object variable or With block variable not set");
    EXPECT_EQ(StandardDescription(13), "Type mismatch");
    EXPECT_EQ(StandardDescription(9), "Subscript out of range");
    EXPECT_EQ(StandardDescription(12345), "Application-defined or object-defined error");
}
