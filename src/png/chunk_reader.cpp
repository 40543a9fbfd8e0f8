#include "png/chunk_reader.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/numeric.h"
#include "png/ancillary.h"
#include "png/byte_order.h"

namespace vex::png {

namespace {

// Payloads whose text could not even be addressed are left to the inflate's own checks.
constexpr size_t kMaxReservedPayload = size_t{1} << 28;

// A file opened for binary access: a position counted from 1 and reads that never fail.
class BinaryFile {
public:
    explicit BinaryFile(ByteSource& source)
        : source_(source)
    {
    }

    // The host's LOF(). Positions are 32-bit: a file of 2^31 bytes or more is an Overflow, found
    // when the length is first asked for (after the signature test).
    int32_t Length() const { return ToInt32(source_.Size()); }
    int32_t Position() const { return Add32(offset_, 1); } // the host's Seek()

    // Reads `count` bytes into `out`; bytes past the end of the file read as 0.
    void Read(uint8_t* out, size_t count)
    {
        source_.ReadAt(offset_, out, count);
        Skip(count);
    }
    // Moves on as a read of `count` bytes would; the bytes themselves are read later.
    DataPiece Skip(size_t count)
    {
        DataPiece piece { offset_, count };
        offset_ = ToInt32(int64_t{offset_} + static_cast<int64_t>(count));
        return piece;
    }

private:
    ByteSource& source_;
    int32_t offset_ = 0;
};

void ReadHeader(const std::vector<uint8_t>& buffer, PngHeader& header)
{
    uint8_t raw[kHeaderSize];
    for (size_t i = 0; i < kHeaderSize; ++i)
        raw[i] = ByteAt(buffer, i);
    header.width = ReverseLong(raw);
    header.height = ReverseLong(raw + 4);
    header.bitDepth = raw[8];
    header.colorType = raw[9];
    header.compression = raw[10];
    header.filter = raw[11];
    header.interlace = raw[12];
}

void ReadCompressedText(const std::vector<uint8_t>& buffer, ChunkState& state, const TextInflate& inflate)
{
    // Room for all this chunk may add (keyword, text of at most 12 times the payload, two NULs)
    // before any of it comes, so that a text of many megabytes is not copied as it grows.
    std::string& text = state.compressedText;
    const size_t most = text.size() + 13 * buffer.size() + 128;
    if (most > text.capacity() && buffer.size() <= kMaxReservedPayload)
        text.reserve(std::max(most, std::min(text.max_size(), 2 * text.capacity())));
    CompressedTextStream split = SplitCompressedText(state.compressedText, buffer);
    inflate(split.stream, split.capacity, state.compressedText);
    state.compressedText.push_back('\0');
}

// Acts on one chunk. Returns true at IEND.
bool HandleChunk(std::string_view type, const std::vector<uint8_t>& buffer, ChunkState& state,
                 const TextInflate& inflate)
{
    if (type == "IHDR") {
        ReadHeader(buffer, state.header);
    } else if (type == "PLTE") {
        state.palette = buffer;
    } else if (type == "IEND") {
        return true;
    } else if (type == "bKGD") {
        state.background = buffer;
        if (auto colour = BackgroundColorFromChunk(state.header, buffer, state.palette))
            state.backgroundColor = *colour;
        state.hasBackground = true;
    } else if (type == "gAMA") {
        uint8_t raw[4] = {ByteAt(buffer, 0), ByteAt(buffer, 1), ByteAt(buffer, 2), ByteAt(buffer, 3)};
        state.gamma = ReverseLong(raw);
    } else if (type == "tEXt") {
        AppendText(state.text, buffer);
    } else if (type == "zTXt") {
        ReadCompressedText(buffer, state, inflate);
    } else if (type == "tIME") {
        state.modificationTime = ModificationTimeText(buffer);
    } else if (type == "tRNS") {
        state.hasTransparency = true;
        state.transparency = buffer;
    }
    // cHRM, oFFs, pCAL, sCAL, hIST, pHYs, sBIT, gIFg, gIFx, cTXt and every unknown type: skipped.
    return false;
}

} // namespace

void BeginStream(ChunkState& state)
{
    state.hasBackground = false;
    state.hasTransparency = false;
    state.imageData.clear();
    state.imageDataSize = 0;
}

void MemorySource::ReadAt(int64_t offset, uint8_t* out, size_t count)
{
    size_t available = 0;
    if (offset >= 0 && static_cast<uint64_t>(offset) < bytes_.size())
        available = std::min(count, bytes_.size() - static_cast<size_t>(offset));
    if (available > 0)
        std::memcpy(out, bytes_.data() + offset, available);
    std::fill(out + available, out + count, uint8_t{0});
}

std::vector<uint8_t> ImageData(const ChunkState& state, ByteSource& file)
{
    std::vector<uint8_t> joined(state.imageDataSize);
    size_t at = 0;
    for (const DataPiece& piece : state.imageData) {
        file.ReadAt(piece.offset, joined.data() + at, piece.count);
        at += piece.count;
    }
    return joined;
}

int32_t ReadChunks(std::span<const uint8_t> bytes, ChunkState& state, const TextInflate& inflate)
{
    MemorySource source(bytes);
    return ReadChunks(source, state, inflate);
}

int32_t ReadChunks(ByteSource& source, ChunkState& state, const TextInflate& inflate)
{
    BeginStream(state);

    BinaryFile file(source);
    uint8_t signature[8];
    file.Read(signature, sizeof signature);
    if (std::memcmp(signature, kPngSignature, sizeof signature) != 0)
        return kErrorSignature;

    std::vector<uint8_t> buffer; // the chunk buffer; deliberately kept across chunks
    size_t bufferSize = 0;       // its size as the host sees it (image data never fills it)
    for (;;) {
        uint8_t lengthBytes[4];
        char type[4];
        uint8_t crc[4];
        file.Read(lengthBytes, 4);
        file.Read(reinterpret_cast<uint8_t*>(type), 4);
        int32_t length = ReverseLong(lengthBytes);
        // Checked before the buffer grows: a chunk can never claim more than the file holds.
        if (Add32(file.Position(), length) > file.Length())
            return kErrorTruncated;
        if (length > 0)
            bufferSize = static_cast<size_t>(length);
        if (std::string_view(type, 4) == "IDAT") {
            // Every chunk's read overwrites the whole buffer, so the image data need not pass
            // through it: its place in the file is enough.
            DataPiece piece = file.Skip(bufferSize);
            if (piece.count > 0) {
                state.imageData.push_back(piece);
                state.imageDataSize += piece.count;
            }
        } else {
            buffer.resize(bufferSize);
            file.Read(buffer.data(), buffer.size());
        }
        file.Read(crc, 4);
        if (HandleChunk(std::string_view(type, 4), buffer, state, inflate))
            break;
    }
    return state.imageDataSize == 0 ? kErrorNoImageData : kErrorNone;
}

} // namespace vex::png
