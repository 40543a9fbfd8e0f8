#pragma once
// The state of one inflate call and its bit reader (internal to the inflate).
//
// Bits are taken least significant first from a 64-bit buffer. `bitsLeft` counts the valid
// bits at the bottom of `bitBuffer`; the bits above them are either zero or the stream's own
// next bits (the fast refill loads 8 bytes at once and counts only whole bytes), so OR-ing the
// same bytes in again is harmless.
//
// Past the end of the input the careful reader feeds zero bytes and counts them in `overrun`:
// a code may be completed with those zero bits (the original reader searched its tables with
// whatever the buffer held), but a fixed-width read that needs them fails.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "png/inflate.h"
#include "png/inflate_tables.h"

namespace vex::png::inflate_detail {

// How a Huffman block or a whole stream ended.
enum class Flow {
    Continue,   // end of block reached, go on
    Broken,     // result -1: no code matched, or a read needed bits past the input
    Cut,        // a copy reached past the capacity: the output is cut there and decoding ends
    TreeError,  // a dynamic header's trees could not be built
};

inline uint64_t LoadLittleEndian64(const uint8_t* bytes)
{
    uint64_t value;
    std::memcpy(&value, bytes, sizeof value);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    value = __builtin_bswap64(value);
#endif
    return value;
}

// After any subtable is followed, an exceptional entry is either the end of block or a hole.
inline bool IsHole(uint32_t entry) { return (entry & (kEntryExceptional | kEntrySubtable | kEntryEndOfBlock)) == kEntryHole; }

// Input and output may each be a window on a longer stream (the image decode reads the IDAT
// data and hands on the rows a piece at a time). Positions and indices stay those of the whole
// stream; the windows only move between symbols.
//
//   input:   begin ......... next ........ end          holds stream bytes from inputOffset
//   output:  out[0] ...... out[outPos - outBase] ...   holds output indices from outBase
//
// The input window keeps up to 8 bytes before `next` (the bit buffer's bytes come from there,
// and a stored block's header is read back from them); the output window keeps the last
// kHistory bytes, as far back as a distance can reach, and whatever the consumer still needs.
inline constexpr size_t kHistory = 32768;
inline constexpr size_t kInputLookBehind = 8;

struct InflateStream {
    // Input.
    const uint8_t* begin = nullptr;
    const uint8_t* end = nullptr;
    const uint8_t* next = nullptr;
    uint64_t inputOffset = 0; // stream offset of *begin
    uint64_t inputTotal = 0;  // bytes in the whole stream
    InflateInput* source = nullptr;
    uint8_t* inputWindow = nullptr;
    size_t inputWindowSize = 0;
    uint64_t bitBuffer = 0;
    unsigned bitsLeft = 0;
    uint64_t overrun = 0; // zero bytes fed past the end of the input

    // The furthest bit the original reader had asked to hold before a code search (position
    // + longest code length). It loaded whole bytes up to there, and a stored block's header
    // check looks at that byte position, not at the logical one.
    uint64_t loadedBits = 0;

    // Output: indices 0..lastIndex exist (lastIndex is the capacity after the +100).
    uint8_t* out = nullptr;
    size_t outPos = 0; // the next output index
    size_t lastIndex = 0;
    size_t outBase = 0; // output index of out[0]
    size_t outWindowSize = 0;
    InflateOutput* sink = nullptr;

    bool deflate64 = false;
    int32_t result = 0;

    uint64_t InputBits() const { return inputTotal * 8; }

    // Bits consumed so far, zero bits past the end included.
    uint64_t Position() const { return (inputOffset + uint64_t(next - begin) + overrun) * 8 - bitsLeft; }

    bool MoreInput() const { return source != nullptr && inputOffset + uint64_t(end - begin) < inputTotal; }

    // Moves the unread bytes (and a few before them) to the front of the window and reads on.
    void RefillInput()
    {
        const size_t behind = std::min<size_t>(kInputLookBehind, size_t(next - begin));
        const uint8_t* keepFrom = next - behind;
        const size_t keep = size_t(end - keepFrom);
        std::memmove(inputWindow, keepFrom, keep);
        inputOffset += uint64_t(keepFrom - begin);
        begin = inputWindow;
        next = begin + behind;
        const uint64_t remaining = inputTotal - inputOffset - keep;
        const size_t want = size_t(std::min<uint64_t>(remaining, inputWindowSize - keep));
        const size_t got = source->Read(inputWindow + keep, want);
        end = inputWindow + keep + got;
        if (got < want) // the reader ran dry early: the stream is shorter than it said
            inputTotal = inputOffset + keep + got;
    }

    // At least `bytes` unread bytes in the window, or all there are.
    void EnsureInput(size_t bytes)
    {
        if (size_t(end - next) < bytes && MoreInput())
            RefillInput();
    }

    uint8_t* OutAt(size_t index) const { return out + (index - outBase); }
    // One past the last output index the window can hold now.
    size_t WindowEnd() const { return std::min(outBase + outWindowSize, lastIndex + 1); }
    bool WindowIsLast() const { return sink == nullptr || outBase + outWindowSize >= lastIndex + 1; }

    // Hands the finished output to the consumer and keeps only what may still be read.
    void FlushOutput()
    {
        size_t needed = sink->Take(out, outBase, outPos);
        size_t keepFrom = std::min(needed, outPos > kHistory ? outPos - kHistory : 0);
        keepFrom = std::max(keepFrom, outBase);
        std::memmove(out, OutAt(keepFrom), outPos - keepFrom);
        outBase = keepFrom;
    }

    // Room for `bytes` more output in the window, unless the window already reaches the end.
    void EnsureOutput(size_t bytes)
    {
        if (!WindowIsLast() && WindowEnd() - outPos < bytes)
            FlushOutput();
    }

    void NoteSearch(unsigned longest) { loadedBits = std::max(loadedBits, Position() + longest); }

    // Careful refill: byte by byte, zeros past the end. Leaves at least `want` bits (want ≤ 56).
    void FillCarefully(unsigned want)
    {
        while (bitsLeft < want) {
            if (next == end && MoreInput())
                RefillInput();
            uint64_t byte = 0;
            if (next < end)
                byte = *next++;
            else
                ++overrun;
            bitBuffer |= byte << bitsLeft;
            bitsLeft += 8;
        }
    }

    // Drops any stale bits above bitsLeft so that the careful refill can OR bytes in.
    void CleanBuffer() { bitBuffer &= bitsLeft == 0 ? 0 : (~uint64_t{0} >> (64 - bitsLeft)); }

    void Consume(unsigned count)
    {
        bitBuffer >>= count;
        bitsLeft -= count;
    }

    // A fixed-width read of up to 16 bits; false when it needs bits past the input.
    bool Read(unsigned count, uint32_t& value)
    {
        FillCarefully(count);
        if (Position() + count > InputBits())
            return false;
        value = static_cast<uint32_t>(bitBuffer & ((uint64_t{1} << count) - 1));
        Consume(count);
        return true;
    }

    // Decodes one symbol's table entry with the careful reader (zero bits past the end).
    // Consumes the codeword (not its extra bits); returns the entry (a hole when no code matches).
    uint32_t DecodeCarefully(const DecodeTable& table)
    {
        NoteSearch(table.longest);
        FillCarefully(kMaxCodeLength + 1);
        uint32_t entry = table.entries[bitBuffer & ((uint32_t{1} << table.primaryBits) - 1)];
        if ((entry & kEntrySubtable) != 0) {
            Consume(EntryTotal(entry));
            entry = table.entries[EntryPayload(entry) + (bitBuffer & ((uint32_t{1} << EntryCodeword(entry)) - 1))];
        }
        if (IsHole(entry))
            return entry;
        Consume(EntryCodeword(entry));
        return entry;
    }
};

// Tests set this to run the plain x86-64 fast loop on a machine that has the BMI2 one.
extern bool forcePlainFastLoop;

// The Huffman block decoder: decodes symbols until the end-of-block code.
// Throws RuntimeError 9 where the original wrote or read outside its output array.
Flow DecodeHuffmanBlock(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distance);

} // namespace vex::png::inflate_detail
