#pragma once
// Decode tables of the inflate: one 32-bit entry per bit pattern, libdeflate-style.
//
// A table is indexed by the next bits of the stream (least significant bit first, which is the
// bit-reversed Huffman code). The primary table has 2^primaryBits entries; codes longer than
// primaryBits go through one level of subtables placed after it.
//
// Entry layout:
//
//   31                16 15 14 13 12 11      8 7          0
//  +--------------------+--+--+--+--+----------+------------+
//  |      payload       |L |X |S |E | codeword |   total    |
//  +--------------------+--+--+--+--+----------+------------+
//
//   total     bits the symbol takes: its codeword plus its extra bits (length and distance
//             codes); for a subtable pointer, the primary bits. One shift consumes them all.
//   codeword  the codeword's length (the part below the primary table for a subtable entry);
//             for a subtable pointer, the subtable's index bits. The extra bits' value is
//             (bits & mask(total)) >> codeword.
//   L         literal; payload = the byte
//   X         exceptional: end of block, subtable pointer or hole
//   S         subtable pointer (with X); payload = index of the subtable's first entry
//   E         end of block (with X)
//   a hole    X without S or E: no code of the (possibly incomplete) code set matches
//   neither L nor X: a length or distance code; payload = base value. Length symbols 286-287
//             and distance symbols 30-31 are plain entries with base 0 and no extra bits.
//   code-length codes: payload = the symbol 0..18
//
// The fast loop reads the literal/length primary table through a copy in which a length code
// whose codeword, extra bits and following distance codeword all fit in the primary bits is one
// entry for the whole match (M, neither L nor X): the match costs one lookup instead of two.
//
//   31   29 28    24 23         16 15 14 13 12 11      8 7          0
//  +-------+--------+-------------+--+--+--+--+----------+------------+
//  |   0   |distance|  length - 3 | 0| 0| M| 0|  codes   |   total    |
//  |       | symbol |             |  |  |  |  |          |            |
//  +-------+--------+-------------+--+--+--+--+----------+------------+
//
//   codes     the bits of the length code, its extra bits and the distance code
//   total     codes plus the distance's extra bits, which follow them: their value is
//             (bits & mask(total)) >> codes, added to the distance symbol's base

#include <array>
#include <cstddef>
#include <cstdint>

namespace vex::png::inflate_detail {

inline constexpr uint32_t kEntryLiteral = 0x8000;
inline constexpr uint32_t kEntryExceptional = 0x4000;
inline constexpr uint32_t kEntrySubtable = 0x2000;
inline constexpr uint32_t kEntryEndOfBlock = 0x1000;
inline constexpr uint32_t kEntryHole = kEntryExceptional;
inline constexpr uint32_t kEntryMatch = 0x2000; // without X: a whole match (fast primary table)

inline constexpr unsigned EntryTotal(uint32_t entry) { return entry & 0xff; }
inline constexpr unsigned EntryCodeword(uint32_t entry) { return (entry >> 8) & 0xf; }
inline constexpr unsigned EntryExtra(uint32_t entry) { return EntryTotal(entry) - EntryCodeword(entry); }
inline constexpr uint32_t EntryPayload(uint32_t entry) { return entry >> 16; }
inline constexpr uint32_t MatchEntryLength(uint32_t entry) { return ((entry >> 16) & 0xff) + 3; }
inline constexpr uint32_t MatchEntryDistanceSymbol(uint32_t entry) { return entry >> 24; }

inline constexpr unsigned kLitLenPrimaryBits = 11;
inline constexpr unsigned kDistancePrimaryBits = 8;
inline constexpr unsigned kCodeLengthPrimaryBits = 7;
inline constexpr unsigned kMaxCodeLength = 15;

inline constexpr unsigned kLitLenSymbols = 288;
inline constexpr unsigned kDistanceSymbols = 32;
inline constexpr unsigned kCodeLengthSymbols = 19;

// Worst case: every code longer than the primary bits gets a subtable of its own of the
// largest size. Incomplete code sets are accepted, so the usual Kraft-based bound does not hold.
inline constexpr size_t TableSize(unsigned primaryBits, unsigned symbols)
{
    return (size_t{1} << primaryBits) + size_t{symbols} * (size_t{1} << (kMaxCodeLength - primaryBits));
}
inline constexpr size_t kLitLenTableSize = TableSize(kLitLenPrimaryBits, kLitLenSymbols);
inline constexpr size_t kDistanceTableSize = TableSize(kDistancePrimaryBits, kDistanceSymbols);
inline constexpr size_t kCodeLengthTableSize = size_t{1} << kCodeLengthPrimaryBits; // codes ≤ 7 bits

// One decode table with the longest code length present (0 for an empty code set); the
// original reader loads that many bits before each search, which a stored block can observe.
struct DecodeTable {
    uint32_t* entries = nullptr;
    unsigned primaryBits = 0;
    unsigned longest = 0;
    // The primary table the fast loop reads: `entries`, or a copy with match entries.
    const uint32_t* fastPrimary = nullptr;
};

// Whether a distance search can reach further than the next literal/length search. The original
// reader loaded bytes up to (position + longest code) before each search, and a stored block
// can observe how far; then the fast loop notes each distance search.
inline bool DistanceSearchesReachFurther(const DecodeTable& litLen, const DecodeTable& distance)
{
    return distance.longest >= litLen.longest + 2;
}

// What each symbol decodes to, before the codeword length is added (low byte: extra bits).
extern const std::array<uint32_t, kLitLenSymbols> kLitLenSymbolEntries;
extern const std::array<uint32_t, kDistanceSymbols> kDistanceSymbolEntries;
extern const std::array<uint32_t, kCodeLengthSymbols> kCodeLengthSymbolEntries;

// The fast loop's primary literal/length table for a block with these code lengths: a copy of
// litLen's with match entries, written to `matchEntries` (2^primaryBits entries), which
// litLen.fastPrimary then points at. Only where nearly all matches fit, and not where distance
// searches must be noted (a match entry hides its distance search).
void BuildMatchEntries(DecodeTable& litLen, const DecodeTable& distance, const uint8_t* litLenLengths,
                       unsigned litLenCount, const uint8_t* distanceLengths, unsigned distanceCount,
                       uint32_t* matchEntries);

// Builds `table` for the code lengths of symbols 0..count-1 (each 0..15), with the fast loop
// reading the primary table itself. Returns 0, or the
// negative count of missing code space when the lengths over-subscribe a length; an incomplete
// set is accepted and its unused patterns become holes.
int32_t BuildDecodeTable(DecodeTable& table, const uint8_t* lengths, unsigned count,
                         const uint32_t* symbolEntries);

} // namespace vex::png::inflate_detail
