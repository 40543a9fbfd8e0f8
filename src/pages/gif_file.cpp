// GIF files through giflib: the first image, placed on the file's canvas (filled with the
// background colour), as an 8-bit bitmap with the image's colour table. Pixels the graphic
// control block marks transparent show the canvas. Read row by row, so that nothing larger than
// the checked canvas is ever allocated.
#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "picture_formats.h"
#include "pages/picture_import.h"

namespace vex::pages::formats {

namespace {

struct Source {
    std::span<const uint8_t> bytes;
    size_t position = 0;
};

int ReadFromMemory(GifFileType* gif, GifByteType* buffer, int length)
{
    auto* source = static_cast<Source*>(gif->UserData);
    size_t count = std::min(static_cast<size_t>(std::max(length, 0)), source->bytes.size() - source->position);
    std::memcpy(buffer, source->bytes.data() + source->position, count);
    source->position += count;
    return static_cast<int>(count);
}

struct Closer {
    void operator()(GifFileType* gif) const
    {
        int error = 0;
        DGifCloseFile(gif, &error);
    }
};

[[noreturn]] void Fail(int error)
{
    const char* text = GifErrorString(error);
    BadPicture("GIF", text ? text : "damaged data");
}

} // namespace

platform::Dib ReadGif(std::span<const uint8_t> bytes)
{
    Source source { bytes };
    int error = 0;
    std::unique_ptr<GifFileType, Closer> gif(DGifOpen(&source, ReadFromMemory, &error));
    if (!gif)
        Fail(error);
    CheckSize("GIF", gif->SWidth, gif->SHeight);

    int transparent = -1;
    for (;;) {
        GifRecordType record;
        if (DGifGetRecordType(gif.get(), &record) == GIF_ERROR)
            Fail(gif->Error);
        if (record == TERMINATE_RECORD_TYPE)
            BadPicture("GIF", "the file holds no image");
        if (record == EXTENSION_RECORD_TYPE) {
            int code = 0;
            GifByteType* extension = nullptr;
            if (DGifGetExtension(gif.get(), &code, &extension) == GIF_ERROR)
                Fail(gif->Error);
            // Graphic control block: length 4, flags (bit 0: transparency), delay, index.
            if (code == GRAPHICS_EXT_FUNC_CODE && extension && extension[0] >= 4 && (extension[1] & 1))
                transparent = extension[4];
            while (extension)
                if (DGifGetExtensionNext(gif.get(), &extension) == GIF_ERROR)
                    Fail(gif->Error);
            continue;
        }
        if (record != IMAGE_DESC_RECORD_TYPE)
            continue;
        if (DGifGetImageDesc(gif.get()) == GIF_ERROR)
            Fail(gif->Error);
        break;
    }

    const GifImageDesc& image = gif->Image;
    const ColorMapObject* colours = image.ColorMap ? image.ColorMap : gif->SColorMap;
    if (!colours)
        BadPicture("GIF", "the image has no colour table");
    if (image.Width <= 0 || image.Height <= 0 || image.Width > 65535 || image.Height > 65535)
        BadPicture("GIF", "the image's size is wrong");

    platform::Dib canvas(gif->SWidth, gif->SHeight, 8, true);
    for (int i = 0; i < colours->ColorCount; ++i) {
        const GifColorType& c = colours->Colors[i];
        canvas.palette().push_back(platform::RgbQuad { c.Blue, c.Green, c.Red, 0 });
    }
    for (int32_t y = 0; y < canvas.height(); ++y)
        std::fill_n(canvas.row(y), canvas.width(), static_cast<uint8_t>(gif->SBackGroundColor));

    // Interlaced images arrive in four passes: every 8th row from 0, from 4, every 4th from 2,
    // every 2nd from 1.
    constexpr int kStart[] = { 0, 4, 2, 1 };
    constexpr int kStep[] = { 8, 8, 4, 2 };
    std::vector<GifPixelType> line(static_cast<size_t>(image.Width));
    auto place = [&](int row) {
        int32_t y = image.Top + row;
        if (y < 0 || y >= canvas.height())
            return;
        uint8_t* out = canvas.row(y);
        for (int x = 0; x < image.Width; ++x) {
            int32_t column = image.Left + x;
            if (column >= 0 && column < canvas.width() && line[static_cast<size_t>(x)] != transparent)
                out[column] = line[static_cast<size_t>(x)];
        }
    };
    for (int pass = 0; pass < (image.Interlace ? 4 : 1); ++pass)
        for (int row = image.Interlace ? kStart[pass] : 0; row < image.Height; row += image.Interlace ? kStep[pass] : 1) {
            if (DGifGetLine(gif.get(), line.data(), image.Width) == GIF_ERROR)
                Fail(gif->Error);
            place(row);
        }
    return canvas;
}

} // namespace vex::pages::formats
