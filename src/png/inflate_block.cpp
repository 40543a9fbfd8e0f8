// The Huffman block decoder: a fast loop for the bulk of the data and a careful loop for the
// ends of the input and the output. Both give the same results; the fast loop only runs where
// nothing can reach past either end within one symbol.

#include <algorithm>
#include <cstring>

#include "base/runtime_error.h"
#include "png/inflate_stream.h"

namespace vex::png::inflate_detail {

namespace {

// One fast iteration takes at most 70 bits (two literals, a length and a distance) and refills
// at most twice, reading 8 bytes each time: it reads no further than 18 bytes past where it
// started ...
constexpr size_t kFastInputMargin = 24;
// ... and writes at most two literals and a match of 258 bytes, plus what a chunked copy
// writes past the match.
constexpr size_t kCopyOvershoot = 48;
constexpr size_t kFastOutputMargin = 2 + 258 + kCopyOvershoot;

[[noreturn]] void RaiseSubscript() { Raise(ErrorCode::SubscriptOutOfRange); }

#define VEX_ALWAYS_INLINE __attribute__((always_inline))

// The low `count` bits of `value` (count < 64); one instruction with BMI2. The compiler does not
// find that instruction for the mask by itself, and its intrinsic cannot be inlined through the
// loop's helpers, which carry no target of their own.
template <bool kBmi2>
VEX_ALWAYS_INLINE inline uint64_t LowBits(uint64_t value, unsigned count)
{
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
    if constexpr (kBmi2) {
        uint64_t low;
        asm("bzhi %2, %1, %0" : "=r"(low) : "r"(value), "r"(uint64_t{count}));
        return low;
    }
#endif
    return value & ((uint64_t{1} << count) - 1);
}

VEX_ALWAYS_INLINE inline void Copy8(uint8_t* to, const uint8_t* from) { std::memcpy(to, from, 8); }
VEX_ALWAYS_INLINE inline void Copy16(uint8_t* to, const uint8_t* from) { std::memcpy(to, from, 16); }

// Copies `length` bytes (0 or 3..258) from `distance` bytes back (1 ≤ distance ≤ bytes written),
// repeating the bytes of an overlapping copy. Writes up to kCopyOvershoot bytes past
// out + length, which later output overwrites before anything reads it.
VEX_ALWAYS_INLINE inline void CopyMatch(uint8_t* out, size_t distance, size_t length)
{
    uint8_t* const stop = out + length;
    const uint8_t* from = out - distance;
    if (distance >= 16) {
        Copy16(out, from);
        Copy16(out + 16, from + 16);
        Copy16(out + 32, from + 32);
        out += 48;
        from += 48;
        while (out < stop) {
            Copy16(out, from);
            Copy16(out + 16, from + 16);
            out += 32;
            from += 32;
        }
    } else if (distance >= 8) {
        Copy8(out, from);
        Copy8(out + 8, from + 8);
        out += 16;
        from += 16;
        while (out < stop) {
            Copy8(out, from);
            out += 8;
            from += 8;
        }
    } else if (distance == 1 || distance == 2 || distance == 4) {
        // A period that divides the word: the same word over and over, no loads at all.
        uint64_t word;
        if (distance == 1) {
            word = from[0] * uint64_t{0x0101010101010101};
        } else if (distance == 2) {
            uint16_t pair;
            std::memcpy(&pair, from, 2);
            word = pair * uint64_t{0x0001000100010001};
        } else {
            uint32_t quad;
            std::memcpy(&quad, from, 4);
            word = quad * uint64_t{0x0000000100000001};
        }
        // The word twice in one vector register (not reloaded from memory on every store),
        // stored 32 bytes at a time.
        using TwoWords = uint64_t __attribute__((vector_size(16)));
        const TwoWords words = {word, word};
        do {
            std::memcpy(out, &words, 16);
            std::memcpy(out + 16, &words, 16);
            out += 32;
        } while (out < stop);
    } else {
        // A period shorter than a word. The output repeats with every multiple of the period
        // too, so after a few single bytes we can copy from a multiple that is ≥ 8 bytes back.
        // The head is built a period at a time through a word: each store's first `distance`
        // bytes are right, and the next store covers the rest.
        const size_t wide = distance * ((8 + distance - 1) / distance);
        uint8_t* const headEnd = out + (wide - distance); // head < 8 bytes, a multiple of the period
        do {
            uint64_t word;
            std::memcpy(&word, out - distance, 8);
            std::memcpy(out, &word, 8);
            out += distance;
        } while (out < headEnd);
        from = out - wide;
        do {
            Copy8(out, from);
            out += 8;
            from += 8;
        } while (out < stop);
    }
}

// The fast loop. Returns true with `flow` set when the block (or the stream) ended inside it,
// false when it stopped at a margin and the careful loop must go on from the saved state.
//
// Each iteration starts with at least 56 valid bits, all from the input, and the next
// literal/length entry already looked up; it decodes up to three literals, or up to two and a
// match (a length of at most 15 + 5 bits, a distance of at most 15 + 13), then looks up the
// next entry and refills (the lookup before the match's copy, so that it overlaps the copy).
// The margins are tested once per iteration: see kFastInputMargin and kFastOutputMargin.
//
// It is written once and compiled twice, for plain x86-64 and for BMI2 (variable shifts and
// bit-field extracts without the flags dance), chosen at run time.
//
// Inside the loop only the low byte of `bitsLeft` counts: a symbol is consumed by subtracting its
// whole entry (the total sits in the entry's low byte and is below 64, so no borrow reaches the
// count), and shifts take counts of six bits as the shift instructions do, which saves the
// masking on every symbol.
template <bool kBmi2, bool kTrackDistance>
VEX_ALWAYS_INLINE inline bool DecodeFastBody(InflateStream& stream, const DecodeTable& litLenTable,
                                             const DecodeTable& distanceTable, Flow& flow)
{
    const size_t inputSize = size_t(stream.end - stream.begin);
    const size_t outputSize = stream.WindowEnd() - stream.outBase; // what the window can hold
    if (stream.deflate64 || stream.overrun != 0 || inputSize < kFastInputMargin || outputSize < kFastOutputMargin)
        return false;
    const uint8_t* const inputLimit = stream.end - kFastInputMargin;
    uint8_t* const outputStart = stream.out;
    uint8_t* const outputLimit = stream.out + (outputSize - kFastOutputMargin);
    const size_t outputBase = stream.outBase;
    const uint64_t inputBase = stream.inputOffset;

    const uint8_t* in = stream.next;
    uint64_t bitBuffer = stream.bitBuffer;
    unsigned bitsLeft = stream.bitsLeft;
    uint8_t* out = stream.OutAt(stream.outPos);
    if (in > inputLimit || out > outputLimit)
        return false;

    const uint32_t* const primary = litLenTable.fastPrimary; // with match entries where they fit
    const uint32_t* const litLen = litLenTable.entries;      // for its subtables
    const uint32_t* const distances = distanceTable.entries;
    constexpr uint64_t kLitLenMask = (uint64_t{1} << kLitLenPrimaryBits) - 1;
    constexpr uint64_t kDistanceMask = (uint64_t{1} << kDistancePrimaryBits) - 1;

    // The original loaded bytes up to (position + longest code) before each search. Where the
    // next literal/length search cannot be beaten by a distance search (kTrackDistance false),
    // only the end of block needs noting; otherwise the last distance search is remembered too.
    uint64_t lastDistanceSearch = 0;
    // Output index i lives at origin + i; kept as an integer, since the pointer may lie before
    // the buffer.
    const uintptr_t origin = reinterpret_cast<uintptr_t>(outputStart) - outputBase;

#define VEX_CONSUME(count)                                                                                            \
    do {                                                                                                              \
        const unsigned consumed_ = (count);                                                                           \
        bitBuffer >>= consumed_;                                                                                      \
        bitsLeft -= consumed_;                                                                                        \
    } while (0)
    // Consumes a symbol's total (codeword and extra bits) straight from its entry.
#define VEX_CONSUME_ENTRY(entry)                                                                                      \
    do {                                                                                                              \
        bitBuffer >>= (entry) & 63;                                                                                   \
        bitsLeft -= (entry);                                                                                          \
    } while (0)
    // Branch-free refill: load 8 bytes, keep the whole ones that fit; the count ends in 56..63.
#define VEX_REFILL()                                                                                                  \
    do {                                                                                                              \
        bitBuffer |= LoadLittleEndian64(in) << (bitsLeft & 63);                                                       \
        in += 7 - ((bitsLeft >> 3) & 7);                                                                              \
        bitsLeft |= 56;                                                                                               \
    } while (0)
    // A length or distance entry's extra bits, from the buffer as it was before the entry was
    // consumed. Such an entry has no flags, so its codeword field may be read six bits wide.
    auto extraBits = [](uint64_t before, uint32_t entry) VEX_ALWAYS_INLINE {
        return size_t(LowBits<kBmi2>(before, entry & 63) >> ((entry >> 8) & 63));
    };
#define VEX_BITS(value, count) LowBits<kBmi2>((value), (count))

    auto position = [&]() VEX_ALWAYS_INLINE {
        return (inputBase + uint64_t(in - stream.begin)) * 8 - (bitsLeft & 0xff);
    };
    auto save = [&]() VEX_ALWAYS_INLINE {
        stream.next = in;
        stream.bitBuffer = bitBuffer;
        stream.bitsLeft = bitsLeft & 0xff;
        stream.outPos = reinterpret_cast<uintptr_t>(out) - origin;
        if (lastDistanceSearch != 0)
            stream.loadedBits = std::max(stream.loadedBits, lastDistanceSearch);
    };

    VEX_REFILL();
    uint32_t entry = primary[bitBuffer & kLitLenMask];
    while (in <= inputLimit && out <= outputLimit) {
        if (entry & kEntryLiteral) {
            // Up to three literals. A literal of the primary table takes at most 11 bits, so
            // after the third 23 of the 56 bits are left to look up the next entry; after one or
            // two, a length and a distance lookup still fit, and a match that follows is decoded
            // here without going round the loop.
            VEX_CONSUME_ENTRY(entry);
            *out++ = static_cast<uint8_t>(EntryPayload(entry));
            entry = primary[bitBuffer & kLitLenMask];
            if (entry & kEntryLiteral) {
                VEX_CONSUME_ENTRY(entry);
                *out++ = static_cast<uint8_t>(EntryPayload(entry));
                entry = primary[bitBuffer & kLitLenMask];
                if (entry & kEntryLiteral) {
                    VEX_CONSUME_ENTRY(entry);
                    *out++ = static_cast<uint8_t>(EntryPayload(entry));
                    entry = primary[bitBuffer & kLitLenMask];
                    VEX_REFILL();
                    continue;
                }
            }
        }

        unsigned prefixBits = 0; // bits of this symbol already taken by a subtable pointer
        if (entry & kEntryExceptional) {
            if (entry & kEntrySubtable) {
                prefixBits = EntryTotal(entry);
                VEX_CONSUME(prefixBits);
                entry = litLen[EntryPayload(entry) + VEX_BITS(bitBuffer, EntryCodeword(entry))];
                if (entry & kEntryLiteral) {
                    VEX_CONSUME_ENTRY(entry);
                    *out++ = static_cast<uint8_t>(EntryPayload(entry));
                    VEX_REFILL();
                    entry = primary[bitBuffer & kLitLenMask];
                    continue;
                }
            }
            if (entry & kEntryExceptional) {
                if (entry & kEntryEndOfBlock) {
                    stream.loadedBits = std::max(stream.loadedBits, position() - prefixBits + litLenTable.longest);
                    VEX_CONSUME(EntryCodeword(entry));
                    save();
                    flow = Flow::Continue;
                    return true;
                }
                save();
                flow = Flow::Broken; // a hole: no code matches
                return true;
            }
        }

        size_t length, distance;
        // A whole match in one entry: the length, and the distance's code and extra bits. (Marked
        // unlikely for the layout's sake: blocks without match entries need the plain path laid
        // out straight, and those with them measured no slower.)
        if (!kTrackDistance && (entry & kEntryMatch)) [[unlikely]] {
            const uint64_t saved = bitBuffer;
            VEX_CONSUME_ENTRY(entry);
            length = MatchEntryLength(entry);
            distance = EntryPayload(kDistanceSymbolEntries[MatchEntryDistanceSymbol(entry)]) +
                       size_t(LowBits<kBmi2>(saved, entry & 63) >> ((entry >> 8) & 15));
        } else {
            // A length code and its extra bits, then the distance code and its extra bits.
            uint64_t saved = bitBuffer;
            VEX_CONSUME_ENTRY(entry);
            length = EntryPayload(entry) + extraBits(saved, entry);

            if constexpr (kTrackDistance)
                lastDistanceSearch = position() + distanceTable.longest;
            entry = distances[bitBuffer & kDistanceMask];
            // Literals and a length may have taken 42 bits since the last refill: refill unless
            // the distance (28 bits at most) and the next lookup (11) still fit. The refill leaves
            // the bits already looked at as they are.
            if ((bitsLeft & 0xff) < 28 + kLitLenPrimaryBits)
                VEX_REFILL();
            if (entry & kEntryExceptional) {
                if (entry & kEntrySubtable) {
                    VEX_CONSUME_ENTRY(entry);
                    entry = distances[EntryPayload(entry) + VEX_BITS(bitBuffer, EntryCodeword(entry))];
                }
                if (entry & kEntryExceptional) {
                    save();
                    flow = Flow::Broken;
                    return true;
                }
            }
            saved = bitBuffer;
            VEX_CONSUME_ENTRY(entry);
            distance = EntryPayload(entry) + extraBits(saved, entry);
        }

        // At least 11 bits are left: the next entry can be looked up before the refill, which
        // then overlaps the lookup instead of delaying it.
        entry = primary[bitBuffer & kLitLenMask];
        VEX_REFILL();

        const size_t written = reinterpret_cast<uintptr_t>(out) - origin;
        if (distance - 1 < written) [[likely]] {
            CopyMatch(out, distance, length); // length 0 (symbols 286, 287) writes only the overshoot
        } else if (distance == 0) {
            // Distance 0 copies the not yet written byte at the output position: a zero.
            std::memset(out, 0, length);
        } else if (length != 0) {
            RaiseSubscript(); // reaches before the start of the output
        }
        out += length;
    }
    save();
    return false;
#undef VEX_CONSUME
#undef VEX_REFILL
#undef VEX_BITS
}

// The fast loop with or without noting distance searches.
template <bool kBmi2>
VEX_ALWAYS_INLINE inline bool DecodeFastFor(InflateStream& stream, const DecodeTable& litLen,
                                            const DecodeTable& distance, Flow& flow)
{
    if (DistanceSearchesReachFurther(litLen, distance))
        return DecodeFastBody<kBmi2, true>(stream, litLen, distance, flow);
    return DecodeFastBody<kBmi2, false>(stream, litLen, distance, flow);
}

bool DecodeFastPlain(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distance, Flow& flow)
{
    return DecodeFastFor<false>(stream, litLen, distance, flow);
}

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
__attribute__((target("bmi2"))) bool DecodeFastBmi2(InflateStream& stream, const DecodeTable& litLen,
                                                    const DecodeTable& distance, Flow& flow)
{
    return DecodeFastFor<true>(stream, litLen, distance, flow);
}

bool DecodeFast(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distance, Flow& flow)
{
    static const bool hasBmi2 = __builtin_cpu_supports("bmi2");
    if (hasBmi2 && !forcePlainFastLoop)
        return DecodeFastBmi2(stream, litLen, distance, flow);
    return DecodeFastPlain(stream, litLen, distance, flow);
}
#else
bool DecodeFast(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distance, Flow& flow)
{
    return DecodeFastPlain(stream, litLen, distance, flow);
}
#endif

// The careful loop: symbol by symbol with every check of the original, zero bits past the end
// of the input, and byte-exact handling of the output's end.
Flow DecodeCareful(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distanceTable)
{
    stream.CleanBuffer();
    const uint64_t inputBits = stream.InputBits();
    for (;;) {
        stream.EnsureOutput(258); // a whole symbol's output fits the window
        const uint64_t start = stream.Position();
        const uint32_t entry = stream.DecodeCarefully(litLen);
        if (entry & kEntryLiteral) {
            // Past the input only zero bits remain, so this literal would repeat until it
            // overflowed the output: the same error, without the wait.
            if (start >= inputBits || stream.outPos > stream.lastIndex)
                RaiseSubscript();
            *stream.OutAt(stream.outPos++) = static_cast<uint8_t>(EntryPayload(entry));
            continue;
        }
        if (entry & kEntryExceptional)
            return (entry & kEntryEndOfBlock) ? Flow::Continue : Flow::Broken;

        uint32_t extra = 0;
        if (!stream.Read(EntryExtra(entry), extra))
            return Flow::Broken;
        uint32_t length = EntryPayload(entry) + extra;
        if (stream.deflate64 && length == 258) {
            if (!stream.Read(16, extra))
                return Flow::Broken;
            length = extra + 3;
        }

        const uint32_t distanceEntry = stream.DecodeCarefully(distanceTable);
        if (distanceEntry & kEntryExceptional)
            return Flow::Broken;
        if (!stream.Read(EntryExtra(distanceEntry), extra))
            return Flow::Broken;
        const size_t distance = EntryPayload(distanceEntry) + extra;

        if (length == 0)
            continue;
        if (stream.outPos > stream.lastIndex) {
            stream.outPos = stream.lastIndex;
            return Flow::Cut;
        }
        if (distance > stream.outPos)
            RaiseSubscript();
        const size_t count = std::min<size_t>(length, stream.lastIndex + 1 - stream.outPos);
        stream.EnsureOutput(count); // deflate64 lengths reach past 258
        uint8_t* out = stream.OutAt(stream.outPos);
        if (distance == 0) {
            std::memset(out, 0, count);
        } else {
            const uint8_t* from = out - distance;
            for (size_t i = 0; i < count; ++i)
                out[i] = from[i];
        }
        stream.outPos += count;
        if (count < length) {
            stream.outPos = stream.lastIndex;
            return Flow::Cut;
        }
    }
}

} // namespace

bool forcePlainFastLoop = false;

Flow DecodeHuffmanBlock(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distance)
{
    Flow flow;
    for (;;) {
        if (DecodeFast(stream, litLen, distance, flow))
            return flow;
        // Stopped at a window's margin: move the window on and go fast again, unless it is
        // the stream's own end.
        bool moved = false;
        if (size_t(stream.end - stream.next) < 2 * kFastInputMargin && stream.MoreInput()) {
            stream.RefillInput();
            moved = true;
        }
        if (!stream.WindowIsLast() && stream.WindowEnd() - stream.outPos < 2 * kFastOutputMargin) {
            stream.FlushOutput();
            moved = true;
        }
        if (!moved)
            break;
    }
    return DecodeCareful(stream, litLen, distance);
}

} // namespace vex::png::inflate_detail
