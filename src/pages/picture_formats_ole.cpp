// GIF and JPEG where this build has no decoder libraries of its own (the Windows build): the
// system's picture loader (OleLoadPicture) decodes them, and the picture is drawn 1:1 onto a
// 32-bit bitmap filled with the GIF's background colour, so that pixels a GIF marks transparent
// show its canvas colour as the other builds' reader gives them.
#include <windows.h>
#include <ocidl.h>
#include <olectl.h>

#include <cstring>

#include "base/runtime_error.h"
#include "picture_formats.h"

namespace vex::pages::formats {

namespace {

template <typename Object>
struct Held {
    Object* object = nullptr;
    ~Held()
    {
        if (object)
            object->Release();
    }
};

// The GIF's background colour: its global colour table's background entry, else black.
COLORREF GifBackground(std::span<const uint8_t> bytes)
{
    if (bytes.size() < 13 || !(bytes[10] & 0x80))
        return 0;
    const size_t entry = 13 + 3 * size_t { bytes[11] };
    const size_t tableEnd = 13 + 3 * (size_t { 2 } << (bytes[10] & 7));
    if (entry + 3 > tableEnd || tableEnd > bytes.size())
        return 0;
    return RGB(bytes[entry], bytes[entry + 1], bytes[entry + 2]);
}

platform::Dib LoadThroughSystem(std::span<const uint8_t> bytes, const std::string& format, COLORREF background)
{
    if (bytes.size() > 0x7FFFFFFF)
        BadPicture(format, "the file is too large");
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    void* copy = memory ? GlobalLock(memory) : nullptr;
    if (!copy) {
        if (memory)
            GlobalFree(memory);
        throw RuntimeError(ErrorCode::OutOfMemory);
    }
    std::memcpy(copy, bytes.data(), bytes.size());
    GlobalUnlock(memory);
    Held<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(memory, TRUE, &stream.object))) {
        GlobalFree(memory);
        throw RuntimeError(ErrorCode::OutOfMemory);
    }
    Held<IPicture> picture;
    if (FAILED(OleLoadPicture(stream.object, static_cast<LONG>(bytes.size()), FALSE, IID_IPicture,
            reinterpret_cast<void**>(&picture.object)))
        || !picture.object)
        BadPicture(format, "the system's picture loader cannot read it");
    SHORT type = PICTYPE_NONE;
    OLE_HANDLE handle = 0;
    BITMAP header {};
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(picture.object->get_Type(&type)) || type != PICTYPE_BITMAP || FAILED(picture.object->get_Handle(&handle))
        || !GetObjectW(reinterpret_cast<HBITMAP>(static_cast<intptr_t>(handle)), sizeof header, &header)
        || FAILED(picture.object->get_Width(&width)) || FAILED(picture.object->get_Height(&height)))
        BadPicture(format, "the system's picture loader gave no bitmap");
    CheckSize(format, header.bmWidth, header.bmHeight);

    platform::Dib dib(header.bmWidth, header.bmHeight, 32, true);
    BITMAPINFO info {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = dib.width();
    info.bmiHeader.biHeight = -dib.height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HDC dc = CreateCompatibleDC(nullptr);
    if (!section || !bits || !dc) {
        if (section)
            DeleteObject(section);
        if (dc)
            DeleteDC(dc);
        throw RuntimeError(ErrorCode::OutOfMemory);
    }
    HGDIOBJ old = SelectObject(dc, section);
    RECT all { 0, 0, dib.width(), dib.height() };
    HBRUSH brush = CreateSolidBrush(background);
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    // The picture's source rectangle runs bottom-up in HIMETRIC.
    HRESULT drawn = picture.object->Render(dc, 0, 0, dib.width(), dib.height(), 0, height, width, -height, nullptr);
    GdiFlush();
    std::memcpy(dib.bits().data(), bits, dib.bits().size());
    SelectObject(dc, old);
    DeleteDC(dc);
    DeleteObject(section);
    if (FAILED(drawn))
        BadPicture(format, "the system's picture loader cannot draw it");
    for (int32_t y = 0; y < dib.height(); ++y)
        for (int32_t x = 0; x < dib.width(); ++x)
            dib.row(y)[x * 4 + 3] = 0;
    return dib;
}

} // namespace

platform::Dib ReadGif(std::span<const uint8_t> bytes) { return LoadThroughSystem(bytes, "GIF", GifBackground(bytes)); }
platform::Dib ReadJpeg(std::span<const uint8_t> bytes) { return LoadThroughSystem(bytes, "JPEG", 0); }

} // namespace vex::pages::formats
