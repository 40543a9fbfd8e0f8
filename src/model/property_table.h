#pragma once
// The panel's properties, once: every fact about a property is in its row below, and the store,
// the set rules, persistence, the dispatch table and the typed accessors are all made from it.
//
// X(Name, Store, Type, Default, Rule, Dispid, Flags, Persist, ReadAt, WriteAt), in the order of
// the interface:
//   Store    Field: a field of the store, of Type, starting at Default.
//            Facet: a facet of the Font field; Default names the facet's member of FontDesc.
//            Window: a window service read from the surface (no field; Default unused).
//   Type     the value type on the interface and in the store (an enumeration of enums.h is
//            stored as its 16-bit value; a host's wider value is narrowed where it enters).
//   Rule     what a set does (SetRule below).
//   Dispid   the dispatch identifier: Slot(n) counts down from ForeColor (64) to BackColor (0).
//   Flags    interface flags (hidden, not browsable, default member, by reference, bindable) and
//            what InitProperties does with the field (PropertyFlag below).
//   Persist  the type of the default the key is persisted against (None: not persisted). The
//            persisted default is Default in that type, so each default is stated only here;
//            the Font key's default is the container's ambient font.
//   ReadAt, WriteAt  the key's position (1-59) in ReadProperties and WriteProperties.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/ole_color.h"
#include "model/enums.h"
#include "platform/font.h"
#include "platform/picture.h"

// clang-format off
#define VEX_PROPERTIES(X) \
    X(FlagAbout,                    Field,  uint8_t,                     0,                                   Plain,          0x4003005D, Hidden,                      None,    0,  0)  \
    X(ForeColor,                    Field,  OleColor,                    0x80000012,                          S,              Slot(64),   0,                           Int32,   1,  1)  \
    X(Enabled,                      Field,  bool,                        true,                                S,              Slot(63),   0,                           Boolean, 2,  2)  \
    X(Appearance,                   Field,  TypeAppearance,              TypeAppearance::Window3D,            ResetsPainters, Slot(62),   0,                           Int16,   3,  3)  \
    X(BackStyle,                    Field,  TypeBackStyle,               TypeBackStyle::Opaque,               S,              Slot(61),   0,                           Int16,   4,  4)  \
    X(OptionPic,                    Field,  bool,                        false,                               P,              Slot(60),   0,                           Int16,   57, 54) \
    X(OptionPicBackGround,          Field,  bool,                        false,                               P,              Slot(59),   Hidden,                      Int16,   58, 55) \
    X(CustomBorderLeftTopStyle,     Field,  TypeBorder,                  TypeBorder::SquareCornerBorder,      S,              Slot(58),   0,                           Int16,   5,  5)  \
    X(CustomBorderRightTopStyle,    Field,  TypeBorder,                  TypeBorder::SquareCornerBorder,      S,              Slot(57),   0,                           Int16,   6,  6)  \
    X(CustomBorderLeftBottomStyle,  Field,  TypeBorder,                  TypeBorder::SquareCornerBorder,      S,              Slot(56),   0,                           Int16,   7,  7)  \
    X(CustomBorderRightBottomStyle, Field,  TypeBorder,                  TypeBorder::SquareCornerBorder,      S,              Slot(55),   0,                           Int16,   8,  8)  \
    X(CustomBorderRadio,            Field,  int16_t,                     20,                                  AtLeast0,       Slot(54),   0,                           Int16,   9,  9)  \
    X(WinBackColor,                 Field,  OleColor,                    0xC0E0FF,                            S,              Slot(53),   0,                           Int32,   10, 10) \
    X(WinGradientDirection,         Field,  TypeWinGradientDirection,    TypeWinGradientDirection::pTopToButtomDirection, S,  Slot(52),   0,                           Int16,   11, 11) \
    X(WinOptionColor,               Field,  TypeWinOptionColor,          TypeWinOptionColor::ThemesColorOption, S,            Slot(51),   0,                           Int16,   12, 12) \
    X(WinContrast,                  Field,  TypeWinContrast,             TypeWinContrast::MediumContrast,     S,              Slot(50),   0,                           Int16,   13, 13) \
    X(WinBorderTopStyle,            Field,  TypeWinBorderStyle,          TypeWinBorderStyle::LoweredBorder,   S,              Slot(49),   0,                           Int16,   14, 14) \
    X(WinBorderBottomStyle,         Field,  TypeWinBorderStyle,          TypeWinBorderStyle::LoweredBorder,   S,              Slot(48),   0,                           Int16,   15, 15) \
    X(WinBorderLeftStyle,           Field,  TypeWinBorderStyle,          TypeWinBorderStyle::LoweredBorder,   S,              Slot(47),   0,                           Int16,   16, 16) \
    X(WinBorderRightStyle,          Field,  TypeWinBorderStyle,          TypeWinBorderStyle::LoweredBorder,   S,              Slot(46),   0,                           Int16,   17, 17) \
    X(Caption,                      Field,  std::string,                 {},                                  S,              -518,       Bindable | DefaultBind | InitComputed, String, 18, 58) \
    X(CaptionAlignment,             Field,  TypeAlignment,               TypeAlignment::CenterMiddle,         S,              Slot(45),   0,                           Int16,   19, 18) \
    X(Font,                         Field,  platform::FontDesc,          {},                                  S,              Slot(44),   ByRef | InitComputed,        Font,    20, 19) \
    X(CaptionEfect,                 Field,  bool,                        false,                               S,              Slot(43),   0,                           Int16,   21, 20) \
    X(CaptionFontIn,                Field,  OleColor,                    0xFFC0C0,                            S,              Slot(42),   0,                           Int32,   22, 21) \
    X(CaptionFontOut,               Field,  OleColor,                    0,                                   S,              Slot(41),   0,                           Int32,   23, 22) \
    X(CaptionFontShadow,            Field,  OleColor,                    0,                                   S,              Slot(40),   InitComputed,                Int16,   24, 23) \
    X(CaptionGetShadow,             Field,  bool,                        false,                               S,              Slot(39),   0,                           Boolean, 25, 24) \
    X(Picture,                      Field,  platform::PictureRef,        {},                                  S,              Slot(38),   ByRef,                       Picture, 26, 57) \
    X(PictureAlignment,             Field,  TypeAlignment,               TypeAlignment::LeftTop,              S,              Slot(37),   0,                           Int16,   27, 25) \
    X(PictureAnimEnabled,           Field,  bool,                        false,                               AnimSwitch,     Slot(36),   0,                           Int16,   28, 26) \
    X(PictureAnimDelay,             Field,  int16_t,                     100,                                 DelayRange,     Slot(35),   0,                           Int16,   29, 27) \
    X(PictureMaskColor,             Field,  OleColor,                    0xFF00FF,                            S,              Slot(34),   0,                           Int32,   30, 28) \
    X(PictureUseMask,               Field,  bool,                        false,                               S,              Slot(33),   0,                           Int16,   31, 29) \
    X(PictureFrames,                Field,  int16_t,                     1,                                   AtLeast1,       Slot(32),   0,                           Int16,   32, 30) \
    X(PictureBackground,            Field,  platform::PictureRef,        {},                                  S,              Slot(31),   ByRef,                       Picture, 33, 31) \
    X(PictureBackgroundStyle,       Field,  TypePictureBackgroundStyle,  TypePictureBackgroundStyle::CenteredPicture, S,      Slot(30),   0,                           Int16,   34, 32) \
    X(PictureBackgroundUseMask,     Field,  bool,                        false,                               S,              Slot(29),   0,                           Int16,   35, 33) \
    X(CaptionStyle,                 Field,  TypeCaptionStyle,            TypeCaptionStyle::StandardCaption,   S,              Slot(28),   0,                           Int16,   36, 34) \
    X(Panel3DBorderStyle,           Field,  TypePanel3DStyle,            TypePanel3DStyle::None3D,            S,              Slot(27),   0,                           Int16,   37, 35) \
    X(Panel3DBorderWidth,           Field,  int16_t,                     1,                                   AtLeast1,       Slot(26),   0,                           Int16,   38, 36) \
    X(Panel3DBorderOffset,          Field,  int16_t,                     3,                                   AtLeast0,       Slot(25),   0,                           Int16,   39, 37) \
    X(Panel3DHighLight,             Field,  OleColor,                    0x80000014,                          S,              Slot(24),   0,                           Int32,   40, 38) \
    X(Panel3DShadow,                Field,  OleColor,                    0x80000010,                          S,              Slot(23),   0,                           Int32,   41, 39) \
    X(Panel3DOffsetColor,           Field,  OleColor,                    0x8000000F,                          S,              Slot(22),   0,                           Int32,   42, 40) \
    X(CustomBorderWidth,            Field,  int16_t,                     1,                                   AtLeast0,       Slot(21),   0,                           Int16,   43, 41) \
    X(CustomBorderColor,            Field,  OleColor,                    0xA88562,                            S,              Slot(20),   0,                           Int32,   44, 42) \
    X(CustomGradientStart,          Field,  OleColor,                    0xE4A88A,                            S,              Slot(19),   0,                           Int32,   45, 43) \
    X(CustomGradientEnds,           Field,  OleColor,                    0xF7E5DC,                            S,              Slot(18),   0,                           Int32,   46, 44) \
    X(CustomGradientDirection,      Field,  TypeCustomGradientDirection, TypeCustomGradientDirection::VerticalCenter, S,      Slot(17),   0,                           Int16,   47, 45) \
    X(CustomGradientStyle,          Field,  TypeCustomGradientStyle,     TypeCustomGradientStyle::UseGradient, S,             Slot(16),   0,                           Int16,   48, 46) \
    X(PanelFont3D,                  Field,  TypePanelFont3D,             TypePanelFont3D::NoneFont3D,         Lettering,      Slot(15),   0,                           Int16,   49, 47) \
    X(PanelFont3DHighLight,         Field,  OleColor,                    0x80000014,                          Lettering,      Slot(14),   0,                           Int32,   50, 48) \
    X(PanelFont3DShadow,            Field,  OleColor,                    0x80000010,                          Lettering,      Slot(13),   0,                           Int32,   51, 49) \
    X(hWnd,                         Window, int32_t,                     0,                                   ReadOnly,       Slot(12),   Hidden,                      None,    0,  0)  \
    X(MouseIcon,                    Field,  platform::PictureRef,        {},                                  Cursor,         Slot(11),   ByRef | InitKeeps | LoadsThroughSet, Picture, 52, 50) \
    X(MousePointer,                 Field,  TypeMousePointer,            TypeMousePointer::Default,           Cursor,         Slot(10),   InitKeeps,                   Int16,   53, 51) \
    X(FontUnderline,                Facet,  bool,                        underline,                           F,              Slot(9),    NotBrowsable,                None,    0,  0)  \
    X(FontStrikethru,               Facet,  bool,                        strikethrough,                       F,              Slot(8),    NotBrowsable,                None,    0,  0)  \
    X(FontSize,                     Facet,  float,                       size,                                F,              Slot(7),    NotBrowsable,                None,    0,  0)  \
    X(FontName,                     Facet,  std::string,                 name,                                F,              Slot(6),    NotBrowsable,                None,    0,  0)  \
    X(FontItalic,                   Facet,  bool,                        italic,                              F,              Slot(5),    NotBrowsable,                None,    0,  0)  \
    X(FontBold,                     Facet,  bool,                        bold,                                F,              Slot(4),    NotBrowsable,                None,    0,  0)  \
    X(CaptionText,                  Field,  std::string,                 {},                                  CaptionText,    0,          Hidden | DefaultMember,      String,  54, 59) \
    X(Panel3DBorderOption,          Field,  bool,                        false,                               S,              Slot(3),    0,                           Int16,   55, 52) \
    X(Panel3DBorderColor,           Field,  OleColor,                    0xA88562,                            S,              Slot(2),    0,                           Int32,   56, 53) \
    X(hDC,                          Window, int32_t,                     0,                                   ReadOnly,       Slot(1),    0,                           None,    0,  0)  \
    X(BackColor,                    Field,  OleColor,                    0x8000000F,                          S,              Slot(0),    InitKeeps,                   Int32,   59, 56)
// clang-format on

namespace vex::model {

// What a set does, after the value has entered (a host's enumeration value narrowed to 16 bits,
// Overflow beyond):
enum class SetRule : uint8_t {
    Plain,          // store; no notification, no redraw
    S,              // store, notify the host (key = the name), DrawControl(True)
    P,              // store and notify; no redraw
    Cursor,         // as P, and the window shows the pointer (MousePointer, MouseIcon)
    F,              // a facet of the Font: written into the font, then as S
    AtLeast0,       // a negative value is stored as 0; then S
    AtLeast1,       // a value below 1 is stored as 1; then S
    DelayRange,     // 1..32000, else the "not valid" message box and nothing else; then S
    AnimSwitch,     // store, notify; True starts the animation of a bitmap, False stops it
    Lettering,      // store, notify; redraw only when the Window3D appearance shows the lettering
    CaptionText,    // its own copy, then Caption's set, then notify "CaptionText"
    ResetsPainters, // as S, with the painters' kept state started over before the redraw
    ReadOnly,       // no set
};

enum PropertyFlag : uint16_t {
    Hidden = 1 << 0,
    NotBrowsable = 1 << 1,
    DefaultMember = 1 << 2,
    ByRef = 1 << 3,        // set by reference (pictures and the font)
    Bindable = 1 << 4,
    DefaultBind = 1 << 5,
    InitKeeps = 1 << 6,    // InitProperties leaves the value as it is
    InitComputed = 1 << 7, // InitProperties computes the value instead of taking the default
    LoadsThroughSet = 1 << 8, // ReadProperties passes the value through the property's set
};

// The type of the default a key is persisted against.
enum class PersistAs : uint8_t { None, Int16, Int32, Boolean, String, Font, Picture };

enum class StoreKind : uint8_t { Field, Facet, Window };

// The kind of value the interface carries.
enum class ValueKind : uint8_t { Byte, Boolean, Int16, Int32, Single, Colour, String, Enumeration, Font, Picture };

// How a value of type T is passed in and out of the accessors.
template <typename T> using In = std::conditional_t<std::is_class_v<T>, const T&, T>;

constexpr int32_t Slot(int32_t slot) { return 0x68030000 + slot; }

// Each property's number, in interface order.
enum class PropertyId : uint8_t {
#define VEX_PROPERTY_ID(Name, ...) Name,
    VEX_PROPERTIES(VEX_PROPERTY_ID)
#undef VEX_PROPERTY_ID
};

struct PropertyInfo {
    std::string_view name;
    StoreKind store;
    ValueKind kind;
    std::string_view enumeration; // the enumeration's name, for ValueKind::Enumeration
    SetRule rule;
    int32_t dispid;
    uint16_t flags;
    PersistAs persist;
    int16_t readAt;  // 1-based position among the persisted keys, 0 when not persisted
    int16_t writeAt;

    constexpr bool Has(PropertyFlag flag) const { return (flags & flag) != 0; }
};

// The enumeration of a type (empty for other types), and the interface value kind of a type.
template <typename T> inline constexpr std::string_view kEnumerationName {};
#define VEX_ENUM_NAME(Enum) template <> inline constexpr std::string_view kEnumerationName<Enum> { #Enum };
VEX_ENUMERATIONS(VEX_ENUM_NAME)
#undef VEX_ENUM_NAME

template <typename T> constexpr ValueKind KindOf()
{
    if constexpr (!kEnumerationName<T>.empty()) return ValueKind::Enumeration;
    else if constexpr (std::is_same_v<T, uint8_t>) return ValueKind::Byte;
    else if constexpr (std::is_same_v<T, bool>) return ValueKind::Boolean;
    else if constexpr (std::is_same_v<T, int16_t>) return ValueKind::Int16;
    else if constexpr (std::is_same_v<T, int32_t>) return ValueKind::Int32;
    else if constexpr (std::is_same_v<T, float>) return ValueKind::Single;
    else if constexpr (std::is_same_v<T, OleColor>) return ValueKind::Colour;
    else if constexpr (std::is_same_v<T, std::string>) return ValueKind::String;
    else if constexpr (std::is_same_v<T, platform::FontDesc>) return ValueKind::Font;
    else if constexpr (std::is_same_v<T, platform::PictureRef>) return ValueKind::Picture;
}

inline constexpr PropertyInfo kProperties[] = {
#define VEX_PROPERTY_INFO(Name, Store, Type, Default, Rule, Dispid, Flags, Persist, ReadAt, WriteAt)     \
    PropertyInfo { #Name, StoreKind::Store, KindOf<Type>(), kEnumerationName<Type>, SetRule::Rule, Dispid, \
        static_cast<uint16_t>(Flags), PersistAs::Persist, ReadAt, WriteAt },
    VEX_PROPERTIES(VEX_PROPERTY_INFO)
#undef VEX_PROPERTY_INFO
};

inline constexpr size_t kPropertyCount = std::size(kProperties);
inline constexpr size_t kPersistedKeyCount = 59;

constexpr const PropertyInfo& Info(PropertyId id) { return kProperties[static_cast<size_t>(id)]; }

// The row called name, or nullptr.
const PropertyInfo* FindProperty(std::string_view name);

} // namespace vex::model
