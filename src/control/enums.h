#pragma once
// The panel's enumerations. Each is a 32-bit enumeration on the interface; the control narrows
// the incoming value to 16 bits when it stores it, and keeps any 16-bit value, named or not.
// Members whose names carry blanks or a hyphen (TypeMousePointer) get an identifier here and keep
// their exact text in the name table (enum_names.h).

#include <cstdint>

namespace vex::control {

enum class TypeAppearance : int32_t { Windows = 0, Window3D = 1, Custom = 2 };

enum class TypeBorder : int32_t { SquareCornerBorder = 0, RoundCornerBorder = 1 };

enum class TypeWinGradientDirection : int32_t {
    pTopToButtomDirection = 0,
    pButtomToTopDirection = 1,
    pLeftToRightDirection = 2,
    pRightToLeftDirection = 3,
    pVerticalCenterDirection = 4,
    pHorizontalCenterDirection = 5,
};

enum class TypeWinOptionColor : int32_t { ThemesColorOption = 0, WinBackColorOption = 1 };

enum class TypeWinContrast : int32_t { LowContrast = 0, MediumContrast = 1, HighContrast = 2 };

enum class TypeWinBorderStyle : int32_t { NoneBorder = 0, LoweredBorder = 1, RaisedBorder = 2, ShadowBorder = 3 };

enum class TypeAlignment : int32_t {
    LeftTop = 0,
    LeftMiddle = 1,
    LeftBottom = 2,
    RightTop = 3,
    RightMiddle = 4,
    RightBottom = 5,
    CenterTop = 6,
    CenterMiddle = 7,
    CenterBottom = 8,
};

enum class TypePictureBackgroundStyle : int32_t { CenteredPicture = 0, StretchedPicture = 1, TiledPicture = 2 };

enum class TypeCaptionStyle : int32_t { StandardCaption = 0, WrappedCaption = 1 };

enum class TypePanel3DStyle : int32_t { None3D = 0, Lowered3D = 1, Raised3D = 2, GBLowered3D = 3, GBRaised3D = 4 };

enum class TypeCustomGradientStyle : int32_t { UseTexture = 0, UseGradient = 1 };

enum class TypeCustomGradientDirection : int32_t {
    TopToButtom = 0,
    ButtomToTop = 1,
    LeftToRight = 2,
    RightToLeft = 3,
    VerticalCenter = 4,
    HorizontalCenter = 5,
    RetangleCenterToBorder = 6,
    RetangleBorderToCenter = 7,
};

enum class TypeBackStyle : int32_t { Transparent = 0, Opaque = 1 };

enum class TypePanelFont3D : int32_t {
    NoneFont3D = 0,
    LoweredFont3D = 1,
    RaisedFont3D = 2,
    LoweredShadingFont3D = 3,
    RaisedShadingFont3D = 4,
    ShadowFont3D = 5,
};

// The host's standard mouse-pointer codes, passed through unchanged. Exact member names
// ("I-Beam", "Size NW NS", "Arrow and Hourglass " with its trailing blank) are in the name table.
enum class TypeMousePointer : int32_t {
    Default = 0,
    Arrow = 1,
    Cross = 2,
    IBeam = 3,
    Icon = 4,
    Size = 5,
    SizeNESW = 6,
    SizeNS = 7,
    SizeNWNS = 8,
    SizeWE = 9,
    UpArrow = 10,
    Hourglass = 11,
    NoDrop = 12,
    ArrowAndHourglass = 13,
    ArrowAndQuestion = 14,
    SizeAll = 15,
    Custom = 99,
};

} // namespace vex::control
