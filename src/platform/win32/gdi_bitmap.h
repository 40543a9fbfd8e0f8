#pragma once
// A GDI bitmap handle owned by a shared Bitmap reference: deleted when the last reference goes.
// A bitmap is only ever deleted while no context holds it selected, because a context keeps a
// reference to its selected bitmap.

#include <windows.h>

#include "platform/device_context.h"

namespace vex::platform::win32 {

class GdiBitmap final : public Bitmap {
public:
    GdiBitmap(HBITMAP handle, Size size)
        : handle_(handle)
        , size_(size)
    {
    }
    ~GdiBitmap() override
    {
        if (handle_)
            DeleteObject(handle_);
    }
    GdiBitmap(const GdiBitmap&) = delete;
    GdiBitmap& operator=(const GdiBitmap&) = delete;

    Size size() const override { return size_; }
    HBITMAP handle() const { return handle_; }

private:
    HBITMAP handle_;
    Size size_;
};

// BITMAPINFO with room for a full 256-entry colour table.
struct DibInfo {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256];
};

// Describes a Dib as GDI expects it (negative height for top-down rows).
DibInfo DescribeDib(const Dib& dib);

} // namespace vex::platform::win32
