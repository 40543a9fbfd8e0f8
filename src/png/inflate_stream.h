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

struct InflateStream {
    // Input.
    const uint8_t* begin = nullptr;
    const uint8_t* end = nullptr;
    const uint8_t* next = nullptr;
    uint64_t bitBuffer = 0;
    unsigned bitsLeft = 0;
    uint64_t overrun = 0; // zero bytes fed past the end of the input

    // The furthest bit the original reader had asked to hold before a code search (position
    // + longest code length). It loaded whole bytes up to there, and a stored block's header
    // check looks at that byte position, not at the logical one.
    uint64_t loadedBits = 0;

    // Output: indices 0..lastIndex exist (lastIndex is the capacity after the +100).
    uint8_t* out = nullptr;
    size_t outPos = 0;
    size_t lastIndex = 0;

    bool deflate64 = false;
    int32_t result = 0;

    uint64_t InputBits() const { return uint64_t(end - begin) * 8; }

    // Bits consumed so far, zero bits past the end included.
    uint64_t Position() const { return (uint64_t(next - begin) + overrun) * 8 - bitsLeft; }

    void NoteSearch(unsigned longest) { loadedBits = std::max(loadedBits, Position() + longest); }

    // Careful refill: byte by byte, zeros past the end. Leaves at least `want` bits (want ≤ 56).
    void FillCarefully(unsigned want)
    {
        while (bitsLeft < want) {
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
