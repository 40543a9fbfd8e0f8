// JPEG files through libjpeg(-turbo), as 32-bit bitmaps. The library reports errors through a
// callback that must not return; it jumps back here and the error is raised once no library
// frame is left on the stack. Its warnings (a file cut short, corrupt data it would paper over
// with grey) count as errors too: a damaged file is refused, not half shown.
#include <cstddef>
#include <cstdio>
// jpeglib.h needs size_t and FILE declared before it.
#include <jpeglib.h>

#include <csetjmp>
#include <string>

#include "picture_formats.h"
#include "pages/picture_import.h"

namespace vex::pages::formats {

namespace {

struct ErrorManager {
    jpeg_error_mgr base;
    std::jmp_buf jump;
    char message[JMSG_LENGTH_MAX];
};

[[noreturn]] void OnError(j_common_ptr info)
{
    auto* manager = reinterpret_cast<ErrorManager*>(info->err);
    info->err->format_message(info, manager->message);
    std::longjmp(manager->jump, 1);
}

void OnMessage(j_common_ptr info, int level)
{
    if (level < 0) // a warning: the data is damaged
        OnError(info);
}

// Decodes into dib, which the caller made from the header; false with manager.message set on
// failure. No object with a destructor lives in this frame across the jumps.
bool Decode(jpeg_decompress_struct& info, ErrorManager& manager, platform::Dib& dib, bool& headerRead,
    std::span<const uint8_t> bytes)
{
    if (setjmp(manager.jump))
        return false;
    if (!headerRead) {
        jpeg_mem_src(&info, bytes.data(), static_cast<unsigned long>(bytes.size()));
        jpeg_read_header(&info, TRUE);
        headerRead = true;
        return true; // back to the caller to check the size and make the bitmap
    }
    bool cmyk = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
    info.out_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGRX;
    jpeg_start_decompress(&info);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = dib.row(static_cast<int32_t>(info.output_scanline));
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    if (cmyk) // stored inverted, as the usual writers store it: C' = 255 - C and so on
        for (int32_t y = 0; y < dib.height(); ++y) {
            uint8_t* p = dib.row(y);
            for (int32_t x = 0; x < dib.width(); ++x, p += 4) {
                unsigned c = p[0], m = p[1], yellow = p[2], k = p[3];
                p[0] = static_cast<uint8_t>(yellow * k / 255);
                p[1] = static_cast<uint8_t>(m * k / 255);
                p[2] = static_cast<uint8_t>(c * k / 255);
                p[3] = 0;
            }
        }
    else
        for (int32_t y = 0; y < dib.height(); ++y)
            for (int32_t x = 0; x < dib.width(); ++x)
                dib.row(y)[x * 4 + 3] = 0;
    return true;
}

} // namespace

platform::Dib ReadJpeg(std::span<const uint8_t> bytes)
{
    jpeg_decompress_struct info {};
    ErrorManager manager {};
    info.err = jpeg_std_error(&manager.base);
    manager.base.error_exit = OnError;
    manager.base.emit_message = OnMessage;
    jpeg_create_decompress(&info);
    struct Destroy {
        jpeg_decompress_struct* info;
        ~Destroy() { jpeg_destroy_decompress(info); }
    } destroy { &info };

    platform::Dib dib;
    bool headerRead = false;
    if (!Decode(info, manager, dib, headerRead, bytes))
        BadPicture("JPEG", manager.message);
    CheckSize("JPEG", info.image_width, info.image_height);
    dib = platform::Dib(static_cast<int32_t>(info.image_width), static_cast<int32_t>(info.image_height), 32, true);
    if (!Decode(info, manager, dib, headerRead, bytes))
        BadPicture("JPEG", manager.message);
    return dib;
}

} // namespace vex::pages::formats
