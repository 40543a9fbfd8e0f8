#pragma once
// A device-independent bitmap: 1, 4, 8, 24 or 32 bits per pixel, an optional palette, rows
// padded to 4 bytes, stored top-down or bottom-up exactly as a BITMAPINFO describes them.
//
//   bits:  row r of the buffer starts at r * stride. With topDown == false (the Windows default,
//          a positive biHeight) buffer row 0 is the *bottom* image row.
//   24 bpp pixels are B, G, R; 32 bpp pixels are B, G, R, A (A kept as stored).
//   1/4/8 bpp pixels are palette indices, most significant bits first.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "base/ole_color.h"

namespace vex::platform {

struct RgbQuad {
    uint8_t blue = 0;
    uint8_t green = 0;
    uint8_t red = 0;
    uint8_t reserved = 0;
    friend bool operator==(const RgbQuad&, const RgbQuad&) = default;
};
static_assert(sizeof(RgbQuad) == 4);

// Asks the system to back [at, at + bytes) with memory now, in one call, where every byte is
// about to be written anyway: page by page on first touch costs several times as much.
void CommitForWriting(void* at, size_t bytes) noexcept;

// An allocator whose resize leaves new bytes as they are: a decoder that writes every pixel
// need not pay for a pass of zeros over the whole bitmap first. Large blocks are committed as
// they are allocated (a bitmap's every byte is written: its pixels or its zeros).
template <class T>
struct DefaultInitAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = DefaultInitAllocator<U>;
    };
    DefaultInitAllocator() = default;
    template <class U>
    DefaultInitAllocator(const DefaultInitAllocator<U>&) noexcept { }
    T* allocate(size_t count)
    {
        T* block = std::allocator<T>::allocate(count);
        if (count * sizeof(T) >= kCommitAtOnce)
            CommitForWriting(block, count * sizeof(T));
        return block;
    }
    static constexpr size_t kCommitAtOnce = 256 * 1024;
    template <class U>
    void construct(U* at) noexcept { ::new (static_cast<void*>(at)) U; }
    template <class U, class... Args>
    void construct(U* at, Args&&... args) { ::new (static_cast<void*>(at)) U(std::forward<Args>(args)...); }
};

using PixelBytes = std::vector<uint8_t, DefaultInitAllocator<uint8_t>>;

class Dib {
public:
    Dib() = default;
    // A zero-filled bitmap. Raises Overflow for sizes whose buffer would not fit 32 bits and
    // Invalid procedure call for a bit count other than 1, 4, 8, 24 or 32 or a negative size.
    Dib(int32_t width, int32_t height, int bitCount, bool topDown = true);
    // The same size checks, but only the rows' padding bytes are zeroed: for a writer that
    // fills every pixel byte of every row itself.
    static Dib ForWriting(int32_t width, int32_t height, int bitCount, bool topDown = true);

    int32_t width() const { return width_; }
    int32_t height() const { return height_; }
    int bitCount() const { return bitCount_; }
    bool topDown() const { return topDown_; }
    int32_t stride() const { return stride_; }
    bool empty() const { return width_ == 0 || height_ == 0; }

    std::vector<RgbQuad>& palette() { return palette_; }
    const std::vector<RgbQuad>& palette() const { return palette_; }
    PixelBytes& bits() { return bits_; }
    const PixelBytes& bits() const { return bits_; }

    // Row y of the *image* (0 = top), whatever the storage order.
    uint8_t* row(int32_t y);
    const uint8_t* row(int32_t y) const;

    // The colour of pixel (x, y) of the image, palette resolved; out-of-range palette indices
    // give black. Slow: for tests and tools.
    ColorRef pixel(int32_t x, int32_t y) const;

    static int32_t StrideFor(int32_t width, int bitCount); // 4-byte aligned row length

private:
    int32_t width_ = 0;
    int32_t height_ = 0;
    int bitCount_ = 32;
    bool topDown_ = true;
    int32_t stride_ = 0;
    std::vector<RgbQuad> palette_;
    PixelBytes bits_;

    struct Uncleared { };
    Dib(int32_t width, int32_t height, int bitCount, bool topDown, Uncleared);
};

} // namespace vex::platform
