#pragma once
// The panel's enumerations. Each is a 32-bit enumeration on the interface and a 16-bit value in
// the store: a host's 32-bit value is narrowed (Overflow beyond 16 bits) where it enters, and any
// 16-bit value is kept, named in the enumeration or not, so a switch over one needs a default.
//
// Each enumeration is listed once below as X(identifier, "published name", value); the enum
// classes here and the name tables of enum_names.h are both made from these lists. Members whose
// published names carry blanks or a hyphen (TypeMousePointer) get an identifier of their own.

#include <cstdint>

// E(enumeration): every enumeration, in the interface's order.
#define VEX_ENUMERATIONS(E)                                                                           \
    E(TypeAppearance)                                                                                 \
    E(TypeBorder)                                                                                     \
    E(TypeWinGradientDirection)                                                                       \
    E(TypeWinOptionColor)                                                                             \
    E(TypeWinContrast)                                                                                \
    E(TypeWinBorderStyle)                                                                             \
    E(TypeAlignment)                                                                                  \
    E(TypePictureBackgroundStyle)                                                                     \
    E(TypeCaptionStyle)                                                                               \
    E(TypePanel3DStyle)                                                                               \
    E(TypeCustomGradientStyle)                                                                        \
    E(TypeCustomGradientDirection)                                                                    \
    E(TypeBackStyle)                                                                                  \
    E(TypePanelFont3D)                                                                                \
    E(TypeMousePointer)

#define VEX_MEMBERS_TypeAppearance(X) X(Windows, "Windows", 0) X(Window3D, "Window3D", 1) X(Custom, "Custom", 2)

#define VEX_MEMBERS_TypeBorder(X) X(SquareCornerBorder, "SquareCornerBorder", 0) X(RoundCornerBorder, "RoundCornerBorder", 1)

#define VEX_MEMBERS_TypeWinGradientDirection(X)                                                       \
    X(pTopToButtomDirection, "pTopToButtomDirection", 0)                                              \
    X(pButtomToTopDirection, "pButtomToTopDirection", 1)                                              \
    X(pLeftToRightDirection, "pLeftToRightDirection", 2)                                              \
    X(pRightToLeftDirection, "pRightToLeftDirection", 3)                                              \
    X(pVerticalCenterDirection, "pVerticalCenterDirection", 4)                                        \
    X(pHorizontalCenterDirection, "pHorizontalCenterDirection", 5)

#define VEX_MEMBERS_TypeWinOptionColor(X) X(ThemesColorOption, "ThemesColorOption", 0) X(WinBackColorOption, "WinBackColorOption", 1)

#define VEX_MEMBERS_TypeWinContrast(X)                                                                \
    X(LowContrast, "LowContrast", 0) X(MediumContrast, "MediumContrast", 1) X(HighContrast, "HighContrast", 2)

#define VEX_MEMBERS_TypeWinBorderStyle(X)                                                             \
    X(NoneBorder, "NoneBorder", 0)                                                                    \
    X(LoweredBorder, "LoweredBorder", 1) X(RaisedBorder, "RaisedBorder", 2) X(ShadowBorder, "ShadowBorder", 3)

#define VEX_MEMBERS_TypeAlignment(X)                                                                  \
    X(LeftTop, "LeftTop", 0)                                                                          \
    X(LeftMiddle, "LeftMiddle", 1)                                                                    \
    X(LeftBottom, "LeftBottom", 2)                                                                    \
    X(RightTop, "RightTop", 3)                                                                        \
    X(RightMiddle, "RightMiddle", 4)                                                                  \
    X(RightBottom, "RightBottom", 5)                                                                  \
    X(CenterTop, "CenterTop", 6) X(CenterMiddle, "CenterMiddle", 7) X(CenterBottom, "CenterBottom", 8)

#define VEX_MEMBERS_TypePictureBackgroundStyle(X)                                                     \
    X(CenteredPicture, "CenteredPicture", 0) X(StretchedPicture, "StretchedPicture", 1) X(TiledPicture, "TiledPicture", 2)

#define VEX_MEMBERS_TypeCaptionStyle(X) X(StandardCaption, "StandardCaption", 0) X(WrappedCaption, "WrappedCaption", 1)

#define VEX_MEMBERS_TypePanel3DStyle(X)                                                               \
    X(None3D, "None3D", 0)                                                                            \
    X(Lowered3D, "Lowered3D", 1) X(Raised3D, "Raised3D", 2) X(GBLowered3D, "GBLowered3D", 3) X(GBRaised3D, "GBRaised3D", 4)

#define VEX_MEMBERS_TypeCustomGradientStyle(X) X(UseTexture, "UseTexture", 0) X(UseGradient, "UseGradient", 1)

#define VEX_MEMBERS_TypeCustomGradientDirection(X)                                                    \
    X(TopToButtom, "TopToButtom", 0)                                                                  \
    X(ButtomToTop, "ButtomToTop", 1)                                                                  \
    X(LeftToRight, "LeftToRight", 2)                                                                  \
    X(RightToLeft, "RightToLeft", 3)                                                                  \
    X(VerticalCenter, "VerticalCenter", 4)                                                            \
    X(HorizontalCenter, "HorizontalCenter", 5)                                                        \
    X(RetangleCenterToBorder, "RetangleCenterToBorder", 6)                                            \
    X(RetangleBorderToCenter, "RetangleBorderToCenter", 7)

#define VEX_MEMBERS_TypeBackStyle(X) X(Transparent, "Transparent", 0) X(Opaque, "Opaque", 1)

#define VEX_MEMBERS_TypePanelFont3D(X)                                                                \
    X(NoneFont3D, "NoneFont3D", 0)                                                                    \
    X(LoweredFont3D, "LoweredFont3D", 1)                                                              \
    X(RaisedFont3D, "RaisedFont3D", 2)                                                                \
    X(LoweredShadingFont3D, "LoweredShadingFont3D", 3)                                                \
    X(RaisedShadingFont3D, "RaisedShadingFont3D", 4)                                                  \
    X(ShadowFont3D, "ShadowFont3D", 5)

// The host's standard mouse-pointer codes, passed through unchanged. Kept as published:
// "Size NW NS" (not NW SE), a trailing blank in member 13, and 99 after 15.
#define VEX_MEMBERS_TypeMousePointer(X)                                                               \
    X(Default, "Default", 0)                                                                          \
    X(Arrow, "Arrow", 1)                                                                              \
    X(Cross, "Cross", 2)                                                                              \
    X(IBeam, "I-Beam", 3)                                                                             \
    X(Icon, "Icon", 4)                                                                                \
    X(Size, "Size", 5)                                                                                \
    X(SizeNESW, "Size NE SW", 6)                                                                      \
    X(SizeNS, "Size N S", 7)                                                                          \
    X(SizeNWNS, "Size NW NS", 8)                                                                      \
    X(SizeWE, "Size W E", 9)                                                                          \
    X(UpArrow, "Up Arrow", 10)                                                                        \
    X(Hourglass, "Hourglass", 11)                                                                     \
    X(NoDrop, "No Drop", 12)                                                                          \
    X(ArrowAndHourglass, "Arrow and Hourglass ", 13)                                                  \
    X(ArrowAndQuestion, "Arrow and Question", 14)                                                     \
    X(SizeAll, "Size All", 15)                                                                        \
    X(Custom, "Custom", 99)

namespace vex::model {

#define VEX_ENUM_MEMBER(identifier, name, value) identifier = value,
#define VEX_DECLARE_ENUM(Enum) enum class Enum : int16_t { VEX_MEMBERS_##Enum(VEX_ENUM_MEMBER) };
VEX_ENUMERATIONS(VEX_DECLARE_ENUM)
#undef VEX_DECLARE_ENUM
#undef VEX_ENUM_MEMBER

} // namespace vex::model
