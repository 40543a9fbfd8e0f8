#include "png/chunk_reader.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/numeric.h"
#include "png/ancillary.h"
#include "png/byte_order.h"

namespace vex::png {

namespace {

constexpr uint8_t kSignature[8] = {137, 80, 78, 71, 13, 10, 26, 10};

// A file opened for binary access: a position counted from 1 and reads that never fail.
class BinaryFile {
public:
    explicit BinaryFile(std::span<const uint8_t> bytes)
        : bytes_(bytes)
        , length_(ToInt32(static_cast<int64_t>(bytes.size())))
    {
    }

    int32_t Length() const { return length_; }
    int32_t Position() const { return Add32(offset_, 1); } // the host's Seek()

    // Reads `count` bytes into `out`; bytes past the end of the file read as 0.
    void Read(uint8_t* out, size_t count)
    {
        size_t available = 0;
        if (static_cast<size_t>(offset_) < bytes_.size())
            available = std::min(count, bytes_.size() - static_cast<size_t>(offset_));
        if (available > 0)
            std::memcpy(out, bytes_.data() + offset_, available);
        std::fill(out + available, out + count, uint8_t{0});
        offset_ = ToInt32(int64_t{offset_} + static_cast<int64_t>(count));
    }

private:
    std::span<const uint8_t> bytes_;
    int32_t length_;
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
    CompressedTextStream split = SplitCompressedText(state.compressedText, buffer);
    inflate(split.stream, split.capacity);
    state.compressedText.append(split.stream.begin(), split.stream.end());
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
    } else if (type == "IDAT") {
        state.compressed.insert(state.compressed.end(), buffer.begin(), buffer.end());
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
    state.compressed.clear();
}

int32_t ReadChunks(std::span<const uint8_t> bytes, ChunkState& state, const TextInflate& inflate)
{
    BeginStream(state);

    BinaryFile file(bytes);
    uint8_t signature[8];
    file.Read(signature, sizeof signature);
    if (std::memcmp(signature, kSignature, sizeof signature) != 0)
        return kErrorSignature;

    std::vector<uint8_t> buffer; // the chunk buffer; deliberately kept across chunks
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
            buffer.resize(static_cast<size_t>(length));
        file.Read(buffer.data(), buffer.size());
        file.Read(crc, 4);
        if (HandleChunk(std::string_view(type, 4), buffer, state, inflate))
            break;
    }
    return state.compressed.empty() ? kErrorNoImageData : kErrorNone;
}

} // namespace vex::png
