// The Huffman block decoder: a fast loop for the bulk of the data and a careful loop for the
// ends of the input and the output. Both give the same results; the fast loop only runs where
// nothing can reach past either end within one symbol.

#include <algorithm>
#include <cstring>

#include "base/runtime_error.h"
#include "png/inflate_stream.h"

namespace vex::png::inflate_detail {

namespace {

// One fast iteration reads at most 8 input bytes (one refill) ...
constexpr size_t kFastInputMargin = 8;
// ... and writes at most one match of 258 bytes, plus what a chunked copy writes past it.
constexpr size_t kCopyOvershoot = 32;
constexpr size_t kFastOutputMargin = 258 + kCopyOvershoot;

[[noreturn]] void RaiseSubscript() { Raise(ErrorCode::SubscriptOutOfRange); }

inline void Copy8(uint8_t* to, const uint8_t* from) { std::memcpy(to, from, 8); }
inline void Copy16(uint8_t* to, const uint8_t* from) { std::memcpy(to, from, 16); }

// Copies `length` bytes from `distance` bytes back (1 ≤ distance ≤ bytes written), repeating
// the bytes of an overlapping copy. Writes up to kCopyOvershoot bytes past out + length, which
// later output overwrites before anything reads it.
inline uint8_t* CopyMatch(uint8_t* out, size_t distance, size_t length)
{
    uint8_t* const stop = out + length;
    const uint8_t* from = out - distance;
    if (distance >= 16) {
        do {
            Copy16(out, from);
            out += 16;
            from += 16;
        } while (out < stop);
    } else if (distance >= 8) {
        do {
            Copy8(out, from);
            out += 8;
            from += 8;
        } while (out < stop);
    } else if (distance == 1) {
        const uint64_t word = from[0] * uint64_t{0x0101010101010101};
        do {
            std::memcpy(out, &word, 8);
            out += 8;
        } while (out < stop);
    } else {
        // A period shorter than a word. The output repeats with every multiple of the period
        // too, so after a few single bytes we can copy from a multiple that is ≥ 8 bytes back.
        const size_t wide = distance * ((8 + distance - 1) / distance);
        const size_t head = wide - distance; // < 8
        for (size_t i = 0; i < head; ++i)
            out[i] = from[i];
        out += head;
        from = out - wide;
        do {
            Copy8(out, from);
            out += 8;
            from += 8;
        } while (out < stop);
    }
    return stop;
}

// The fast loop. Returns true with `flow` set when the block (or the stream) ended inside it,
// false when it stopped at a margin and the careful loop must go on from the saved state.
//
// Invariant at the top of each symbol: at least 56 valid bits, all from the input (the margin
// keeps 8 bytes ahead), which covers the longest symbol: 15 + 5 + 15 + 13 = 48 bits.
bool DecodeFast(InflateStream& stream, const DecodeTable& litLenTable, const DecodeTable& distanceTable, Flow& flow)
{
    const size_t inputSize = size_t(stream.end - stream.begin);
    const size_t outputSize = stream.lastIndex + 1;
    if (stream.deflate64 || stream.overrun != 0 || inputSize < kFastInputMargin || outputSize < kFastOutputMargin)
        return false;
    const uint8_t* const inputLimit = stream.end - kFastInputMargin;
    uint8_t* const outputStart = stream.out;
    uint8_t* const outputLimit = stream.out + (outputSize - kFastOutputMargin);

    const uint8_t* in = stream.next;
    uint64_t bitBuffer = stream.bitBuffer;
    unsigned bitsLeft = stream.bitsLeft;
    uint8_t* out = stream.out + stream.outPos;
    if (in > inputLimit || out > outputLimit)
        return false;

    const uint32_t* const litLen = litLenTable.entries;
    const uint32_t* const distances = distanceTable.entries;
    constexpr uint64_t kLitLenMask = (uint64_t{1} << kLitLenPrimaryBits) - 1;
    constexpr uint64_t kDistanceMask = (uint64_t{1} << kDistancePrimaryBits) - 1;

    // The original loaded bytes up to (position + longest code) before each search. Where the
    // next literal/length search cannot be beaten by a distance search, only the end of block
    // needs noting; otherwise the last distance search is remembered too.
    const bool trackDistance = distanceTable.longest >= litLenTable.longest + 2;
    uint64_t lastDistanceSearch = 0;

    auto position = [&] { return uint64_t(in - stream.begin) * 8 - bitsLeft; };
    auto consume = [&](unsigned count) {
        bitBuffer >>= count;
        bitsLeft -= count;
    };
    // Branch-free refill: load 8 bytes, keep the whole ones that fit; bitsLeft ends in 56..63.
    auto refill = [&] {
        bitBuffer |= LoadLittleEndian64(in) << bitsLeft;
        in += (63 - bitsLeft) >> 3;
        bitsLeft |= 56;
    };
    auto save = [&] {
        stream.next = in;
        stream.bitBuffer = bitBuffer;
        stream.bitsLeft = bitsLeft;
        stream.outPos = size_t(out - outputStart);
        if (lastDistanceSearch != 0)
            stream.loadedBits = std::max(stream.loadedBits, lastDistanceSearch);
    };

    refill();
    uint32_t entry = litLen[bitBuffer & kLitLenMask];
    for (;;) {
        if (entry & kEntryLiteral) {
            // Up to three literals per refill: each takes at most 15 of the 56 bits, and the
            // 11 bits left still index the next entry.
            consume(EntryLength(entry));
            *out++ = static_cast<uint8_t>(EntryPayload(entry));
            entry = litLen[bitBuffer & kLitLenMask];
            if (entry & kEntryLiteral) {
                consume(EntryLength(entry));
                *out++ = static_cast<uint8_t>(EntryPayload(entry));
                entry = litLen[bitBuffer & kLitLenMask];
                if (entry & kEntryLiteral) {
                    consume(EntryLength(entry));
                    *out++ = static_cast<uint8_t>(EntryPayload(entry));
                    entry = litLen[bitBuffer & kLitLenMask];
                }
            }
            if (in > inputLimit || out > outputLimit)
                break;
            refill();
            continue;
        }

        unsigned prefixBits = 0; // bits of this symbol already taken by a subtable pointer
        if (entry & kEntryExceptional) {
            if (entry & kEntrySubtable) {
                prefixBits = EntryLength(entry);
                consume(prefixBits);
                entry = litLen[EntryPayload(entry) + (bitBuffer & ((uint64_t{1} << EntryExtra(entry)) - 1))];
                if (entry & kEntryLiteral) {
                    consume(EntryLength(entry));
                    *out++ = static_cast<uint8_t>(EntryPayload(entry));
                    if (in > inputLimit || out > outputLimit)
                        break;
                    refill();
                    entry = litLen[bitBuffer & kLitLenMask];
                    continue;
                }
            }
            if (entry & kEntryExceptional) {
                if (entry & kEntryEndOfBlock) {
                    stream.loadedBits = std::max(stream.loadedBits, position() - prefixBits + litLenTable.longest);
                    consume(EntryLength(entry));
                    save();
                    flow = Flow::Continue;
                    return true;
                }
                save();
                flow = Flow::Broken; // a hole: no code matches
                return true;
            }
        }

        // A length code: base + extra bits, then the distance code and its extra bits.
        unsigned codeBits = EntryLength(entry);
        const uint32_t length =
            EntryPayload(entry) + uint32_t((bitBuffer >> codeBits) & ((uint64_t{1} << EntryExtra(entry)) - 1));
        consume(codeBits + EntryExtra(entry));

        if (trackDistance)
            lastDistanceSearch = position() + distanceTable.longest;
        uint32_t distanceEntry = distances[bitBuffer & kDistanceMask];
        if (distanceEntry & kEntryExceptional) {
            if (distanceEntry & kEntrySubtable) {
                consume(EntryLength(distanceEntry));
                distanceEntry = distances[EntryPayload(distanceEntry) +
                                          (bitBuffer & ((uint64_t{1} << EntryExtra(distanceEntry)) - 1))];
            }
            if (distanceEntry & kEntryExceptional) {
                save();
                flow = Flow::Broken;
                return true;
            }
        }
        codeBits = EntryLength(distanceEntry);
        const size_t distance = EntryPayload(distanceEntry) +
                                size_t((bitBuffer >> codeBits) & ((uint64_t{1} << EntryExtra(distanceEntry)) - 1));
        consume(codeBits + EntryExtra(distanceEntry));

        if (length != 0) {
            const size_t written = size_t(out - outputStart);
            if (distance - 1 < written) {
                out = CopyMatch(out, distance, length);
            } else if (distance == 0) {
                // Distance 0 copies the not yet written byte at the output position: a zero.
                std::memset(out, 0, length);
                out += length;
            } else {
                RaiseSubscript(); // reaches before the start of the output
            }
        }

        if (in > inputLimit || out > outputLimit)
            break;
        refill();
        entry = litLen[bitBuffer & kLitLenMask];
    }
    save();
    return false;
}

// The careful loop: symbol by symbol with every check of the original, zero bits past the end
// of the input, and byte-exact handling of the output's end.
Flow DecodeCareful(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distanceTable)
{
    stream.CleanBuffer();
    const uint64_t inputBits = stream.InputBits();
    for (;;) {
        const uint64_t start = stream.Position();
        const uint32_t entry = stream.DecodeCarefully(litLen);
        if (entry & kEntryLiteral) {
            // Past the input only zero bits remain, so this literal would repeat until it
            // overflowed the output: the same error, without the wait.
            if (start >= inputBits || stream.outPos > stream.lastIndex)
                RaiseSubscript();
            stream.out[stream.outPos++] = static_cast<uint8_t>(EntryPayload(entry));
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
        uint8_t* out = stream.out + stream.outPos;
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

Flow DecodeHuffmanBlock(InflateStream& stream, const DecodeTable& litLen, const DecodeTable& distance)
{
    Flow flow;
    if (DecodeFast(stream, litLen, distance, flow))
        return flow;
    return DecodeCareful(stream, litLen, distance);
}

} // namespace vex::png::inflate_detail
