#include "decoders.h"

#include <png.h>

#include <memory>
#include <vector>

#include "png/load_png.h"

namespace vex::bench {

uint64_t DecodeOurs(const CorpusFile& file)
{
    png::LoadPNG decoder;
    auto box = std::make_shared<png::PictureBox>();
    decoder.setPicBox(box);
    decoder.OpenPNGFromMemory(file.png);
    if (!box->Picture)
        return 0;
    const auto& bits = box->Picture->bitmap().bits();
    return bits.size() + bits[bits.size() / 2];
}

uint64_t DecodeLibpng(const CorpusFile& file, ChannelOrder order)
{
    png_image image {};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, file.png.data(), file.png.size()))
        return 0;
    const bool alpha = file.channels == 4;
    if (order == ChannelOrder::Rgb)
        image.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    else
        image.format = alpha ? PNG_FORMAT_BGRA : PNG_FORMAT_BGR;
    std::vector<uint8_t> out(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, out.data(), 0, nullptr))
        return 0;
    return out.size() + out[out.size() / 2];
}

} // namespace vex::bench
