#pragma once
// Scanline unfiltering. The inflated image data is a sequence of rows, each one filter-type
// byte followed by the row's packed pixel bytes:
//
//   [type][b0 b1 ... b(n-1)] [type][b0 ...] ...      row length = n + 1
//
// Unfiltering works in place: row r is reconstructed over its own bytes, using row r - 1
// (already reconstructed) as "up". The filter-type bytes stay where they are; readers skip them.
//
// "left" is the byte `step` positions earlier in the same row (0 for the first `step` bytes),
// "up" the byte above, "upper-left" the byte `step` earlier in the row above; all sums wrap at
// 256. Types 5 to 255 leave the row as it is: an unknown filter is not an error.

#include <cstddef>
#include <cstdint>

namespace vex::png {

enum FilterType : uint8_t {
    kFilterNone = 0,
    kFilterSub = 1,
    kFilterUp = 2,
    kFilterAverage = 3,
    kFilterPaeth = 4,
};

// The Paeth predictor: p = left + up - upperLeft; the nearest of the three to p wins, ties
// going to left, then up.
constexpr uint8_t PaethPredictor(uint8_t left, uint8_t up, uint8_t upperLeft)
{
    int p = int{left} + up - upperLeft;
    int pa = p > left ? p - left : left - p;
    int pb = p > up ? p - up : up - p;
    int pc = p > upperLeft ? p - upperLeft : upperLeft - p;
    if (pa <= pb && pa <= pc)
        return left;
    return pb <= pc ? up : upperLeft;
}

// Reconstructs one row of `length` bytes in place. `previous` is the reconstructed row above,
// or nullptr for the first row (an all-zero row).
void UnfilterRow(uint8_t filterType, uint8_t* row, const uint8_t* previous, size_t length, size_t step);

// Reconstructs `rows` rows of `rowLength` bytes each (filter byte first) in place.
void UnfilterImage(uint8_t* data, size_t rowLength, size_t rows, size_t step);

} // namespace vex::png
