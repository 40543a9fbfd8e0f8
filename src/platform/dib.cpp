#include "platform/dib.h"

#include <algorithm>
#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#endif

#include "base/numeric.h"
#include "base/runtime_error.h"

namespace vex::platform {

void CommitForWriting(void* at, size_t bytes) noexcept
{
#if defined(__linux__)
#ifndef MADV_POPULATE_WRITE
#define MADV_POPULATE_WRITE 23 // Linux 5.14; older kernels refuse it and nothing happens
#endif
    constexpr uintptr_t kPage = 4096;
    const uintptr_t first = (reinterpret_cast<uintptr_t>(at) + kPage - 1) & ~(kPage - 1);
    const uintptr_t last = (reinterpret_cast<uintptr_t>(at) + bytes) & ~(kPage - 1);
    if (first < last)
        madvise(reinterpret_cast<void*>(first), last - first, MADV_POPULATE_WRITE); // advice only
#else
    (void)at;
    (void)bytes;
#endif
}

int32_t Dib::StrideFor(int32_t width, int bitCount)
{
    int64_t bitsPerRow = int64_t{width} * bitCount;
    return ToInt32(((bitsPerRow + 31) / 32) * 4);
}

Dib::Dib(int32_t width, int32_t height, int bitCount, bool topDown, Uncleared)
    : width_(width)
    , height_(height)
    , bitCount_(bitCount)
    , topDown_(topDown)
{
    if (width < 0 || height < 0)
        Raise(ErrorCode::InvalidProcedureCall);
    if (bitCount != 1 && bitCount != 4 && bitCount != 8 && bitCount != 24 && bitCount != 32)
        Raise(ErrorCode::InvalidProcedureCall);
    stride_ = StrideFor(width, bitCount);
    int64_t total = int64_t{stride_} * height;
    ToInt32(total);
    bits_.resize(static_cast<size_t>(total)); // left as the allocator hands it out
}

Dib::Dib(int32_t width, int32_t height, int bitCount, bool topDown)
    : Dib(width, height, bitCount, topDown, Uncleared {})
{
    std::fill(bits_.begin(), bits_.end(), uint8_t { 0 });
}

Dib Dib::ForWriting(int32_t width, int32_t height, int bitCount, bool topDown)
{
    Dib dib(width, height, bitCount, topDown, Uncleared {});
    size_t used = static_cast<size_t>((int64_t { width } * bitCount + 7) / 8);
    size_t stride = static_cast<size_t>(dib.stride_);
    if (used < stride)
        for (size_t at = used; at < dib.bits_.size(); at += stride)
            std::fill_n(dib.bits_.begin() + static_cast<std::ptrdiff_t>(at), stride - used, uint8_t { 0 });
    return dib;
}

uint8_t* Dib::row(int32_t y)
{
    int32_t stored = topDown_ ? y : height_ - 1 - y;
    return bits_.data() + static_cast<size_t>(stored) * static_cast<size_t>(stride_);
}

const uint8_t* Dib::row(int32_t y) const
{
    return const_cast<Dib*>(this)->row(y);
}

ColorRef Dib::pixel(int32_t x, int32_t y) const
{
    const uint8_t* line = row(y);
    auto fromPalette = [&](unsigned index) -> ColorRef {
        if (index >= palette_.size())
            return 0;
        const RgbQuad& q = palette_[index];
        return Rgb(q.red, q.green, q.blue);
    };
    switch (bitCount_) {
    case 1: return fromPalette((line[x / 8] >> (7 - x % 8)) & 1u);
    case 4: return fromPalette((line[x / 2] >> (x % 2 ? 0 : 4)) & 0xFu);
    case 8: return fromPalette(line[x]);
    case 24: return Rgb(line[x * 3 + 2], line[x * 3 + 1], line[x * 3]);
    default: return Rgb(line[x * 4 + 2], line[x * 4 + 1], line[x * 4]);
    }
}

} // namespace vex::platform
