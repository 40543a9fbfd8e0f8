#include "png/unfilter.h"

#include <cstdlib>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vex::png {

namespace {

void UnfilterSub(uint8_t* row, size_t length, size_t step)
{
    for (size_t x = step; x < length; ++x)
        row[x] = static_cast<uint8_t>(row[x] + row[x - step]);
}

// 16 bytes at a time: at -O2 the compiler leaves this loop scalar (it cannot prove the rows
// apart, and they never overlap).
void UnfilterUp(uint8_t* row, const uint8_t* previous, size_t length)
{
    size_t x = 0;
#if defined(__SSE2__)
    for (; x + 16 <= length; x += 16) {
        __m128i sum = _mm_add_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(row + x)),
                                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(previous + x)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row + x), sum);
    }
#endif
    for (; x < length; ++x)
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

#if defined(__SSE2__)
// Rows of 3- and 4-byte pixels (8-bit RGB and RGBA), a whole pixel at a time in SSE2 lanes:
// the byte-wise loops above carry a dependency from every byte to the one `step` later, so
// working per pixel cuts the chain by the pixel size. Results are identical to the byte loops.
//
// Pixels move in and out through a 32-bit register, never through a stack slot (a 3-byte
// store followed by a 4-byte reload stalls store forwarding). A 3-byte pixel is loaded with the
// next pixel's first byte in lane 3 when the row has it; that lane is garbage and never stored.
template <size_t Step>
inline __m128i LoadPixel(const uint8_t* bytes, bool roomForFour)
{
    uint32_t value;
    if (Step == 4 || roomForFour)
        std::memcpy(&value, bytes, 4);
    else
        value = uint32_t{bytes[0]} | (uint32_t{bytes[1]} << 8) | (uint32_t{bytes[2]} << 16);
    return _mm_cvtsi32_si128(static_cast<int>(value));
}

template <size_t Step>
inline void StorePixel(uint8_t* bytes, __m128i pixel)
{
    uint32_t value = static_cast<uint32_t>(_mm_cvtsi128_si32(pixel));
    if (Step == 4) {
        std::memcpy(bytes, &value, 4);
    } else {
        uint16_t low = static_cast<uint16_t>(value);
        std::memcpy(bytes, &low, 2);
        bytes[2] = static_cast<uint8_t>(value >> 16);
    }
}

template <size_t Step>
void UnfilterSubPixels(uint8_t* row, size_t length)
{
    __m128i left = _mm_setzero_si128();
    for (size_t x = 0; x + Step <= length; x += Step) {
        left = _mm_add_epi8(left, LoadPixel<Step>(row + x, x + 4 <= length));
        StorePixel<Step>(row + x, left);
    }
}

// (left + up) >> 1 without wrapping: the rounding-up byte average minus the dropped low bit.
template <size_t Step>
void UnfilterAveragePixels(uint8_t* row, const uint8_t* previous, size_t length)
{
    const __m128i one = _mm_set1_epi8(1);
    __m128i left = _mm_setzero_si128();
    for (size_t x = 0; x + Step <= length; x += Step) {
        __m128i up = LoadPixel<Step>(previous + x, x + 4 <= length);
        __m128i average = _mm_sub_epi8(_mm_avg_epu8(left, up), _mm_and_si128(_mm_xor_si128(left, up), one));
        left = _mm_add_epi8(LoadPixel<Step>(row + x, x + 4 <= length), average);
        StorePixel<Step>(row + x, left);
    }
}

inline __m128i Absolute16(__m128i value)
{
    return _mm_max_epi16(value, _mm_sub_epi16(_mm_setzero_si128(), value));
}

// Paeth in 16-bit lanes: pa = |up - ul|, pb = |left - ul|, pc = |pa' + pb'| (the signed
// differences summed); the first of left, up, upper-left whose distance is the smallest wins.
template <size_t Step>
void UnfilterPaethPixels(uint8_t* row, const uint8_t* previous, size_t length)
{
    const __m128i zero = _mm_setzero_si128();
    __m128i left = zero, upperLeft = zero;
    for (size_t x = 0; x + Step <= length; x += Step) {
        __m128i up = _mm_unpacklo_epi8(LoadPixel<Step>(previous + x, x + 4 <= length), zero);
        __m128i upMinusUl = _mm_sub_epi16(up, upperLeft);
        __m128i leftMinusUl = _mm_sub_epi16(left, upperLeft);
        __m128i pa = Absolute16(upMinusUl);
        __m128i pb = Absolute16(leftMinusUl);
        __m128i pc = Absolute16(_mm_add_epi16(upMinusUl, leftMinusUl));
        __m128i smallest = _mm_min_epi16(pc, _mm_min_epi16(pa, pb));
        __m128i pickLeft = _mm_cmpeq_epi16(pa, smallest);
        __m128i pickUp = _mm_andnot_si128(pickLeft, _mm_cmpeq_epi16(pb, smallest));
        __m128i pickUl = _mm_andnot_si128(_mm_or_si128(pickLeft, pickUp), _mm_set1_epi16(-1));
        __m128i predictor = _mm_or_si128(_mm_or_si128(_mm_and_si128(pickLeft, left), _mm_and_si128(pickUp, up)),
                                         _mm_and_si128(pickUl, upperLeft));
        __m128i value = _mm_add_epi8(LoadPixel<Step>(row + x, x + 4 <= length), _mm_packus_epi16(predictor, zero));
        StorePixel<Step>(row + x, value);
        left = _mm_unpacklo_epi8(value, zero);
        upperLeft = up;
    }
}

// True when the row was done here.
bool UnfilterRowPixels(uint8_t filterType, uint8_t* row, const uint8_t* previous, size_t length, size_t step)
{
    if ((step != 3 && step != 4) || length % step != 0)
        return false;
    switch (filterType) {
    case kFilterSub:
        step == 3 ? UnfilterSubPixels<3>(row, length) : UnfilterSubPixels<4>(row, length);
        return true;
    case kFilterAverage:
        if (previous == nullptr)
            return false;
        step == 3 ? UnfilterAveragePixels<3>(row, previous, length) : UnfilterAveragePixels<4>(row, previous, length);
        return true;
    case kFilterPaeth:
        if (previous == nullptr)
            return false;
        step == 3 ? UnfilterPaethPixels<3>(row, previous, length) : UnfilterPaethPixels<4>(row, previous, length);
        return true;
    default: return false;
    }
}
#else
bool UnfilterRowPixels(uint8_t, uint8_t*, const uint8_t*, size_t, size_t)
{
    return false;
}
#endif

} // namespace

void UnfilterRow(uint8_t filterType, uint8_t* row, const uint8_t* previous, size_t length, size_t step)
{
    if (UnfilterRowPixels(filterType, row, previous, length, step))
        return;
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
