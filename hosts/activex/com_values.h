#pragma once
// The panel's property types as the type library publishes them, and back: Booleans as
// VARIANT_BOOL, colours as OLE_COLOR, enumerations as the library's 32-bit enumerations
// (narrowed to 16 bits with Overflow where they enter), text as BSTR, the font as a standard
// font object and pictures as standard picture objects.

#include <windows.h>
#include <ocidl.h>
#include <olectl.h>

#include <type_traits>

#include "Vex_Panel_h.h"
#include "base/numeric.h"
#include "container_host.h"
#include "model/enums.h"
#include "platform/font.h"
#include "platform/picture.h"

namespace vex::activex {

// The library's enumeration for each of the panel's (TypeAppearance -> ::TypeAppearance).
template <typename Enum> struct ComEnum;
#define VEX_COM_ENUM(Enum) template <> struct ComEnum<model::Enum> { using Wire = ::Enum; };
VEX_ENUMERATIONS(VEX_COM_ENUM)
#undef VEX_COM_ENUM

BSTR ToBstr(const std::string& text); // raises Out of memory (7) when the system has none
std::string FromBstr(BSTR text);

// A standard font object with the description's face and facets (a new object each time).
IFontDisp* ToFont(const platform::FontDesc& font);
// The description of a font object; Nothing raises Invalid property value (380).
platform::FontDesc FromFont(IFontDisp* font);

// Pictures: a standard picture object holding a copy of the pixels, and the pixels of a picture
// object (bitmaps and icons; Nothing is no picture).
IPictureDisp* ToPicture(const platform::PictureRef& picture);
platform::PictureRef FromPicture(IPictureDisp* picture);

template <typename T> struct Com;

template <> struct Com<bool> {
    using Wire = VARIANT_BOOL;
    static bool In(VARIANT_BOOL value) { return value != VARIANT_FALSE; }
    static VARIANT_BOOL Out(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
};
template <> struct Com<uint8_t> {
    using Wire = unsigned char;
    static uint8_t In(unsigned char value) { return value; }
    static unsigned char Out(uint8_t value) { return value; }
};
template <> struct Com<int16_t> {
    using Wire = short;
    static int16_t In(short value) { return value; }
    static short Out(int16_t value) { return value; }
};
template <> struct Com<int32_t> {
    using Wire = LONG;
    static int32_t In(LONG value) { return value; }
    static LONG Out(int32_t value) { return value; }
};
template <> struct Com<float> {
    using Wire = float;
    static float In(float value) { return value; }
    static float Out(float value) { return value; }
};
template <> struct Com<OleColor> {
    using Wire = OLE_COLOR;
    static OleColor In(OLE_COLOR value) { return static_cast<OleColor>(value); }
    static OLE_COLOR Out(OleColor value) { return static_cast<OLE_COLOR>(value); }
};
template <> struct Com<std::string> {
    using Wire = BSTR;
    static std::string In(BSTR value) { return FromBstr(value); }
    static BSTR Out(const std::string& value) { return ToBstr(value); }
};
template <> struct Com<platform::FontDesc> {
    using Wire = IFontDisp*;
    static platform::FontDesc In(IFontDisp* value) { return FromFont(value); }
    static IFontDisp* Out(const platform::FontDesc& value) { return ToFont(value); }
};
template <> struct Com<platform::PictureRef> {
    using Wire = IPictureDisp*;
    static platform::PictureRef In(IPictureDisp* value) { return FromPicture(value); }
    static IPictureDisp* Out(const platform::PictureRef& value) { return ToPicture(value); }
};
template <typename Enum>
    requires std::is_enum_v<Enum>
struct Com<Enum> {
    using Wire = typename ComEnum<Enum>::Wire;
    static Enum In(Wire value) { return static_cast<Enum>(ToInt16(static_cast<int64_t>(value))); }
    static Wire Out(Enum value) { return static_cast<Wire>(static_cast<int16_t>(value)); }
};

} // namespace vex::activex
