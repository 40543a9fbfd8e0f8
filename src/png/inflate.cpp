// The inflate's entry points, its block loop, stored blocks and the dynamic block header.
// The Huffman block decoder is in inflate_block.cpp, the decode tables in inflate_tables.cpp.

#include "png/inflate.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>

#include "base/numeric.h"
#include "base/runtime_error.h"
#include "png/inflate_stream.h"
#include "png/inflate_tables.h"

namespace vex::png {

using namespace inflate_detail;

// The decode tables live with the Inflater: the fixed ones are built once and kept for every
// later fixed block of every call; the dynamic ones are rebuilt per block in place.
struct Inflater::Tables {
    std::array<uint32_t, kLitLenTableSize> fixedLitLenEntries;
    std::array<uint32_t, kDistanceTableSize> fixedDistanceEntries;
    std::array<uint32_t, kLitLenTableSize> litLenEntries;
    std::array<uint32_t, kDistanceTableSize> distanceEntries;
    std::array<uint32_t, kCodeLengthTableSize> codeLengthEntries;
    std::array<uint32_t, size_t{1} << kLitLenPrimaryBits> matchEntries;
    DecodeTable fixedLitLen{fixedLitLenEntries.data(), kLitLenPrimaryBits};
    DecodeTable fixedDistance{fixedDistanceEntries.data(), kDistancePrimaryBits};
    DecodeTable litLen{litLenEntries.data(), kLitLenPrimaryBits};
    DecodeTable distance{distanceEntries.data(), kDistancePrimaryBits};
    DecodeTable codeLength{codeLengthEntries.data(), kCodeLengthPrimaryBits};
    bool fixedBuilt = false;
};

namespace {

const char kTreeErrorMessage[] = "Error in tree creation (Static)";

constexpr uint8_t kCodeLengthOrder[kCodeLengthSymbols] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

void BuildFixedTables(Inflater::Tables& tables);

// A stored block. The original's input position ran ahead of the bits used (it loaded whole
// bytes up to the furthest code search), and its header check counts from there; then it gave
// back the whole unused bytes and dropped the odd bits.
Flow StoredBlock(InflateStream& stream)
{
    stream.EnsureInput(4 + 65535);
    const uint64_t inputSize = stream.inputTotal;
    const uint64_t position = stream.Position();
    const uint64_t loaded = std::min(inputSize, std::max((position + 7) / 8, (stream.loadedBits + 7) / 8));
    if (loaded + 5 > inputSize) // i.e. position + 4 past the last index
        return Flow::Broken;
    uint64_t at = (position + 7) / 8;
    const uint8_t* header = stream.begin + (at - stream.inputOffset);
    const uint32_t length = header[0] | uint32_t(header[1]) << 8;
    const uint32_t lengthComplement = header[2] | uint32_t(header[3]) << 8;
    at += 4;
    if (length != (~lengthComplement & 0xffff))
        stream.result = kInflateStoredLengthMismatch; // and decoding goes on
    if (at + length > inputSize || stream.outPos + length > stream.lastIndex + 1)
        return Flow::Broken;
    stream.EnsureOutput(length);
    std::memcpy(stream.OutAt(stream.outPos), stream.begin + (at - stream.inputOffset), length);
    stream.outPos += length;
    stream.next = stream.begin + (at - stream.inputOffset) + length;
    stream.bitBuffer = 0;
    stream.bitsLeft = 0;
    stream.overrun = 0;
    return Flow::Continue;
}

// The dynamic block header: the code-length code, then the literal/length and distance code
// lengths as one run-length coded sequence, then both tables.
Flow DynamicHeader(InflateStream& stream, Inflater::Tables& tables)
{
    uint32_t litLenCount, distanceCount, codeLengthCount;
    if (!stream.Read(5, litLenCount) || !stream.Read(5, distanceCount) || !stream.Read(4, codeLengthCount))
        return Flow::Broken;
    litLenCount += 257;
    distanceCount += 1;
    codeLengthCount += 4;

    uint8_t codeLengthLengths[kCodeLengthSymbols] = {};
    for (uint32_t i = 0; i < codeLengthCount; ++i) {
        uint32_t value;
        if (!stream.Read(3, value))
            return Flow::Broken;
        codeLengthLengths[kCodeLengthOrder[i]] = static_cast<uint8_t>(value);
    }
    if (BuildDecodeTable(tables.codeLength, codeLengthLengths, kCodeLengthSymbols, kCodeLengthSymbolEntries.data()) != 0)
        return Flow::TreeError;

    uint8_t lengths[kLitLenSymbols + kDistanceSymbols];
    const uint32_t total = litLenCount + distanceCount;
    uint32_t count = 0;
    while (count < total) {
        const uint32_t entry = stream.DecodeCarefully(tables.codeLength);
        if (IsHole(entry))
            return Flow::Broken;
        const uint32_t symbol = EntryPayload(entry);
        if (symbol < 16) {
            lengths[count++] = static_cast<uint8_t>(symbol);
            continue;
        }
        uint8_t repeated = 0;
        uint32_t times;
        if (symbol == 16) {
            if (count == 0)
                return Flow::TreeError; // nothing to repeat
            repeated = lengths[count - 1];
            if (!stream.Read(2, times))
                return Flow::Broken;
            times += 3;
        } else if (symbol == 17) {
            if (!stream.Read(3, times))
                return Flow::Broken;
            times += 3;
        } else {
            if (!stream.Read(7, times))
                return Flow::Broken;
            times += 11;
        }
        if (count + times > total)
            return Flow::TreeError; // the run passes the end of the lengths
        std::memset(lengths + count, repeated, times);
        count += times;
    }

    if (BuildDecodeTable(tables.litLen, lengths, litLenCount, kLitLenSymbolEntries.data()) != 0 ||
        BuildDecodeTable(tables.distance, lengths + litLenCount, distanceCount, kDistanceSymbolEntries.data()) != 0)
        return Flow::TreeError;
    BuildMatchEntries(tables.litLen, tables.distance, lengths, litLenCount, lengths + litLenCount, distanceCount,
                      tables.matchEntries.data());
    return Flow::Continue;
}

Flow RunBlocks(InflateStream& stream, Inflater::Tables& tables)
{
    for (;;) {
        uint32_t final, type;
        if (!stream.Read(1, final) || !stream.Read(2, type))
            return Flow::Broken;
        Flow flow;
        switch (type) {
        case 0:
            flow = StoredBlock(stream);
            break;
        case 1:
            if (!tables.fixedBuilt)
                BuildFixedTables(tables);
            flow = DecodeHuffmanBlock(stream, tables.fixedLitLen, tables.fixedDistance);
            break;
        case 2:
            flow = DynamicHeader(stream, tables);
            if (flow == Flow::Continue)
                flow = DecodeHuffmanBlock(stream, tables.litLen, tables.distance);
            break;
        default:
            return Flow::Broken;
        }
        if (flow != Flow::Continue || final != 0)
            return flow;
    }
}

void BuildFixedTables(Inflater::Tables& tables)
{
    uint8_t lengths[kLitLenSymbols];
    std::fill(lengths, lengths + 144, uint8_t{8});
    std::fill(lengths + 144, lengths + 256, uint8_t{9});
    std::fill(lengths + 256, lengths + 280, uint8_t{7});
    std::fill(lengths + 280, lengths + 288, uint8_t{8});
    BuildDecodeTable(tables.fixedLitLen, lengths, kLitLenSymbols, kLitLenSymbolEntries.data());
    std::fill(lengths, lengths + kDistanceSymbols, uint8_t{5});
    BuildDecodeTable(tables.fixedDistance, lengths, kDistanceSymbols, kDistanceSymbolEntries.data());
    tables.fixedBuilt = true;
}

// Adds the 100 bytes of slack and checks that the output array can exist.
int32_t WidenCapacity(int32_t& capacity)
{
    capacity = Add32(capacity, 100);
    if (capacity < 0)
        Raise(ErrorCode::SubscriptOutOfRange); // an array with no index 0..capacity
    return capacity;
}

} // namespace

// Default-initialised, not value-initialised: the tables are written before they are read, and
// zeroing them would touch 80 KiB for every decoder.
Inflater::Inflater()
    : tables_(new Tables)
{
}

Inflater::~Inflater() = default;

size_t Inflater::OutputSizeFor(int32_t capacity)
{
    return size_t(int64_t{capacity} + 101);
}

InflateOutcome Inflater::Run(InflateStream& stream)
{
    const Flow flow = RunBlocks(stream, *tables_);
    if (flow == Flow::TreeError) {
        if (onTreeError)
            onTreeError(kTreeErrorMessage);
        return {kInflateOk, 0, true};
    }
    if (stream.sink != nullptr)
        stream.sink->Take(stream.out, stream.outBase, stream.outPos);
    return {flow == Flow::Broken ? kInflateBroken : stream.result, stream.outPos, false};
}

namespace {

InflateStream WholeStream(std::span<const uint8_t> input, int32_t lastIndex, bool deflate64, uint8_t* output)
{
    InflateStream stream;
    stream.begin = input.data();
    stream.end = input.data() + input.size();
    stream.next = stream.begin;
    stream.inputTotal = input.size();
    stream.out = output;
    stream.lastIndex = size_t(lastIndex);
    stream.outWindowSize = size_t(lastIndex) + 1;
    stream.deflate64 = deflate64;
    return stream;
}

} // namespace

InflateOutcome Inflater::InflateInto(std::span<const uint8_t> input, int32_t& capacity, bool deflate64,
                                     std::span<uint8_t> output)
{
    const int32_t lastIndex = WidenCapacity(capacity);
    if (output.size() < size_t(lastIndex) + 1)
        Raise(ErrorCode::SubscriptOutOfRange);
    InflateStream stream = WholeStream(input, lastIndex, deflate64, output.data());
    return Run(stream);
}

InflateOutcome Inflater::InflateStreaming(InflateInput& input, uint64_t inputSize, int32_t& capacity,
                                          InflateOutput& output, size_t keep)
{
    const int32_t lastIndex = WidenCapacity(capacity);
    // The input window: a stored block's 64 KiB and its header must fit after the look-behind.
    constexpr size_t kInputWindow = 96 * 1024;
    // The output window: what the consumer keeps or the history, then room for a stored block
    // and many symbols between two flushes.
    const size_t outputWindow = std::min(size_t(lastIndex) + 1, std::max(keep, kHistory) + 160 * 1024);
    std::unique_ptr<uint8_t[]> inputWindow(new uint8_t[kInputWindow]);
    std::unique_ptr<uint8_t[]> outputBuffer(new uint8_t[outputWindow]);

    InflateStream stream;
    stream.source = &input;
    stream.inputWindow = inputWindow.get();
    stream.inputWindowSize = kInputWindow;
    stream.begin = stream.end = stream.next = inputWindow.get();
    stream.inputTotal = inputSize;
    stream.out = outputBuffer.get();
    stream.lastIndex = size_t(lastIndex);
    stream.outWindowSize = outputWindow;
    stream.sink = &output;
    stream.RefillInput();
    return Run(stream);
}

namespace {

class MemoryInput final : public InflateInput {
public:
    explicit MemoryInput(std::span<const uint8_t> bytes) : bytes_(bytes) { }
    size_t Read(uint8_t* to, size_t count) override
    {
        count = std::min(count, bytes_.size() - at_);
        if (count > 0) // an empty stream has no bytes to point at
            std::memcpy(to, bytes_.data() + at_, count);
        at_ += count;
        return count;
    }

private:
    std::span<const uint8_t> bytes_;
    size_t at_ = 0;
};

class TextOutput final : public InflateOutput {
public:
    explicit TextOutput(std::string& text) : text_(text) { }
    size_t Take(const uint8_t* window, size_t windowStart, size_t end) override
    {
        text_.append(reinterpret_cast<const char*>(window + (taken_ - windowStart)), end - taken_);
        taken_ = end;
        return end;
    }

private:
    std::string& text_;
    size_t taken_ = 0;
};

} // namespace

void Inflater::InflateText(std::span<const uint8_t> input, int32_t& capacity, std::string& text)
{
    const size_t mark = text.size();
    try {
        // Room for the most the stream may give, asked for before it comes so that the text
        // never moves while it grows. Untouched, the room costs address space only.
        if (capacity >= 0 && capacity <= std::numeric_limits<int32_t>::max() - 100) {
            const size_t most = mark + size_t(capacity) + 101;
            if (most > text.capacity())
                text.reserve(std::max(most, std::min(text.max_size(), 2 * text.capacity())));
        }
        MemoryInput source(input);
        TextOutput sink(text);
        const InflateOutcome outcome = InflateStreaming(source, input.size(), capacity, sink, 0);
        if (outcome.treeError) { // the data stays as it was given
            text.resize(mark);
            text.append(input.begin(), input.end());
        }
    } catch (const std::bad_alloc&) {
        text.resize(mark);
        Raise(ErrorCode::OutOfMemory);
    } catch (...) {
        text.resize(mark);
        throw;
    }
}

void Inflater::Inflate(std::vector<uint8_t>& data, int32_t& capacity, bool deflate64, int32_t& result)
{
    const int32_t lastIndex = WidenCapacity(capacity);
    std::vector<uint8_t> output;
    try {
        output.resize(size_t(lastIndex) + 1);
    } catch (const std::bad_alloc&) {
        Raise(ErrorCode::OutOfMemory);
    }
    InflateStream stream = WholeStream(data, lastIndex, deflate64, output.data());
    const InflateOutcome outcome = Run(stream);
    result = outcome.result;
    if (outcome.treeError)
        return; // the data stays as it was given
    output.resize(outcome.produced);
    if (outcome.produced < output.capacity() / 2)
        output.shrink_to_fit();
    data = std::move(output);
}

} // namespace vex::png
