#include "png/inflate_tables.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vex::png::inflate_detail {

namespace {

constexpr uint32_t Plain(uint32_t base, uint32_t extra) { return (base << 16) | extra; }

constexpr std::array<uint32_t, kLitLenSymbols> MakeLitLenEntries()
{
    constexpr uint16_t base[29] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                   31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
    constexpr uint8_t extra[29] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                   2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
    std::array<uint32_t, kLitLenSymbols> entries{};
    for (uint32_t symbol = 0; symbol < 256; ++symbol)
        entries[symbol] = kEntryLiteral | (symbol << 16);
    entries[256] = kEntryExceptional | kEntryEndOfBlock;
    for (uint32_t code = 0; code < 29; ++code)
        entries[257 + code] = Plain(base[code], extra[code]);
    // 286 and 287 stay 0: base 0, no extra bits.
    return entries;
}

constexpr std::array<uint32_t, kDistanceSymbols> MakeDistanceEntries()
{
    constexpr uint16_t base[30] = {1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
                                   193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
    std::array<uint32_t, kDistanceSymbols> entries{};
    for (uint32_t code = 0; code < 30; ++code)
        entries[code] = Plain(base[code], code < 4 ? 0 : code / 2 - 1);
    // 30 and 31 stay 0: distance 0, no extra bits.
    return entries;
}

constexpr std::array<uint32_t, kCodeLengthSymbols> MakeCodeLengthEntries()
{
    std::array<uint32_t, kCodeLengthSymbols> entries{};
    for (uint32_t symbol = 0; symbol < kCodeLengthSymbols; ++symbol)
        entries[symbol] = symbol << 16;
    return entries;
}

// A symbol's entry with its codeword length added to both the codeword and the total fields.
uint32_t WithCodeword(uint32_t symbolEntry, unsigned codeword) { return symbolEntry + (codeword << 8) + codeword; }

constexpr std::array<uint8_t, 256> MakeReversedBytes()
{
    std::array<uint8_t, 256> reversed{};
    for (unsigned byte = 0; byte < 256; ++byte)
        for (unsigned bit = 0; bit < 8; ++bit)
            if (byte & (1u << bit))
                reversed[byte] |= uint8_t(0x80u >> bit);
    return reversed;
}
constexpr std::array<uint8_t, 256> kReversedBytes = MakeReversedBytes();

// The low `length` bits of `code` in reverse order (length 1..15).
uint32_t ReverseBits(uint32_t code, unsigned length)
{
    const uint32_t reversed16 = uint32_t(kReversedBytes[code & 0xff]) << 8 | kReversedBytes[(code >> 8) & 0xff];
    return reversed16 >> (16 - length);
}

// The first code of each length, as canonical Huffman codes are assigned.
void FirstCodes(const uint32_t* perLength, uint32_t* firstCode)
{
    uint32_t code = 0;
    firstCode[0] = 0;
    for (unsigned length = 1; length <= kMaxCodeLength; ++length) {
        code = (code + perLength[length - 1]) << 1;
        firstCode[length] = code;
    }
}

// Each symbol's canonical code, bit-reversed as the stream sends it (unused symbols: 0).
void ReversedCodes(const uint8_t* lengths, unsigned count, uint16_t* codes)
{
    uint32_t perLength[kMaxCodeLength + 1] = {};
    for (unsigned symbol = 0; symbol < count; ++symbol)
        ++perLength[lengths[symbol]];
    perLength[0] = 0;
    uint32_t nextCode[kMaxCodeLength + 1];
    FirstCodes(perLength, nextCode);
    for (unsigned symbol = 0; symbol < count; ++symbol)
        codes[symbol] = lengths[symbol] == 0 ? 0 : uint16_t(ReverseBits(nextCode[lengths[symbol]]++, lengths[symbol]));
}

} // namespace

const std::array<uint32_t, kLitLenSymbols> kLitLenSymbolEntries = MakeLitLenEntries();
const std::array<uint32_t, kDistanceSymbols> kDistanceSymbolEntries = MakeDistanceEntries();
const std::array<uint32_t, kCodeLengthSymbols> kCodeLengthSymbolEntries = MakeCodeLengthEntries();

namespace {

// Whether nearly all of a block's matches (seven in eight) have a length code, its extra bits and
// a distance code that fit in the primary bits together, by the codes' own count: a code of n
// bits stands for 2^-n of its symbols. Where the two kinds of match mix, the test between them
// goes either way in the fast loop and costs more than it saves; building the table costs too.
bool NearlyAllMatchesFit(const uint8_t* litLenLengths, unsigned litLenCount, const uint8_t* distanceLengths,
                         unsigned distanceCount, unsigned primaryBits)
{
    uint64_t distanceShare = 0;
    uint64_t distanceShareUpTo[kMaxCodeLength + 1] = {}; // of codes of at most n bits, distance 0 aside
    for (unsigned symbol = 0; symbol < distanceCount; ++symbol) {
        const unsigned length = distanceLengths[symbol];
        if (length == 0)
            continue;
        distanceShare += uint64_t{1} << (kMaxCodeLength - length);
        if (EntryPayload(kDistanceSymbolEntries[symbol]) != 0)
            distanceShareUpTo[length] += uint64_t{1} << (kMaxCodeLength - length);
    }
    for (unsigned length = 1; length <= kMaxCodeLength; ++length)
        distanceShareUpTo[length] += distanceShareUpTo[length - 1];

    uint64_t matchShare = 0, fittingShare = 0;
    for (unsigned symbol = 257; symbol < std::min(litLenCount, 286u); ++symbol) {
        const unsigned length = litLenLengths[symbol];
        if (length == 0)
            continue;
        const uint64_t share = uint64_t{1} << (kMaxCodeLength - length);
        matchShare += share * distanceShare;
        const unsigned lengthBits = length + EntryTotal(kLitLenSymbolEntries[symbol]); // with the extra bits
        if (EntryPayload(kLitLenSymbolEntries[symbol]) != 0 && lengthBits < primaryBits)
            fittingShare += share * distanceShareUpTo[primaryBits - lengthBits];
    }
    return fittingShare != 0 && fittingShare >= matchShare - matchShare / 8;
}

// Writes a match entry over every primary pattern that begins with a length code, its extra
// bits and a distance code (length-0 and distance-0 symbols aside).
void WriteMatchEntries(uint32_t* entries, unsigned primaryBits, const uint8_t* litLenLengths, unsigned litLenCount,
                       const uint8_t* distanceLengths, unsigned distanceCount)
{
    uint16_t lengthCodes[kLitLenSymbols];
    uint16_t distanceCodes[kDistanceSymbols];
    ReversedCodes(litLenLengths, litLenCount, lengthCodes);
    ReversedCodes(distanceLengths, distanceCount, distanceCodes);
    for (unsigned symbol = 257; symbol < std::min(litLenCount, 286u); ++symbol) {
        const unsigned codeword = litLenLengths[symbol];
        const unsigned extraBits = EntryTotal(kLitLenSymbolEntries[symbol]);
        const unsigned lengthBits = codeword + extraBits;
        if (codeword == 0 || lengthBits >= primaryBits || EntryPayload(kLitLenSymbolEntries[symbol]) == 0)
            continue;
        for (uint32_t extra = 0; extra < (1u << extraBits); ++extra) {
            const uint32_t lengthPattern = lengthCodes[symbol] | extra << codeword;
            const uint32_t matchLength = EntryPayload(kLitLenSymbolEntries[symbol]) + extra;
            for (uint32_t distanceSymbol = 0; distanceSymbol < distanceCount; ++distanceSymbol) {
                const unsigned codes = lengthBits + distanceLengths[distanceSymbol];
                const uint32_t distanceEntry = kDistanceSymbolEntries[distanceSymbol];
                if (distanceLengths[distanceSymbol] == 0 || codes > primaryBits || EntryPayload(distanceEntry) == 0)
                    continue;
                const uint32_t pattern = lengthPattern | uint32_t{distanceCodes[distanceSymbol]} << lengthBits;
                const uint32_t entry = distanceSymbol << 24 | (matchLength - 3) << 16 | kEntryMatch | codes << 8 |
                                       (codes + EntryTotal(distanceEntry));
                for (uint32_t above = 0; above < (1u << (primaryBits - codes)); ++above)
                    entries[pattern | above << codes] = entry;
            }
        }
    }
}

} // namespace

void BuildMatchEntries(DecodeTable& litLen, const DecodeTable& distance, const uint8_t* litLenLengths,
                       unsigned litLenCount, const uint8_t* distanceLengths, unsigned distanceCount,
                       uint32_t* matchEntries)
{
    if (DistanceSearchesReachFurther(litLen, distance) ||
        !NearlyAllMatchesFit(litLenLengths, litLenCount, distanceLengths, distanceCount, litLen.primaryBits))
        return;
    std::memcpy(matchEntries, litLen.entries, (size_t{1} << litLen.primaryBits) * sizeof(uint32_t));
    WriteMatchEntries(matchEntries, litLen.primaryBits, litLenLengths, litLenCount, distanceLengths, distanceCount);
    litLen.fastPrimary = matchEntries;
}

int32_t BuildDecodeTable(DecodeTable& table, const uint8_t* lengths, unsigned count,
                         const uint32_t* symbolEntries)
{
    table.fastPrimary = table.entries;
    // Count codes per length; find the longest length present.
    uint32_t perLength[kMaxCodeLength + 1] = {};
    for (unsigned symbol = 0; symbol < count; ++symbol)
        ++perLength[lengths[symbol]];
    perLength[0] = 0;
    unsigned longest = 0;
    for (unsigned length = 1; length <= kMaxCodeLength; ++length)
        if (perLength[length] != 0)
            longest = length;

    // Over-subscription: the code space left after each length must not fall below zero.
    // Space left over (an incomplete set) is fine; those patterns decode to holes.
    int32_t left = 1;
    for (unsigned length = 1; length <= longest; ++length) {
        left = left * 2 - static_cast<int32_t>(perLength[length]);
        if (left < 0)
            return left;
    }
    table.longest = longest;

    // Symbols sorted by (length, symbol): canonical code order.
    uint32_t offsets[kMaxCodeLength + 2] = {};
    for (unsigned length = 1; length <= kMaxCodeLength; ++length)
        offsets[length + 1] = offsets[length] + perLength[length];
    uint16_t sorted[kLitLenSymbols];
    for (unsigned symbol = 0; symbol < count; ++symbol)
        if (lengths[symbol] != 0)
            sorted[offsets[lengths[symbol]]++] = static_cast<uint16_t>(symbol);

    uint32_t nextCode[kMaxCodeLength + 1];
    FirstCodes(perLength, nextCode);

    // Primary table, by doubling: after step `length` the first 2^length entries describe
    // every pattern of that many bits; copying them up replicates each shorter code (and each
    // hole) into the patterns that extend it, then the codes of the new length are placed.
    uint32_t* entries = table.entries;
    const unsigned primaryBits = table.primaryBits;
    entries[0] = entries[1] = kEntryHole;
    unsigned position = 0; // into `sorted`
    for (unsigned length = 1; length <= primaryBits; ++length) {
        const size_t size = size_t{1} << length;
        if (length > 1)
            std::memcpy(entries + size / 2, entries, size / 2 * sizeof(uint32_t));
        for (uint32_t n = 0; n < perLength[length]; ++n) {
            unsigned symbol = sorted[position++];
            entries[ReverseBits(nextCode[length]++, length)] = WithCodeword(symbolEntries[symbol], length);
        }
    }

    // Subtables for the longer codes. In canonical order the codes sharing their first
    // primaryBits bits are contiguous and their lengths never decrease, so each group's last
    // code gives the subtable's size.
    const unsigned total = offsets[kMaxCodeLength + 1];
    size_t nextSubtable = size_t{1} << primaryBits;
    uint32_t subtablePrefix = 0;
    size_t subtableStart = 0;
    unsigned subtableBits = 0;
    bool haveSubtable = false;
    for (unsigned index = position; index < total; ++index) {
        unsigned symbol = sorted[index];
        unsigned length = lengths[symbol];
        uint32_t reversed = ReverseBits(nextCode[length]++, length);
        uint32_t prefix = reversed & ((1u << primaryBits) - 1);
        if (!haveSubtable || prefix != subtablePrefix) {
            // Find the group's last code to size the subtable. A group starts where its prefix
            // does (the codes before it fill whole prefixes) and takes codes until they fill the
            // prefix's share of the code space, or the codes run out (an incomplete set).
            const uint32_t prefixSpace = uint32_t{1} << (kMaxCodeLength - primaryBits);
            uint32_t space = uint32_t{1} << (kMaxCodeLength - length);
            unsigned last = index;
            while (space < prefixSpace && last + 1 < total)
                space += uint32_t{1} << (kMaxCodeLength - lengths[sorted[++last]]);
            subtableBits = lengths[sorted[last]] - primaryBits;
            subtableStart = nextSubtable;
            nextSubtable += size_t{1} << subtableBits;
            std::fill_n(entries + subtableStart, size_t{1} << subtableBits, kEntryHole);
            entries[prefix] = kEntryExceptional | kEntrySubtable | (static_cast<uint32_t>(subtableStart) << 16) |
                              (subtableBits << 8) | primaryBits;
            subtablePrefix = prefix;
            haveSubtable = true;
        }
        const uint32_t entry = WithCodeword(symbolEntries[symbol], length - primaryBits);
        const size_t stride = size_t{1} << (length - primaryBits);
        for (size_t slot = reversed >> primaryBits; slot < (size_t{1} << subtableBits); slot += stride)
            entries[subtableStart + slot] = entry;
    }
    return 0;
}

} // namespace vex::png::inflate_detail
