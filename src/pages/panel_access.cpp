#include "pages/panel_access.h"

#include <array>

#include "base/runtime_error.h"

namespace vex::pages {

namespace {

using control::PropertyValue;
using control::VexPanel;

struct Accessor {
    std::string_view name;
    PropertyValue (*get)(const VexPanel&);
    void (*set)(VexPanel&, const PropertyValue&);
};

// One accessor per property a page edits, by the type the value travels as.
#define VEX_BOOLEAN(Name)                                                                              \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(p.Name()); },                      \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(control::AsBoolean(v)); } }
#define VEX_INTEGER(Name)                                                                              \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(p.Name()); },                      \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(control::AsInt16(v)); } }
// An enumeration enters as a Long and the set narrows it to 16 bits.
#define VEX_ENUMERATION(Name)                                                                          \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(static_cast<int16_t>(p.Name())); }, \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(decltype(p.Name())(control::AsInt32(v))); } }
#define VEX_COLOUR(Name)                                                                               \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(static_cast<int32_t>(p.Name())); }, \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(static_cast<OleColor>(control::AsInt32(v))); } }
#define VEX_TEXT(Name)                                                                                 \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(std::string(p.Name())); },         \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(control::AsText(v)); } }
#define VEX_SINGLE(Name)                                                                               \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(p.Name()); },                      \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(control::AsSingle(v)); } }
#define VEX_PICTURE(Name)                                                                              \
    Accessor { #Name, [](const VexPanel& p) { return PropertyValue(p.Name()); },                      \
        [](VexPanel& p, const PropertyValue& v) { p.set##Name(control::AsPicture(v)); } }

const Accessor kAccessors[] = {
    VEX_BOOLEAN(Enabled),
    VEX_ENUMERATION(Appearance),
    VEX_ENUMERATION(BackStyle),
    VEX_ENUMERATION(CustomBorderLeftTopStyle),
    VEX_ENUMERATION(CustomBorderRightTopStyle),
    VEX_ENUMERATION(CustomBorderLeftBottomStyle),
    VEX_ENUMERATION(CustomBorderRightBottomStyle),
    VEX_INTEGER(CustomBorderRadio),
    VEX_ENUMERATION(WinGradientDirection),
    VEX_ENUMERATION(WinOptionColor),
    VEX_ENUMERATION(WinContrast),
    VEX_ENUMERATION(WinBorderTopStyle),
    VEX_ENUMERATION(WinBorderBottomStyle),
    VEX_ENUMERATION(WinBorderLeftStyle),
    VEX_ENUMERATION(WinBorderRightStyle),
    VEX_TEXT(Caption),
    VEX_ENUMERATION(CaptionAlignment),
    VEX_BOOLEAN(CaptionEfect),
    VEX_BOOLEAN(CaptionGetShadow),
    VEX_PICTURE(Picture),
    VEX_ENUMERATION(PictureAlignment),
    VEX_BOOLEAN(PictureAnimEnabled),
    VEX_INTEGER(PictureAnimDelay),
    VEX_BOOLEAN(PictureUseMask),
    VEX_INTEGER(PictureFrames),
    VEX_PICTURE(PictureBackground),
    VEX_ENUMERATION(PictureBackgroundStyle),
    VEX_BOOLEAN(PictureBackgroundUseMask),
    VEX_ENUMERATION(CaptionStyle),
    VEX_ENUMERATION(Panel3DBorderStyle),
    VEX_INTEGER(Panel3DBorderWidth),
    VEX_INTEGER(Panel3DBorderOffset),
    VEX_INTEGER(CustomBorderWidth),
    VEX_ENUMERATION(CustomGradientDirection),
    VEX_ENUMERATION(CustomGradientStyle),
    VEX_ENUMERATION(PanelFont3D),
    VEX_PICTURE(MouseIcon),
    VEX_BOOLEAN(FontUnderline),
    VEX_BOOLEAN(FontStrikethru),
    VEX_SINGLE(FontSize),
    VEX_TEXT(FontName),
    VEX_BOOLEAN(FontItalic),
    VEX_BOOLEAN(FontBold),
    VEX_COLOUR(ForeColor),
    VEX_COLOUR(WinBackColor),
    VEX_COLOUR(CaptionFontIn),
    VEX_COLOUR(CaptionFontOut),
    VEX_COLOUR(CaptionFontShadow),
    VEX_COLOUR(PictureMaskColor),
    VEX_COLOUR(Panel3DHighLight),
    VEX_COLOUR(Panel3DShadow),
    VEX_COLOUR(Panel3DOffsetColor),
    VEX_COLOUR(CustomBorderColor),
    VEX_COLOUR(CustomGradientStart),
    VEX_COLOUR(CustomGradientEnds),
    VEX_COLOUR(PanelFont3DHighLight),
    VEX_COLOUR(PanelFont3DShadow),
    VEX_COLOUR(Panel3DBorderColor),
    VEX_COLOUR(BackColor),
};

#undef VEX_BOOLEAN
#undef VEX_INTEGER
#undef VEX_ENUMERATION
#undef VEX_COLOUR
#undef VEX_TEXT
#undef VEX_SINGLE
#undef VEX_PICTURE

const Accessor& Find(std::string_view name)
{
    for (const Accessor& accessor : kAccessors)
        if (accessor.name == name)
            return accessor;
    throw RuntimeError(ErrorCode::InvalidProcedureCall, "no property " + std::string(name) + " on the pages");
}

} // namespace

PropertyValue GetProperty(const VexPanel& panel, std::string_view name) { return Find(name).get(panel); }

void SetProperty(VexPanel& panel, std::string_view name, const PropertyValue& value) { Find(name).set(panel, value); }

} // namespace vex::pages
