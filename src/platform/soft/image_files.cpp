// PNG writing and PNG/BMP reading for tools and tests (see platform/png_writer.h).

#include <png.h>

#include <cstring>
#include <fstream>
#include <iterator>

#include "platform/png_writer.h"

namespace vex::platform {
namespace {

void Fail(std::string* error, const std::string& message)
{
    if (error)
        *error = message;
}

uint32_t Little32(const uint8_t* p) { return p[0] | (p[1] << 8) | (p[2] << 16) | (uint32_t { p[3] } << 24); }
uint16_t Little16(const uint8_t* p) { return static_cast<uint16_t>(p[0] | (p[1] << 8)); }

// An uncompressed Windows bitmap: BITMAPFILEHEADER (14 bytes), BITMAPINFOHEADER (40 or more),
// an optional palette of 4-byte entries, then the rows.
std::optional<Dib> ReadBmp(const std::vector<uint8_t>& bytes, std::string* error)
{
    if (bytes.size() < 54) {
        Fail(error, "BMP file too short");
        return std::nullopt;
    }
    uint32_t dataOffset = Little32(&bytes[10]);
    uint32_t headerSize = Little32(&bytes[14]);
    auto width = static_cast<int32_t>(Little32(&bytes[18]));
    auto height = static_cast<int32_t>(Little32(&bytes[22]));
    int bitCount = Little16(&bytes[28]);
    uint32_t compression = Little32(&bytes[30]);
    uint32_t colorsUsed = Little32(&bytes[46]);
    bool topDown = height < 0;
    if (height < 0)
        height = -height;
    bool known = bitCount == 1 || bitCount == 4 || bitCount == 8 || bitCount == 24 || bitCount == 32;
    if (compression != 0 || !known || width <= 0 || height <= 0 || int64_t { width } * height > (int64_t { 1 } << 28)) {
        Fail(error, "unsupported BMP (compressed, unusual depth or size)");
        return std::nullopt;
    }
    // Everything the header claims is checked against the bytes present before the bitmaps
    // are made: a 54-byte file cannot make us build a 16384 x 16384 image.
    size_t entries = bitCount <= 8 ? (colorsUsed ? colorsUsed : (size_t { 1 } << bitCount)) : 0;
    size_t paletteAt = 14 + size_t { headerSize };
    if (entries > 256 || paletteAt + entries * 4 > bytes.size()) {
        Fail(error, "BMP palette out of range");
        return std::nullopt;
    }
    uint64_t pixelBytes = uint64_t(Dib::StrideFor(width, bitCount)) * uint64_t(height);
    if (dataOffset > bytes.size() || bytes.size() - dataOffset < pixelBytes) {
        Fail(error, "BMP pixel data truncated");
        return std::nullopt;
    }
    Dib file(width, height, bitCount, topDown);
    for (size_t i = 0; i < entries; ++i)
        file.palette().push_back(RgbQuad { bytes[paletteAt + i * 4], bytes[paletteAt + i * 4 + 1], bytes[paletteAt + i * 4 + 2], 0 });
    std::memcpy(file.bits().data(), bytes.data() + dataOffset, file.bits().size());
    Dib result(width, height, 32, true);
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x) {
            ColorRef c = file.pixel(x, y);
            uint8_t* out = result.row(y) + x * 4;
            out[0] = static_cast<uint8_t>(BlueOf(c));
            out[1] = static_cast<uint8_t>(GreenOf(c));
            out[2] = static_cast<uint8_t>(RedOf(c));
        }
    return result;
}

std::optional<Dib> ReadPng(const std::vector<uint8_t>& bytes, std::string* error)
{
    png_image image {};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) {
        Fail(error, image.message);
        return std::nullopt;
    }
    // Deflate expands at most 1032 to 1, and every row holds a filter byte and at least a bit
    // per pixel: data that cannot fill the image is refused before the image is allocated.
    uint64_t leastRowBytes = (uint64_t { image.width } + 7) / 8 + 1;
    if (uint64_t { image.width } * image.height > (uint64_t { 1 } << 28)
        || uint64_t { image.height } * leastRowBytes > uint64_t { bytes.size() } * 1032) {
        png_image_free(&image);
        Fail(error, "PNG too large");
        return std::nullopt;
    }
    image.format = PNG_FORMAT_BGRA;
    Dib result(static_cast<int32_t>(image.width), static_cast<int32_t>(image.height), 32, true);
    png_color black {};
    if (!png_image_finish_read(&image, &black, result.bits().data(), result.stride(), nullptr)) {
        Fail(error, image.message);
        return std::nullopt;
    }
    // Compose onto black and leave alpha 0, as device pixels have it.
    for (int32_t y = 0; y < result.height(); ++y)
        for (int32_t x = 0; x < result.width(); ++x) {
            uint8_t* p = result.row(y) + x * 4;
            for (int c = 0; c < 3; ++c)
                p[c] = static_cast<uint8_t>((p[c] * p[3] + 127) / 255);
            p[3] = 0;
        }
    return result;
}

} // namespace

std::vector<uint8_t> EncodePng(const Dib& dib)
{
    std::vector<uint8_t> rgb(static_cast<size_t>(dib.width()) * static_cast<size_t>(dib.height()) * 3);
    for (int32_t y = 0; y < dib.height(); ++y)
        for (int32_t x = 0; x < dib.width(); ++x) {
            ColorRef c = dib.pixel(x, y);
            uint8_t* out = rgb.data() + (static_cast<size_t>(y) * static_cast<size_t>(dib.width()) + static_cast<size_t>(x)) * 3;
            out[0] = static_cast<uint8_t>(RedOf(c));
            out[1] = static_cast<uint8_t>(GreenOf(c));
            out[2] = static_cast<uint8_t>(BlueOf(c));
        }
    png_image image {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(dib.width());
    image.height = static_cast<png_uint_32>(dib.height());
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = 0;
    if (dib.empty() || !png_image_write_to_memory(&image, nullptr, &size, 0, rgb.data(), 0, nullptr))
        return {};
    std::vector<uint8_t> bytes(size);
    if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, rgb.data(), 0, nullptr))
        return {};
    bytes.resize(size);
    return bytes;
}

bool WritePng(const std::string& path, const Dib& dib, std::string* error)
{
    std::vector<uint8_t> bytes = EncodePng(dib);
    if (bytes.empty()) {
        Fail(error, "nothing to encode (an empty image)");
        return false;
    }
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out) {
        Fail(error, "cannot write " + path);
        return false;
    }
    return true;
}

std::optional<Dib> ReadImage(const std::string& path, std::string* error)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        Fail(error, "cannot open " + path);
        return std::nullopt;
    }
    std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M')
        return ReadBmp(bytes, error);
    return ReadPng(bytes, error);
}

} // namespace vex::platform
