// Unfiltering and Adam7: the filter rules at their edges, and the pass geometry checked against
// the pass patterns and against a direct count of the columns each pass owns.

#include <gtest/gtest.h>

#include <numeric>

#include "png/adam7.h"
#include "png/png_header.h"
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

// Each pixel's value is its position; de-interlacing must put every one back in place, also
// for sub-byte depths where pixels share bytes.
TEST(Adam7, DeinterlaceScattersEveryPixelToItsPlace)
{
    for (int depth : {1, 2, 4, 8, 16}) {
        PngHeader header{13, 11, depth, 0, 0, 0, 1};
        int bits = BitsPerPixel(header);
        unsigned mask = depth >= 8 ? 0xFFu : (1u << depth) - 1u;
        auto valueAt = [&](int64_t x, int64_t y) { return static_cast<unsigned>((x * 7 + y * 3) & mask); };
        std::vector<uint8_t> data;
        for (int pass = 0; pass < kAdam7Passes; ++pass) {
            int64_t columns = PassColumns(header.width, pass);
            if (columns == 0)
                continue;
            for (int64_t r = 0; r < PassRows(header.height, pass); ++r) {
                int64_t y = kAdam7[pass].firstRow + r * kAdam7[pass].rowStep;
                data.push_back(0);
                std::vector<uint8_t> row(static_cast<size_t>(PassRowBytes(header.width, bits, pass)), 0);
                for (int64_t i = 0; i < columns; ++i) {
                    unsigned v = valueAt(kAdam7[pass].firstColumn + i * kAdam7[pass].columnStep, y);
                    if (depth >= 8) {
                        for (int b = 0; b < depth / 8; ++b)
                            row[static_cast<size_t>(i * depth / 8 + b)] = static_cast<uint8_t>(v);
                    } else {
                        int64_t bit = i * depth;
                        row[static_cast<size_t>(bit / 8)] |= static_cast<uint8_t>(v << (8 - depth - bit % 8));
                    }
                }
                data.insert(data.end(), row.begin(), row.end());
            }
        }
        ASSERT_EQ(static_cast<int64_t>(data.size()), InterlacedDataSize(header.width, header.height, bits));
        std::vector<uint8_t> image;
        Deinterlace(data.data(), header, image);
        size_t rowBytes = static_cast<size_t>(PackedRowBytes(header.width, bits));
        for (int64_t y = 0; y < header.height; ++y) {
            for (int64_t x = 0; x < header.width; ++x) {
                const uint8_t* row = image.data() + static_cast<size_t>(y) * rowBytes;
                unsigned got;
                if (depth >= 8) {
                    got = row[x * depth / 8];
                } else {
                    int64_t bit = x * depth;
                    got = (row[bit / 8] >> (8 - depth - bit % 8)) & mask;
                }
                ASSERT_EQ(got, valueAt(x, y)) << "depth " << depth << " at " << x << ", " << y;
            }
        }
    }
}

} // namespace
} // namespace vex::png
