// Unfiltering and Adam7: the filter rules at their edges, and the pass geometry checked against
// a direct count of the columns each pass owns. (De-interlacing itself is checked against libpng
// on the suite's interlaced files of every type, depth and size from 1 to 40.)

#include <gtest/gtest.h>

#include "png/adam7.h"
#include "png/unfilter.h"

namespace vex::png {
namespace {

TEST(Unfilter, PaethTiesGoToLeftThenUp)
{
    EXPECT_EQ(PaethPredictor(7, 7, 7), 7);
    EXPECT_EQ(PaethPredictor(10, 20, 15), 15); // p = 15: pa = pb = 5, pc = 0
    EXPECT_EQ(PaethPredictor(10, 20, 20), 10); // p = 10: left exact
    EXPECT_EQ(PaethPredictor(20, 10, 20), 10); // p = 10: pa = 10, pb = 0
    EXPECT_EQ(PaethPredictor(0, 255, 128), 128);
}

// The row unfilter's Paeth is written differently from PaethPredictor (for speed); both must
// agree on every combination of the three neighbours' relations.
TEST(Unfilter, PaethRowAgreesWithThePredictorEverywhere)
{
    for (int left = 0; left < 256; left += 5) {
        for (int up = 0; up < 256; up += 3) {
            for (int upperLeft = 0; upperLeft < 256; upperLeft += 7) {
                uint8_t previous[2] = {static_cast<uint8_t>(upperLeft), static_cast<uint8_t>(up)};
                uint8_t row[2] = {static_cast<uint8_t>(left), 100};
                UnfilterRow(kFilterPaeth, row, previous, 2, 1);
                // Byte 0 has no left: predictor(0, upperLeft, 0) = upperLeft added to `left`.
                uint8_t first = static_cast<uint8_t>(left + PaethPredictor(0, static_cast<uint8_t>(upperLeft), 0));
                ASSERT_EQ(row[0], first);
                uint8_t expected = static_cast<uint8_t>(100 + PaethPredictor(first, static_cast<uint8_t>(up),
                                                                             static_cast<uint8_t>(upperLeft)));
                ASSERT_EQ(row[1], expected) << left << ' ' << up << ' ' << upperLeft;
            }
        }
    }
}

// Every filter (and the unknown type 5, which copies) at every pixel size against the textbook
// byte-by-byte rules, on random rows and on a first row, which sees zeros above (the 3- and 4-byte
// pixel sizes take a vectorised path of their own).
TEST(Unfilter, EveryFilterAndStepMatchesTheTextbookRules)
{
    uint32_t seed = 12345;
    auto next = [&] { return static_cast<uint8_t>((seed = seed * 1103515245u + 12345u) >> 16); };
    for (size_t step : {1, 2, 3, 4, 6, 8}) {
        for (uint8_t type = 0; type <= 5; ++type) {
            for (bool firstRow : {false, true}) {
                size_t length = step * 37;
                std::vector<uint8_t> above(length), row(length);
                for (auto& b : above)
                    b = next();
                for (auto& b : row)
                    b = next();
                std::vector<uint8_t> expected = row;
                for (size_t x = 0; x < length; ++x) {
                    int left = x >= step ? expected[x - step] : 0;
                    int up = firstRow ? 0 : above[x];
                    int upperLeft = (x >= step && !firstRow) ? above[x - step] : 0;
                    int add = type == 1 ? left : type == 2 ? up : type == 3 ? (left + up) / 2
                            : type == 4 ? PaethPredictor(static_cast<uint8_t>(left), static_cast<uint8_t>(up), static_cast<uint8_t>(upperLeft))
                            : 0;
                    expected[x] = static_cast<uint8_t>(expected[x] + add);
                }
                UnfilterRow(type, row.data(), firstRow ? nullptr : above.data(), length, step);
                ASSERT_EQ(row, expected) << "step " << step << " type " << int{type} << (firstRow ? " first row" : "");
            }
        }
    }
}

// The pass pattern rule must give the bytes of exactly the columns a pass owns.
TEST(Adam7, PassRowBytesFollowThePatternsForEveryWidthAndDepth)
{
    for (int bits : {1, 2, 4, 8, 16, 24, 32, 48, 64}) {
        for (int64_t width = 1; width <= 40; ++width) {
            for (int pass = 0; pass < kAdam7Passes; ++pass) {
                int64_t owned = 0;
                for (int64_t x = kAdam7[pass].firstColumn; x < width; x += kAdam7[pass].columnStep)
                    ++owned;
                ASSERT_EQ(PassColumns(width, pass), owned);
                ASSERT_EQ(PassRowBytes(width, bits, pass), (owned * bits + 7) / 8)
                    << "bits " << bits << " width " << width << " pass " << pass + 1;
            }
        }
    }
}

} // namespace
} // namespace vex::png
