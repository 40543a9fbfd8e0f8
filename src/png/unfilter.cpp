#include "png/unfilter.h"

#include <cstdlib>

namespace vex::png {

namespace {

void UnfilterSub(uint8_t* row, size_t length, size_t step)
{
    for (size_t x = step; x < length; ++x)
        row[x] = static_cast<uint8_t>(row[x] + row[x - step]);
}

void UnfilterUp(uint8_t* row, const uint8_t* previous, size_t length)
{
    for (size_t x = 0; x < length; ++x)
        row[x] = static_cast<uint8_t>(row[x] + previous[x]);
}

// The sum of up and left is formed in int, so (255 + 255) / 2 is 255, not a wrapped value.
void UnfilterAverage(uint8_t* row, const uint8_t* previous, size_t length, size_t step)
{
    size_t head = step < length ? step : length;
    if (previous == nullptr) {
        for (size_t x = head; x < length; ++x)
            row[x] = static_cast<uint8_t>(row[x] + (row[x - step] >> 1));
        return;
    }
    for (size_t x = 0; x < head; ++x)
        row[x] = static_cast<uint8_t>(row[x] + (previous[x] >> 1));
    for (size_t x = head; x < length; ++x)
        row[x] = static_cast<uint8_t>(row[x] + ((unsigned{row[x - step]} + previous[x]) >> 1));
}

// Paeth is the hot filter of photographic images. The predictor is written with the
// distances |up - upperLeft|, |left - upperLeft| and |left + up - 2 upperLeft|, which are the
// pa, pb, pc of the textbook form without the intermediate p; the compiler turns the choice
// into conditional moves.
void UnfilterPaeth(uint8_t* row, const uint8_t* previous, size_t length, size_t step)
{
    size_t head = step < length ? step : length;
    if (previous == nullptr) {
        // With up = upper-left = 0 the predictor is always left: the row is a Sub row.
        UnfilterSub(row, length, step);
        return;
    }
    for (size_t x = 0; x < head; ++x)
        row[x] = static_cast<uint8_t>(row[x] + previous[x]); // left = upper-left = 0: up wins
    for (size_t x = head; x < length; ++x) {
        int left = row[x - step];
        int up = previous[x];
        int upperLeft = previous[x - step];
        int pa = std::abs(up - upperLeft);
        int pb = std::abs(left - upperLeft);
        int pc = std::abs(left + up - 2 * upperLeft);
        int predictor = (pa <= pb && pa <= pc) ? left : (pb <= pc ? up : upperLeft);
        row[x] = static_cast<uint8_t>(row[x] + predictor);
    }
}

} // namespace

void UnfilterRow(uint8_t filterType, uint8_t* row, const uint8_t* previous, size_t length, size_t step)
{
    switch (filterType) {
    case kFilterSub: UnfilterSub(row, length, step); break;
    case kFilterUp:
        if (previous != nullptr)
            UnfilterUp(row, previous, length);
        break;
    case kFilterAverage: UnfilterAverage(row, previous, length, step); break;
    case kFilterPaeth: UnfilterPaeth(row, previous, length, step); break;
    default: break; // None, and every unknown type: the bytes stand as they are
    }
}

void UnfilterImage(uint8_t* data, size_t rowLength, size_t rows, size_t step)
{
    if (rowLength == 0)
        return;
    const uint8_t* previous = nullptr;
    for (size_t r = 0; r < rows; ++r) {
        uint8_t* line = data + r * rowLength;
        UnfilterRow(line[0], line + 1, previous, rowLength - 1, step);
        previous = line + 1;
    }
}

} // namespace vex::png
