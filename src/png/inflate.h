#pragma once
// Inflate (RFC 1951) of our own. The routine's contract, kept exactly:
//   Inflate(data, capacity, deflate64, result)
//   - data: in: the deflate stream (the bytes after a zlib header); out: the decompressed bytes,
//     trimmed to the number produced (empty if none).
//   - capacity: in: the number of output bytes expected; 100 is added to it before use and the
//     caller sees the added value. A stream that would produce more is cut at capacity bytes.
//   - deflate64: length code 285 reads 16 extra bits + 3 instead of meaning 258.
//   - result: 0 success, -1 broken stream, -2 a stored block's LEN/NLEN check failed (decoding
//     went on). A tree that cannot be built reports "Error in tree creation (Static)" through
//     onTreeError and returns result 0 with data unchanged.
// One Inflater belongs to one LoadPNG object; it keeps the fixed trees between calls.
//
// The rest of the behaviour, in detail (capacity below means the value after the +100):
//   - The output array has indices 0..capacity. A literal written past it raises RuntimeError 9
//     (subscript out of range); so does a copy whose distance reaches before the first output
//     byte. A copy that reaches past index capacity ends the inflate there: the output is cut to
//     exactly capacity bytes, and the result stays what it was (0, or -2 after a bad stored
//     block). A literal may fill index capacity itself, so a stream can end with capacity + 1
//     bytes.
//   - An incomplete code set is accepted; a bit pattern that matches none of its codes is a
//     broken stream (-1). Length symbols 286-287 mean length 0 and distance symbols 30-31
//     distance 0 (a copy of length L at distance 0 writes L zero bytes).
//   - Codes may be completed with zero bits past the end of the input; a fixed-width field
//     (block header, extra bits, stored header or data) that reaches past it is a broken stream.
//     A literal decoded entirely from those zero bits would repeat forever: RuntimeError 9.
//   - A stored block needs its 4-byte header to start at least one byte before the input's last
//     byte, counted from where the bit reader had loaded to; with the zlib trailer in the data
//     this always holds for well-formed streams.
//   - A capacity whose +100 overflows raises RuntimeError 6; a negative result raises 9.
//   - When an error is raised, data is left as given and result is not written.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vex::png {

namespace inflate_detail {
struct InflateStream;
}

inline constexpr int32_t kInflateOk = 0;
inline constexpr int32_t kInflateBroken = -1;
inline constexpr int32_t kInflateStoredLengthMismatch = -2;

// What InflateInto reports: the result code, the number of bytes produced, and whether the
// trees could not be built (then nothing was produced and, as with Inflate, the caller's own
// bytes stand as the data: the image decode goes on with the compressed bytes).
struct InflateOutcome {
    int32_t result = kInflateOk;
    size_t produced = 0;
    bool treeError = false;
};

// The streaming entry's input: the next bytes of the deflate stream, as many as asked for
// (fewer only at its end).
class InflateInput {
public:
    virtual ~InflateInput() = default;
    virtual size_t Read(uint8_t* to, size_t count) = 0;
};

// The streaming entry's output: Take is shown the window (its first byte is output index
// `windowStart`) whenever it fills, and once at the end, with the bytes up to index `end`
// finished. It returns the first index it will still need; the window keeps that and the
// last 32 KiB, and drops the rest.
class InflateOutput {
public:
    virtual ~InflateOutput() = default;
    virtual size_t Take(const uint8_t* window, size_t windowStart, size_t end) = 0;
};

class Inflater {
public:
    Inflater();
    ~Inflater();
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // Receives the tree-creation message; the owner shows it in the host's message box.
    std::function<void(const std::string& message)> onTreeError;

    void Inflate(std::vector<uint8_t>& data, int32_t& capacity, bool deflate64, int32_t& result);

    // The image decode's entry: the same results as Inflate without copying the input or
    // zero-filling the output. `output` must hold at least OutputSizeFor(capacity) bytes
    // (capacity as passed in), else RuntimeError 9. Only output[0, produced) is meaningful:
    // the bytes after it, up to index capacity + 100, may have been overwritten; nothing past
    // that is touched. The buffer need not be initialised.
    InflateOutcome InflateInto(std::span<const uint8_t> input, int32_t& capacity, bool deflate64,
                               std::span<uint8_t> output);
    static size_t OutputSizeFor(int32_t capacity);

    // The same results again, with the input read from `input` (`inputSize` bytes in all) and
    // the output passed to `output` through a window of about `keep` + 160 KiB bytes, where
    // `keep` is the most the consumer holds back (a row). The consumer sees indices 0..produced;
    // what it takes before an error is raised is to be thrown away. On a tree error it has
    // seen nothing.
    InflateOutcome InflateStreaming(InflateInput& input, uint64_t inputSize, int32_t& capacity,
                                    InflateOutput& output, size_t keep);

    // zTXt: the same results as Inflate, appended to `text` as they come instead of through a
    // zero-filled array of the whole capacity; on a tree error the input's own bytes are
    // appended. If anything is raised `text` is left as it was.
    void InflateText(std::span<const uint8_t> input, int32_t& capacity, std::string& text);

    struct Tables;

private:
    InflateOutcome Run(inflate_detail::InflateStream& stream);

    std::unique_ptr<Tables> tables_;
};

} // namespace vex::png
