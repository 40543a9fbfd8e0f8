// The stored properties and their set rules:
//   S  store, notify the host (key = the property's name), DrawControl(True)
//   P  store and notify, no redraw
//   E  narrow the incoming 32-bit enumeration value to 16 bits (Overflow beyond), then S
// plus the clamps, the PictureAnimDelay range check and the animation switch.
#include "control/vex_panel.h"

#include <algorithm>

#include "base/numeric.h"

namespace vex::control {

template <typename Field, typename Value>
void VexPanel::SetAndRedraw(Field& field, Value value, const char* name)
{
    field = value;
    Notify(name);
    DrawControl(true);
}

template <typename Field, typename Value>
void VexPanel::SetOnly(Field& field, Value value, const char* name)
{
    field = value;
    Notify(name);
}

// Any 16-bit value is kept, named in the enumeration or not.
template <typename Enum>
void VexPanel::SetEnum(Enum& field, Enum value, const char* name)
{
    SetAndRedraw(field, value, name);
}

// The 3D lettering is only visible in the Window3D appearance, so only there is it redrawn.
void VexPanel::Set3DLettering(const char* name)
{
    Notify(name);
    if (props_.Appearance == TypeAppearance::Window3D)
        DrawControl(true);
}

// PainterState := 0: the painters' kept state starts over (the saved background under an
// animated picture is taken anew on the next paint).
void VexPanel::ResetPainterState() { memory_.savedBackground.reset(); }

void VexPanel::setForeColor(OleColor value)
{
    props_.ForeColor = value;
    surface_.SetForeColor(value);
    Notify("ForeColor");
    DrawControl(true);
}

void VexPanel::setEnabled(bool value) { SetAndRedraw(props_.Enabled, value, "Enabled"); }

void VexPanel::setAppearance(TypeAppearance value)
{
    props_.Appearance = value;
    Notify("Appearance");
    ResetPainterState();
    DrawControl(true);
}

void VexPanel::setBackStyle(TypeBackStyle value) { SetEnum(props_.BackStyle, value, "BackStyle"); }
void VexPanel::setOptionPic(bool value) { SetOnly(props_.OptionPic, value, "OptionPic"); }
void VexPanel::setOptionPicBackGround(bool value) { SetOnly(props_.OptionPicBackGround, value, "OptionPicBackGround"); }

void VexPanel::setCustomBorderLeftTopStyle(TypeBorder value)
{
    SetEnum(props_.CustomBorderLeftTopStyle, value, "CustomBorderLeftTopStyle");
}
void VexPanel::setCustomBorderRightTopStyle(TypeBorder value)
{
    SetEnum(props_.CustomBorderRightTopStyle, value, "CustomBorderRightTopStyle");
}
void VexPanel::setCustomBorderLeftBottomStyle(TypeBorder value)
{
    SetEnum(props_.CustomBorderLeftBottomStyle, value, "CustomBorderLeftBottomStyle");
}
void VexPanel::setCustomBorderRightBottomStyle(TypeBorder value)
{
    SetEnum(props_.CustomBorderRightBottomStyle, value, "CustomBorderRightBottomStyle");
}

void VexPanel::setCustomBorderRadio(int16_t value)
{
    SetAndRedraw(props_.CustomBorderRadio, std::max<int16_t>(value, 0), "CustomBorderRadio");
}

void VexPanel::setWinBackColor(OleColor value) { SetAndRedraw(props_.WinBackColor, value, "WinBackColor"); }
void VexPanel::setWinGradientDirection(TypeWinGradientDirection value)
{
    SetEnum(props_.WinGradientDirection, value, "WinGradientDirection");
}
void VexPanel::setWinOptionColor(TypeWinOptionColor value) { SetEnum(props_.WinOptionColor, value, "WinOptionColor"); }
void VexPanel::setWinContrast(TypeWinContrast value) { SetEnum(props_.WinContrast, value, "WinContrast"); }
void VexPanel::setWinBorderTopStyle(TypeWinBorderStyle value) { SetEnum(props_.WinBorderTopStyle, value, "WinBorderTopStyle"); }
void VexPanel::setWinBorderBottomStyle(TypeWinBorderStyle value)
{
    SetEnum(props_.WinBorderBottomStyle, value, "WinBorderBottomStyle");
}
void VexPanel::setWinBorderLeftStyle(TypeWinBorderStyle value) { SetEnum(props_.WinBorderLeftStyle, value, "WinBorderLeftStyle"); }
void VexPanel::setWinBorderRightStyle(TypeWinBorderStyle value)
{
    SetEnum(props_.WinBorderRightStyle, value, "WinBorderRightStyle");
}

void VexPanel::setCaption(const std::string& value) { SetAndRedraw(props_.Caption, value, "Caption"); }
void VexPanel::setCaptionAlignment(TypeAlignment value) { SetEnum(props_.CaptionAlignment, value, "CaptionAlignment"); }
void VexPanel::setCaptionEfect(bool value) { SetAndRedraw(props_.CaptionEfect, value, "CaptionEfect"); }
void VexPanel::setCaptionFontIn(OleColor value) { SetAndRedraw(props_.CaptionFontIn, value, "CaptionFontIn"); }
void VexPanel::setCaptionFontOut(OleColor value) { SetAndRedraw(props_.CaptionFontOut, value, "CaptionFontOut"); }
void VexPanel::setCaptionFontShadow(OleColor value) { SetAndRedraw(props_.CaptionFontShadow, value, "CaptionFontShadow"); }
void VexPanel::setCaptionGetShadow(bool value) { SetAndRedraw(props_.CaptionGetShadow, value, "CaptionGetShadow"); }
void VexPanel::setPicture(platform::PictureRef value) { SetAndRedraw(props_.Picture, std::move(value), "Picture"); }
void VexPanel::setPictureAlignment(TypeAlignment value) { SetEnum(props_.PictureAlignment, value, "PictureAlignment"); }

// The animation switch. The value is stored and reported before the picture's type is read, so
// with no picture the object-not-set error reaches the caller with True already kept.
void VexPanel::setPictureAnimEnabled(bool value)
{
    props_.PictureAnimEnabled = value;
    Notify("PictureAnimEnabled");
    if (!value) {
        Timer2_->SetEnabled(false); // the last frame drawn stays until the next paint
        return;
    }
    if (!props_.Picture)
        Raise(ErrorCode::ObjectNotSet);
    if (props_.Picture->type() != platform::PictureType::Bitmap)
        return;
    DrawControl(true);
    StartAnimation();
}

// Setting the delay while the animation runs leaves the running timer alone, on purpose: the
// new delay is taken when the animation is next switched on.
void VexPanel::setPictureAnimDelay(int16_t value)
{
    if (value < 1 || value > 32000) {
        host_.MessageBox(kInvalidValueText, kErrorTitle, mb::Critical | mb::OkOnly);
        return;
    }
    SetAndRedraw(props_.PictureAnimDelay, value, "PictureAnimDelay");
}

void VexPanel::setPictureMaskColor(OleColor value) { SetAndRedraw(props_.PictureMaskColor, value, "PictureMaskColor"); }
void VexPanel::setPictureUseMask(bool value) { SetAndRedraw(props_.PictureUseMask, value, "PictureUseMask"); }

void VexPanel::setPictureFrames(int16_t value)
{
    SetAndRedraw(props_.PictureFrames, std::max<int16_t>(value, 1), "PictureFrames");
}

void VexPanel::setPictureBackground(platform::PictureRef value)
{
    SetAndRedraw(props_.PictureBackground, std::move(value), "PictureBackground");
}
void VexPanel::setPictureBackgroundStyle(TypePictureBackgroundStyle value)
{
    SetEnum(props_.PictureBackgroundStyle, value, "PictureBackgroundStyle");
}
void VexPanel::setPictureBackgroundUseMask(bool value)
{
    SetAndRedraw(props_.PictureBackgroundUseMask, value, "PictureBackgroundUseMask");
}
void VexPanel::setCaptionStyle(TypeCaptionStyle value) { SetEnum(props_.CaptionStyle, value, "CaptionStyle"); }
void VexPanel::setPanel3DBorderStyle(TypePanel3DStyle value) { SetEnum(props_.Panel3DBorderStyle, value, "Panel3DBorderStyle"); }

void VexPanel::setPanel3DBorderWidth(int16_t value)
{
    SetAndRedraw(props_.Panel3DBorderWidth, std::max<int16_t>(value, 1), "Panel3DBorderWidth");
}

void VexPanel::setPanel3DBorderOffset(int16_t value)
{
    SetAndRedraw(props_.Panel3DBorderOffset, std::max<int16_t>(value, 0), "Panel3DBorderOffset");
}

void VexPanel::setPanel3DHighLight(OleColor value) { SetAndRedraw(props_.Panel3DHighLight, value, "Panel3DHighLight"); }
void VexPanel::setPanel3DShadow(OleColor value) { SetAndRedraw(props_.Panel3DShadow, value, "Panel3DShadow"); }
void VexPanel::setPanel3DOffsetColor(OleColor value) { SetAndRedraw(props_.Panel3DOffsetColor, value, "Panel3DOffsetColor"); }

void VexPanel::setCustomBorderWidth(int16_t value)
{
    SetAndRedraw(props_.CustomBorderWidth, std::max<int16_t>(value, 0), "CustomBorderWidth");
}

void VexPanel::setCustomBorderColor(OleColor value) { SetAndRedraw(props_.CustomBorderColor, value, "CustomBorderColor"); }
void VexPanel::setCustomGradientStart(OleColor value) { SetAndRedraw(props_.CustomGradientStart, value, "CustomGradientStart"); }
void VexPanel::setCustomGradientEnds(OleColor value) { SetAndRedraw(props_.CustomGradientEnds, value, "CustomGradientEnds"); }
void VexPanel::setCustomGradientDirection(TypeCustomGradientDirection value)
{
    SetEnum(props_.CustomGradientDirection, value, "CustomGradientDirection");
}
void VexPanel::setCustomGradientStyle(TypeCustomGradientStyle value)
{
    SetEnum(props_.CustomGradientStyle, value, "CustomGradientStyle");
}

void VexPanel::setPanelFont3D(TypePanelFont3D value)
{
    props_.PanelFont3D = value;
    Set3DLettering("PanelFont3D");
}

void VexPanel::setPanelFont3DHighLight(OleColor value)
{
    props_.PanelFont3DHighLight = value;
    Set3DLettering("PanelFont3DHighLight");
}

void VexPanel::setPanelFont3DShadow(OleColor value)
{
    props_.PanelFont3DShadow = value;
    Set3DLettering("PanelFont3DShadow");
}

// CaptionText keeps its own copy and passes the text on to Caption, which stores, notifies and
// redraws; only then is CaptionText itself reported. Setting Caption leaves CaptionText alone.
void VexPanel::setCaptionText(const std::string& value)
{
    props_.CaptionText = value;
    setCaption(value);
    Notify("CaptionText");
}

void VexPanel::setPanel3DBorderOption(bool value) { SetAndRedraw(props_.Panel3DBorderOption, value, "Panel3DBorderOption"); }
void VexPanel::setPanel3DBorderColor(OleColor value) { SetAndRedraw(props_.Panel3DBorderColor, value, "Panel3DBorderColor"); }

} // namespace vex::control
