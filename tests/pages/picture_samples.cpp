#include "picture_samples.h"

#include <cstdio>
#include <gif_lib.h>
#include <jpeglib.h>

#include "platform/png_writer.h"

namespace vex::pages::testing {

namespace {

void Put16(std::vector<uint8_t>& out, uint32_t value)
{
    out.push_back(static_cast<uint8_t>(value));
    out.push_back(static_cast<uint8_t>(value >> 8));
}
void Put32(std::vector<uint8_t>& out, uint32_t value)
{
    Put16(out, value & 0xFFFF);
    Put16(out, value >> 16);
}

void InfoHeader(std::vector<uint8_t>& out, int width, int height, int bitCount, int colours)
{
    Put32(out, 40);
    Put32(out, static_cast<uint32_t>(width));
    Put32(out, static_cast<uint32_t>(height));
    Put16(out, 1);
    Put16(out, static_cast<uint32_t>(bitCount));
    for (int i = 0; i < 3; ++i)
        Put32(out, 0); // compression, image size, x resolution
    Put32(out, 0);
    Put32(out, static_cast<uint32_t>(colours));
    Put32(out, 0);
}

// Palette index of pixel (x, y) in a 4-bit sample: the grid has at most 16 distinct cells.
int Index(int x, int y, int width) { return (y * width + x) % 16; }

void Palette(std::vector<uint8_t>& out, int width)
{
    for (int i = 0; i < 16; ++i) {
        ColorRef c = Colour(i % width, i / width);
        out.insert(out.end(), { uint8_t(BlueOf(c)), uint8_t(GreenOf(c)), uint8_t(RedOf(c)), 0 });
    }
}

void FourBitRows(std::vector<uint8_t>& out, int width, int height, bool bottomUp)
{
    size_t stride = (static_cast<size_t>(width) * 4 + 31) / 32 * 4;
    for (int row = 0; row < height; ++row) {
        int y = bottomUp ? height - 1 - row : row;
        std::vector<uint8_t> line(stride);
        for (int x = 0; x < width; ++x)
            line[x / 2] |= static_cast<uint8_t>(Index(x, y, width) << (x % 2 ? 0 : 4));
        out.insert(out.end(), line.begin(), line.end());
    }
}

} // namespace

std::vector<uint8_t> SampleBmp(int width, int height, bool palette)
{
    std::vector<uint8_t> dib;
    InfoHeader(dib, width, palette ? -height : height, palette ? 4 : 24, palette ? 16 : 0);
    if (palette) {
        Palette(dib, width);
        FourBitRows(dib, width, height, false);
    } else {
        size_t stride = (static_cast<size_t>(width) * 24 + 31) / 32 * 4;
        for (int y = height - 1; y >= 0; --y) {
            std::vector<uint8_t> line(stride);
            for (int x = 0; x < width; ++x) {
                ColorRef c = Colour(x, y);
                line[x * 3] = uint8_t(BlueOf(c)), line[x * 3 + 1] = uint8_t(GreenOf(c)), line[x * 3 + 2] = uint8_t(RedOf(c));
            }
            dib.insert(dib.end(), line.begin(), line.end());
        }
    }
    std::vector<uint8_t> file = { 'B', 'M' };
    Put32(file, static_cast<uint32_t>(14 + dib.size()));
    Put32(file, 0);
    Put32(file, palette ? 14 + 40 + 64 : 14 + 40);
    file.insert(file.end(), dib.begin(), dib.end());
    return file;
}

std::vector<uint8_t> SampleIcon(int width, int height, bool cursor)
{
    std::vector<uint8_t> image;
    InfoHeader(image, width, height * 2, 4, 16);
    Palette(image, width);
    FourBitRows(image, width, height, true);
    size_t stride = (static_cast<size_t>(width) + 31) / 32 * 4;
    for (int y = height - 1; y >= 0; --y) {
        std::vector<uint8_t> line(stride);
        if (y < width)
            line[y / 8] = static_cast<uint8_t>(0x80 >> (y % 8));
        image.insert(image.end(), line.begin(), line.end());
    }
    std::vector<uint8_t> file;
    Put16(file, 0);
    Put16(file, cursor ? 2 : 1);
    Put16(file, 1);
    file.insert(file.end(), { uint8_t(width), uint8_t(height), 16, 0 });
    Put16(file, cursor ? 3 : 1); // hot spot x, or planes
    Put16(file, cursor ? 4 : 4); // hot spot y, or bit count
    Put32(file, static_cast<uint32_t>(image.size()));
    Put32(file, 6 + 16);
    file.insert(file.end(), image.begin(), image.end());
    return file;
}

std::vector<uint8_t> SampleGif(int width, int height, bool interlaced)
{
    std::vector<uint8_t> bytes;
    auto write = [](GifFileType* gif, const GifByteType* data, int length) {
        auto* out = static_cast<std::vector<uint8_t>*>(gif->UserData);
        out->insert(out->end(), data, data + length);
        return length;
    };
    int error = 0;
    GifFileType* gif = EGifOpen(&bytes, write, &error);
    GifColorType colours[16];
    for (int i = 0; i < 16; ++i) {
        ColorRef c = Colour(i % width, i / width);
        colours[i] = { uint8_t(RedOf(c)), uint8_t(GreenOf(c)), uint8_t(BlueOf(c)) };
    }
    ColorMapObject* map = GifMakeMapObject(16, colours);
    EGifPutScreenDesc(gif, width, height, 4, 0, map);
    EGifPutImageDesc(gif, 0, 0, width, height, interlaced, nullptr);
    std::vector<int> order;
    const int start[] = { 0, 4, 2, 1 }, step[] = { 8, 8, 4, 2 };
    for (int pass = 0; pass < (interlaced ? 4 : 1); ++pass)
        for (int y = interlaced ? start[pass] : 0; y < height; y += interlaced ? step[pass] : 1)
            order.push_back(y);
    for (int y : order) {
        std::vector<GifPixelType> line(static_cast<size_t>(width));
        for (int x = 0; x < width; ++x)
            line[static_cast<size_t>(x)] = static_cast<GifPixelType>(Index(x, y, width));
        EGifPutLine(gif, line.data(), width);
    }
    EGifCloseFile(gif, &error);
    GifFreeMapObject(map);
    return bytes;
}

std::vector<uint8_t> SampleJpeg(int width, int height)
{
    jpeg_compress_struct info {};
    jpeg_error_mgr errors {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &buffer, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1; // no chroma subsampling
    jpeg_start_compress(&info, TRUE);
    std::vector<uint8_t> row(static_cast<size_t>(width) * 3);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            // 8x8 blocks of one colour each, so that the lossy coding keeps them close
            ColorRef c = Colour(x / 8, y / 8);
            row[x * 3] = uint8_t(RedOf(c)), row[x * 3 + 1] = uint8_t(GreenOf(c)), row[x * 3 + 2] = uint8_t(BlueOf(c));
        }
        JSAMPROW pointer = row.data();
        jpeg_write_scanlines(&info, &pointer, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::vector<uint8_t> bytes(buffer, buffer + size);
    free(buffer);
    return bytes;
}

std::vector<uint8_t> SamplePng(int width, int height)
{
    platform::Dib dib(width, height, 32, true);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            ColorRef c = Colour(x, y);
            dib.row(y)[x * 4] = uint8_t(BlueOf(c)), dib.row(y)[x * 4 + 1] = uint8_t(GreenOf(c)),
                        dib.row(y)[x * 4 + 2] = uint8_t(RedOf(c));
        }
    return platform::EncodePng(dib);
}

} // namespace vex::pages::testing
