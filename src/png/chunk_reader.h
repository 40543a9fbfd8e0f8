#pragma once
// The PNG stream as the decoder reads it: the signature, then chunks until IEND.
//
//   chunk:  length (4, BE, signed)  type (4 chars)  data (length bytes)  CRC (4, skipped)
//
// The stream is read the way the host reads a file opened for binary access: positions count
// from 1, and a read past the end gives zero bytes instead of failing. The chunk buffer is only
// re-dimensioned for a positive length, so a zero-length (or negative-length) chunk reads as
// many bytes as the chunk before it held, and reuses its contents if the file has run out.
// Lengths are checked against the file's size before anything is read, so no chunk can make
// the reader hold more than the file's own size. CRCs are never checked.

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/ole_color.h"
#include "png/png_header.h"

namespace vex::png {

inline constexpr uint8_t kPngSignature[8] = {137, 80, 78, 71, 13, 10, 26, 10};

// ErrorNumber codes of the stream.
inline constexpr int32_t kErrorNone = 0;
inline constexpr int32_t kErrorSignature = 1;   // the first 8 bytes are not the PNG signature
inline constexpr int32_t kErrorTruncated = 3;   // a chunk would run past the end of the file
inline constexpr int32_t kErrorNoImageData = 4; // IEND without any IDAT data

// Where a stream's bytes come from: memory, or a file read piece by piece, so that a decode
// need not hold the whole file.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    virtual int64_t Size() const = 0;
    // Copies `count` bytes from `offset` to `out`; bytes past the end read as 0.
    virtual void ReadAt(int64_t offset, uint8_t* out, size_t count) = 0;
};

class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::span<const uint8_t> bytes) : bytes_(bytes) { }
    int64_t Size() const override { return static_cast<int64_t>(bytes_.size()); }
    void ReadAt(int64_t offset, uint8_t* out, size_t count) override;
    std::span<const uint8_t> bytes() const { return bytes_; }

private:
    std::span<const uint8_t> bytes_;
};

// One IDAT payload: `count` bytes of the stream from `offset` (bytes past its end read as 0).
struct DataPiece {
    int64_t offset = 0;
    size_t count = 0;
};

// Everything the chunks leave in a LoadPNG object. Fields not reset by BeginStream carry over
// from one stream to the next on the same object (text keeps growing, deliberately).
struct ChunkState {
    PngHeader header;
    std::vector<DataPiece> imageData; // where every IDAT payload is, in file order
    size_t imageDataSize = 0;         // their bytes together
    std::vector<uint8_t> palette;    // PLTE payload
    std::vector<uint8_t> transparency;
    std::vector<uint8_t> background; // bKGD payload
    bool hasTransparency = false;
    bool hasBackground = false;
    ColorRef backgroundColor = 0;
    int32_t gamma = 0;
    std::string text;
    std::string compressedText;
    std::string modificationTime;
};

// Inflates a zTXt stream with the given output capacity and appends the text to `text`; when
// the trees cannot be built the stream's own bytes are appended instead (the inflate leaves its
// data as given). Raising leaves `text` as it was.
using TextInflate = std::function<void(std::span<const uint8_t> stream, int32_t capacity, std::string& text)>;

// What every new stream starts with: no tRNS or bKGD seen yet, no image data. The rest of the
// state carries over.
void BeginStream(ChunkState& state);

// Reads a whole PNG stream into `state` (after BeginStream) and returns an ErrorNumber code (0 when IEND was
// reached with image data). Raises RuntimeError only where the host would: Overflow for
// positions past 2^31, Subscript out of range for the bKGD palette read, and whatever the
// zTXt inflate raises.
// The signature is tested on the first 8 bytes before anything else is looked at. IDAT
// payloads are not read, only their places noted (ImageData reads them).
int32_t ReadChunks(ByteSource& file, ChunkState& state, const TextInflate& inflate);
int32_t ReadChunks(std::span<const uint8_t> file, ChunkState& state, const TextInflate& inflate);

// All IDAT payloads joined, as the stream holds them.
std::vector<uint8_t> ImageData(const ChunkState& state, ByteSource& file);

} // namespace vex::png
