#include "com_values.h"

#include <cmath>
#include <cstring>
#include <vector>

#include "base/runtime_error.h"
#include "platform/win32/gdi_bitmap.h"

namespace vex::activex {

// ---- Text ----------------------------------------------------------------------------------------

BSTR ToBstr(const std::string& text)
{
    std::wstring wide = Wide(text);
    BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (!result)
        Raise(ErrorCode::OutOfMemory);
    return result;
}

std::string FromBstr(BSTR text) { return Narrow(text, text ? SysStringLen(text) : 0); }

// ---- Fonts ---------------------------------------------------------------------------------------

namespace {

// A font object reports its size as the face it realises (whole pixels), so 14.25 pt reads back
// as 14: the objects made here remember the size they were made with, as long as nothing has
// changed the size they report since. The last few objects are remembered.
struct MadeFont {
    IFontDisp* object;
    platform::FontDesc font;
    CY reported;
};

std::vector<MadeFont>& MadeFonts()
{
    static std::vector<MadeFont> fonts;
    return fonts;
}

CY ReportedSize(IFontDisp* object)
{
    CY size {};
    IFont* facets = nullptr;
    if (SUCCEEDED(object->QueryInterface(IID_IFont, reinterpret_cast<void**>(&facets)))) {
        facets->get_Size(&size);
        facets->Release();
    }
    return size;
}

void RememberFont(IFontDisp* object, const platform::FontDesc& font)
{
    std::vector<MadeFont>& fonts = MadeFonts();
    if (fonts.size() >= 16) {
        fonts.front().object->Release();
        fonts.erase(fonts.begin());
    }
    object->AddRef();
    fonts.push_back({ object, font, ReportedSize(object) });
}

} // namespace

IFontDisp* ToFont(const platform::FontDesc& font)
{
    std::wstring name = Wide(font.name);
    FONTDESC description {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = std::llround(static_cast<double>(font.size) * 10000.0);
    description.sWeight = static_cast<SHORT>(font.bold ? FW_BOLD : FW_NORMAL);
    description.sCharset = ANSI_CHARSET;
    description.fItalic = font.italic;
    description.fUnderline = font.underline;
    description.fStrikethrough = font.strikethrough;
    IFontDisp* result = nullptr;
    if (FAILED(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(&result))))
        Raise(ErrorCode::OutOfMemory);
    RememberFont(result, font);
    return result;
}

platform::FontDesc FromFont(IFontDisp* font)
{
    IFont* facets = nullptr;
    if (!font || FAILED(font->QueryInterface(IID_IFont, reinterpret_cast<void**>(&facets))))
        Raise(ErrorCode::InvalidPropertyValue);
    platform::FontDesc result;
    BSTR name = nullptr;
    CY size {};
    BOOL bold = FALSE, italic = FALSE, underline = FALSE, strikethrough = FALSE;
    facets->get_Name(&name);
    facets->get_Size(&size);
    facets->get_Bold(&bold);
    facets->get_Italic(&italic);
    facets->get_Underline(&underline);
    facets->get_Strikethrough(&strikethrough);
    facets->Release();
    result.name = FromBstr(name);
    SysFreeString(name);
    result.size = static_cast<float>(static_cast<double>(size.int64) / 10000.0);
    result.bold = bold;
    result.italic = italic;
    result.underline = underline;
    result.strikethrough = strikethrough;
    for (const MadeFont& made : MadeFonts())
        if (made.object == font && made.reported.int64 == size.int64 && made.font.name == result.name)
            result.size = made.font.size;
    return result;
}

// ---- Pictures ------------------------------------------------------------------------------------

namespace {

// Setting a picture property shares the object: the picture object a container set is the one
// it reads back, and one made for a picture is made once. Each entry lives as long as the
// panel's picture does.
class PictureObjects {
public:
    IPictureDisp* Find(const platform::PictureRef& picture)
    {
        Lock lock(mutex_);
        Prune();
        for (Entry& entry : entries_)
            if (entry.picture.lock() == picture) {
                entry.object->AddRef();
                return entry.object;
            }
        return nullptr;
    }
    platform::PictureRef Find(IUnknown* object)
    {
        Lock lock(mutex_);
        Prune();
        for (Entry& entry : entries_)
            if (entry.identity == object)
                return entry.picture.lock();
        return nullptr;
    }
    void Add(const platform::PictureRef& picture, IPictureDisp* object, IUnknown* identity)
    {
        Lock lock(mutex_);
        object->AddRef();
        entries_.push_back({ picture, object, identity });
    }

private:
    struct Entry {
        std::weak_ptr<const platform::Picture> picture;
        IPictureDisp* object;
        IUnknown* identity; // the object's IUnknown, compared only
    };
    void Prune()
    {
        std::erase_if(entries_, [](Entry& entry) {
            if (!entry.picture.expired())
                return false;
            entry.object->Release();
            return true;
        });
    }
    // (The cross compiler's threads model has no std::mutex; a slim lock does.)
    struct Lock {
        explicit Lock(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
        ~Lock() { ReleaseSRWLockExclusive(&lock_); }
        SRWLOCK& lock_;
    };
    SRWLOCK mutex_ = SRWLOCK_INIT;
    std::vector<Entry> entries_;
};

PictureObjects& Objects()
{
    static PictureObjects objects;
    return objects;
}

IUnknown* Identity(IUnknown* object)
{
    IUnknown* identity = nullptr;
    object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity));
    if (identity)
        identity->Release(); // compared only; the caller holds the object
    return identity;
}

HBITMAP SectionOf(const platform::Dib& dib)
{
    platform::win32::DibInfo info = platform::win32::DescribeDib(dib);
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap || !bits)
        Raise(ErrorCode::OutOfMemory);
    std::memcpy(bits, dib.bits().data(), dib.bits().size());
    return bitmap;
}

// The pixels of a GDI bitmap as a top-down DIB of the given bit count (32 or 1).
platform::Dib PixelsOf(HBITMAP bitmap, int bitCount)
{
    BITMAP header {};
    if (!GetObjectW(bitmap, sizeof header, &header))
        Raise(ErrorCode::InvalidPicture);
    platform::Dib dib(header.bmWidth, header.bmHeight, bitCount, true);
    platform::win32::DibInfo info = platform::win32::DescribeDib(dib);
    info.header.biClrUsed = bitCount == 1 ? 2 : 0;
    HDC screen = GetDC(nullptr);
    int lines = GetDIBits(screen, bitmap, 0, static_cast<UINT>(dib.height()), dib.bits().data(),
        reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (lines != dib.height())
        Raise(ErrorCode::InvalidPicture);
    if (bitCount == 1)
        dib.palette() = { platform::RgbQuad { 0, 0, 0, 0 }, platform::RgbQuad { 255, 255, 255, 0 } };
    return dib;
}

IPictureDisp* MakeObject(const platform::Picture& picture)
{
    PICTDESC description {};
    description.cbSizeofstruct = sizeof description;
    if (picture.type() == platform::PictureType::Bitmap) {
        description.picType = PICTYPE_BITMAP;
        description.bmp.hbitmap = SectionOf(picture.bitmap());
    } else if (picture.type() == platform::PictureType::Icon) {
        HBITMAP color = SectionOf(picture.icon().color);
        HBITMAP mask = SectionOf(picture.icon().mask);
        ICONINFO info { TRUE, 0, 0, mask, color };
        description.picType = PICTYPE_ICON;
        description.icon.hicon = CreateIconIndirect(&info);
        DeleteObject(color);
        DeleteObject(mask);
        if (!description.icon.hicon)
            Raise(ErrorCode::OutOfMemory);
    } else {
        description.picType = PICTYPE_NONE;
    }
    IPictureDisp* object = nullptr;
    if (FAILED(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, reinterpret_cast<void**>(&object))))
        Raise(ErrorCode::OutOfMemory);
    return object;
}

platform::PictureRef MakePicture(IPicture* picture)
{
    SHORT type = PICTYPE_NONE;
    OLE_HANDLE handle = 0;
    picture->get_Type(&type);
    picture->get_Handle(&handle);
    if (type == PICTYPE_NONE || type == PICTYPE_UNINITIALIZED || !handle)
        return nullptr;
    if (type == PICTYPE_BITMAP)
        return platform::Picture::FromBitmap(PixelsOf(reinterpret_cast<HBITMAP>(static_cast<intptr_t>(handle)), 32));
    if (type != PICTYPE_ICON)
        Raise(ErrorCode::InvalidPicture);
    ICONINFO info {};
    if (!GetIconInfo(reinterpret_cast<HICON>(static_cast<intptr_t>(handle)), &info))
        Raise(ErrorCode::InvalidPicture);
    platform::Icon icon;
    try {
        if (!info.hbmColor) // a monochrome icon: no colour image
            Raise(ErrorCode::InvalidPicture);
        icon.color = PixelsOf(info.hbmColor, 32);
        icon.mask = PixelsOf(info.hbmMask, 1);
    } catch (...) {
        DeleteObject(info.hbmColor);
        DeleteObject(info.hbmMask);
        throw;
    }
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return platform::Picture::FromIcon(std::move(icon));
}

} // namespace

IPictureDisp* ToPicture(const platform::PictureRef& picture)
{
    if (!picture)
        return nullptr;
    if (IPictureDisp* known = Objects().Find(picture))
        return known;
    IPictureDisp* object = MakeObject(*picture);
    Objects().Add(picture, object, Identity(object));
    return object;
}

platform::PictureRef FromPicture(IPictureDisp* object)
{
    if (!object)
        return nullptr;
    IUnknown* identity = Identity(object);
    if (platform::PictureRef known = Objects().Find(identity))
        return known;
    IPicture* picture = nullptr;
    if (FAILED(object->QueryInterface(IID_IPicture, reinterpret_cast<void**>(&picture))))
        Raise(ErrorCode::InvalidPicture);
    platform::PictureRef result;
    try {
        result = MakePicture(picture);
    } catch (...) {
        picture->Release();
        throw;
    }
    picture->Release();
    if (result)
        Objects().Add(result, object, identity);
    return result;
}

} // namespace vex::activex
