#pragma once
// A tiny PNG writer for tests: chunks with real CRCs (or any length field we like), image data
// compressed by zlib, split into IDATs of any size.

#include <zlib.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace vex::png::testing {

inline void PutLong(std::vector<uint8_t>& out, uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<uint8_t>(value >> shift));
}

inline std::vector<uint8_t> Compress(const std::vector<uint8_t>& raw, int level = 6)
{
    uLongf size = compressBound(static_cast<uLong>(raw.size()));
    std::vector<uint8_t> out(size);
    compress2(out.data(), &size, raw.data(), static_cast<uLong>(raw.size()), level);
    out.resize(size);
    return out;
}

class PngWriter {
public:
    PngWriter() { bytes_ = {137, 80, 78, 71, 13, 10, 26, 10}; }

    // A chunk whose length field is `length` whatever the payload holds.
    PngWriter& RawChunk(int32_t length, std::string_view type, const std::vector<uint8_t>& data)
    {
        PutLong(bytes_, static_cast<uint32_t>(length));
        size_t typeAt = bytes_.size();
        bytes_.insert(bytes_.end(), type.begin(), type.end());
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        uLong crc = crc32(0, bytes_.data() + typeAt, static_cast<uInt>(4 + data.size()));
        PutLong(bytes_, static_cast<uint32_t>(crc));
        return *this;
    }
    PngWriter& Chunk(std::string_view type, const std::vector<uint8_t>& data)
    {
        return RawChunk(static_cast<int32_t>(data.size()), type, data);
    }
    PngWriter& Ihdr(int32_t width, int32_t height, int depth, int colorType, int interlace = 0)
    {
        std::vector<uint8_t> data;
        PutLong(data, static_cast<uint32_t>(width));
        PutLong(data, static_cast<uint32_t>(height));
        data.insert(data.end(), {static_cast<uint8_t>(depth), static_cast<uint8_t>(colorType), 0, 0,
                                 static_cast<uint8_t>(interlace)});
        return Chunk("IHDR", data);
    }
    // The zlib stream of `filteredRows` in IDATs of `split` bytes (0: one IDAT).
    PngWriter& Idat(const std::vector<uint8_t>& filteredRows, size_t split = 0, int level = 6)
    {
        std::vector<uint8_t> stream = Compress(filteredRows, level);
        if (split == 0)
            split = stream.size();
        for (size_t at = 0; at < stream.size(); at += split) {
            size_t end = at + split < stream.size() ? at + split : stream.size();
            Chunk("IDAT", std::vector<uint8_t>(stream.begin() + static_cast<std::ptrdiff_t>(at),
                                               stream.begin() + static_cast<std::ptrdiff_t>(end)));
        }
        return *this;
    }
    PngWriter& Iend() { return Chunk("IEND", {}); }
    PngWriter& Append(const std::vector<uint8_t>& raw)
    {
        bytes_.insert(bytes_.end(), raw.begin(), raw.end());
        return *this;
    }

    const std::vector<uint8_t>& bytes() const { return bytes_; }

private:
    std::vector<uint8_t> bytes_;
};

// Rows of `rowBytes` bytes from `pixels`, each behind filter type `filter` (the bytes are
// written as they stand, so a non-zero type makes the test's own arithmetic the filter).
inline std::vector<uint8_t> WithFilterBytes(const std::vector<uint8_t>& pixels, size_t rowBytes, uint8_t filter = 0)
{
    std::vector<uint8_t> out;
    for (size_t at = 0; at < pixels.size(); at += rowBytes) {
        out.push_back(filter);
        out.insert(out.end(), pixels.begin() + static_cast<std::ptrdiff_t>(at),
                   pixels.begin() + static_cast<std::ptrdiff_t>(at + rowBytes));
    }
    return out;
}

} // namespace vex::png::testing
