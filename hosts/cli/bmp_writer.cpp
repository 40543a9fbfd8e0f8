#include "bmp_writer.h"

#include <fstream>
#include <vector>

namespace vex::cli {

namespace {

void PutWord(std::vector<uint8_t>& out, uint32_t value)
{
    out.push_back(static_cast<uint8_t>(value));
    out.push_back(static_cast<uint8_t>(value >> 8));
}

void PutLong(std::vector<uint8_t>& out, uint32_t value)
{
    PutWord(out, value & 0xFFFFu);
    PutWord(out, value >> 16);
}

} // namespace

bool WriteBmpFile(const std::string& path, const platform::Dib& dib)
{
    constexpr uint32_t kFileHeader = 14, kInfoHeader = 40;
    uint32_t paletteBytes = static_cast<uint32_t>(dib.palette().size() * 4);
    uint32_t offset = kFileHeader + kInfoHeader + paletteBytes;
    std::vector<uint8_t> header;
    // BITMAPFILEHEADER
    PutWord(header, 0x4D42); // "BM"
    PutLong(header, offset + static_cast<uint32_t>(dib.bits().size()));
    PutLong(header, 0);
    PutLong(header, offset);
    // BITMAPINFOHEADER
    PutLong(header, kInfoHeader);
    PutLong(header, static_cast<uint32_t>(dib.width()));
    PutLong(header, static_cast<uint32_t>(dib.topDown() ? -dib.height() : dib.height()));
    PutWord(header, 1);
    PutWord(header, static_cast<uint32_t>(dib.bitCount()));
    PutLong(header, 0); // BI_RGB
    PutLong(header, 0); // image size: 0 is allowed for BI_RGB
    PutLong(header, 0);
    PutLong(header, 0);
    PutLong(header, static_cast<uint32_t>(dib.palette().size()));
    PutLong(header, 0);
    for (const auto& quad : dib.palette())
        header.insert(header.end(), {quad.blue, quad.green, quad.red, quad.reserved});

    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(header.data()), static_cast<std::streamsize>(header.size()));
    file.write(reinterpret_cast<const char*>(dib.bits().data()), static_cast<std::streamsize>(dib.bits().size()));
    return static_cast<bool>(file);
}

} // namespace vex::cli
