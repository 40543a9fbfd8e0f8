' The registered control driven by the script host through its type library: every property
' set and read back, the host's coercions and errors, the set rules that clamp or reject, and
' Caption against CaptionText. Prints one FAIL line per difference and "PASS all" at the end
' when there was none (the script host's exit status says nothing).
Option Explicit
On Error Resume Next

Dim failures : failures = 0

Sub Check(what, actual, expected)
    If Err.Number <> 0 Then
        WScript.Echo "FAIL " & what & ": error " & Err.Number & " " & Err.Description
        failures = failures + 1
        Err.Clear
    ElseIf actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & ", expected " & expected
        failures = failures + 1
    End If
End Sub

Sub CheckError(what, number)
    If Err.Number <> number Then
        WScript.Echo "FAIL " & what & ": error " & Err.Number & " (" & Err.Description & "), expected " & number
        failures = failures + 1
    End If
    Err.Clear
End Sub

Dim p
Set p = CreateObject("Vex_Panel.VexPanel")
If Err.Number <> 0 Then
    WScript.Echo "FAIL CreateObject: error " & Err.Number & " " & Err.Description
    WScript.Quit 1
End If

' ---- The defaults a new control starts from ----
Check "default Appearance", p.Appearance, 1
Check "default PictureAnimDelay", p.PictureAnimDelay, 100
Check "default BackColor", CDbl(p.BackColor), 2147483663
Check "default FontName", p.FontName, "MS Sans Serif"

' ---- Every property, set and read back (enumerations by value). A colour reads back as an
' OLE_COLOR, an unsigned Long the script host only converts: CDbl. ----
p.FlagAbout = 200 : Check "FlagAbout", p.FlagAbout, 200
p.ForeColor = &HFF : Check "ForeColor", CDbl(p.ForeColor), 255
p.Enabled = False : Check "Enabled", p.Enabled, False
p.Appearance = 2 : Check "Appearance", p.Appearance, 2
p.BackStyle = 0 : Check "BackStyle", p.BackStyle, 0
p.OptionPic = True : Check "OptionPic", p.OptionPic, True
p.OptionPicBackGround = True : Check "OptionPicBackGround", p.OptionPicBackGround, True
p.CustomBorderLeftTopStyle = 1 : Check "CustomBorderLeftTopStyle", p.CustomBorderLeftTopStyle, 1
p.CustomBorderRightTopStyle = 1 : Check "CustomBorderRightTopStyle", p.CustomBorderRightTopStyle, 1
p.CustomBorderLeftBottomStyle = 1 : Check "CustomBorderLeftBottomStyle", p.CustomBorderLeftBottomStyle, 1
p.CustomBorderRightBottomStyle = 1 : Check "CustomBorderRightBottomStyle", p.CustomBorderRightBottomStyle, 1
p.CustomBorderRadio = 7 : Check "CustomBorderRadio", p.CustomBorderRadio, 7
p.WinBackColor = &H123456 : Check "WinBackColor", CDbl(p.WinBackColor), &H123456
p.WinGradientDirection = 5 : Check "WinGradientDirection", p.WinGradientDirection, 5
p.WinOptionColor = 1 : Check "WinOptionColor", p.WinOptionColor, 1
p.WinContrast = 2 : Check "WinContrast", p.WinContrast, 2
p.WinBorderTopStyle = 3 : Check "WinBorderTopStyle", p.WinBorderTopStyle, 3
p.WinBorderBottomStyle = 2 : Check "WinBorderBottomStyle", p.WinBorderBottomStyle, 2
p.WinBorderLeftStyle = 0 : Check "WinBorderLeftStyle", p.WinBorderLeftStyle, 0
p.WinBorderRightStyle = 3 : Check "WinBorderRightStyle", p.WinBorderRightStyle, 3
p.Caption = "Hello" : Check "Caption", p.Caption, "Hello"
p.CaptionAlignment = 4 : Check "CaptionAlignment", p.CaptionAlignment, 4
p.CaptionEfect = True : Check "CaptionEfect", p.CaptionEfect, True
p.CaptionFontIn = &H10203 : Check "CaptionFontIn", CDbl(p.CaptionFontIn), &H10203
p.CaptionFontOut = &H30201 : Check "CaptionFontOut", CDbl(p.CaptionFontOut), &H30201
p.CaptionFontShadow = &H808080 : Check "CaptionFontShadow", CDbl(p.CaptionFontShadow), &H808080
p.CaptionGetShadow = True : Check "CaptionGetShadow", p.CaptionGetShadow, True
Set p.Picture = Nothing : Check "Picture", p.Picture Is Nothing, True
p.PictureAlignment = 8 : Check "PictureAlignment", p.PictureAlignment, 8
p.PictureAnimDelay = 250 : Check "PictureAnimDelay", p.PictureAnimDelay, 250
p.PictureMaskColor = &HFF : Check "PictureMaskColor", CDbl(p.PictureMaskColor), 255
p.PictureUseMask = True : Check "PictureUseMask", p.PictureUseMask, True
p.PictureFrames = 4 : Check "PictureFrames", p.PictureFrames, 4
Set p.PictureBackground = Nothing : Check "PictureBackground", p.PictureBackground Is Nothing, True
p.PictureBackgroundStyle = 2 : Check "PictureBackgroundStyle", p.PictureBackgroundStyle, 2
p.PictureBackgroundUseMask = True : Check "PictureBackgroundUseMask", p.PictureBackgroundUseMask, True
p.CaptionStyle = 1 : Check "CaptionStyle", p.CaptionStyle, 1
p.Panel3DBorderStyle = 4 : Check "Panel3DBorderStyle", p.Panel3DBorderStyle, 4
p.Panel3DBorderWidth = 3 : Check "Panel3DBorderWidth", p.Panel3DBorderWidth, 3
p.Panel3DBorderOffset = 5 : Check "Panel3DBorderOffset", p.Panel3DBorderOffset, 5
p.Panel3DHighLight = &HFFFFFF : Check "Panel3DHighLight", CDbl(p.Panel3DHighLight), &HFFFFFF
p.Panel3DShadow = &H404040 : Check "Panel3DShadow", CDbl(p.Panel3DShadow), &H404040
p.Panel3DOffsetColor = &H80000010 : Check "Panel3DOffsetColor", CDbl(p.Panel3DOffsetColor), 2147483664
p.CustomBorderWidth = 2 : Check "CustomBorderWidth", p.CustomBorderWidth, 2
p.CustomBorderColor = &H112233 : Check "CustomBorderColor", CDbl(p.CustomBorderColor), &H112233
p.CustomGradientStart = &H445566 : Check "CustomGradientStart", CDbl(p.CustomGradientStart), &H445566
p.CustomGradientEnds = &H778899 : Check "CustomGradientEnds", CDbl(p.CustomGradientEnds), &H778899
p.CustomGradientDirection = 7 : Check "CustomGradientDirection", p.CustomGradientDirection, 7
p.CustomGradientStyle = 0 : Check "CustomGradientStyle", p.CustomGradientStyle, 0
p.PanelFont3D = 5 : Check "PanelFont3D", p.PanelFont3D, 5
p.PanelFont3DHighLight = &HAABBCC : Check "PanelFont3DHighLight", CDbl(p.PanelFont3DHighLight), &HAABBCC
p.PanelFont3DShadow = &H332211 : Check "PanelFont3DShadow", CDbl(p.PanelFont3DShadow), &H332211
Set p.MouseIcon = Nothing : Check "MouseIcon", p.MouseIcon Is Nothing, True
p.MousePointer = 99 : Check "MousePointer", p.MousePointer, 99
p.FontUnderline = True : Check "FontUnderline", p.FontUnderline, True
p.FontStrikethru = True : Check "FontStrikethru", p.FontStrikethru, True
p.FontSize = 12 : Check "FontSize", p.FontSize, 12
p.FontName = "Tahoma" : Check "FontName", p.FontName, "Tahoma"
p.FontItalic = True : Check "FontItalic", p.FontItalic, True
p.FontBold = True : Check "FontBold", p.FontBold, True
p.Panel3DBorderOption = True : Check "Panel3DBorderOption", p.Panel3DBorderOption, True
p.Panel3DBorderColor = &HABCDEF : Check "Panel3DBorderColor", CDbl(p.Panel3DBorderColor), &HABCDEF
p.BackColor = &HC0C0C0 : Check "BackColor", CDbl(p.BackColor), &HC0C0C0
Check "hWnd is a number", IsNumeric(p.hWnd), True
Check "hDC is a number", IsNumeric(p.hDC), True
p.hWnd = 5 : CheckError "hWnd is read only", 438
p.hDC = 5 : CheckError "hDC is read only", 438

' ---- The font as an object: its facets are the Font facets ----
Dim font
Set font = p.Font
Check "Font.Name", font.Name, "Tahoma"
Check "Font.Bold", font.Bold, True
font.Name = "MS Sans Serif" : font.Size = 9.75 : font.Bold = False
Set p.Font = font
Check "Font set: FontName", p.FontName, "MS Sans Serif"
Check "Font set: FontSize", p.FontSize, 9.75
Check "Font set: FontBold", p.FontBold, False

' Changing the facets of the object Font returns changes the control's font.
p.Font.Bold = True
Check "Font.Bold = True: FontBold", p.FontBold, True
p.Font.Name = "Tahoma"
Check "Font.Name: FontName", p.FontName, "Tahoma"
Check "Font is one object", p.Font Is p.Font, True

' ---- The host's coercions and the control's errors ----
p.PictureFrames = 40000 : CheckError "Integer 40000", 6
p.PictureFrames = "abc" : CheckError "Integer ""abc""", 13
p.PictureFrames = 2.5 : Check "Integer 2.5", p.PictureFrames, 2
p.PictureFrames = 3.5 : Check "Integer 3.5", p.PictureFrames, 4
p.Appearance = 40000 : CheckError "enumeration 40000", 6
p.Appearance = 7 : Check "enumeration 7 (no member)", p.Appearance, 7
p.Enabled = "abc" : CheckError "Boolean ""abc""", 13
p.FlagAbout = 256 : CheckError "Byte 256", 6
If Err.Number = 0 Then
    p.Appearance = 40000
    If Err.Source <> "Vex_Panel.VexPanel" Or Err.Description <> "Overflow" Then
        WScript.Echo "FAIL the control's error: " & Err.Source & " / " & Err.Description
        failures = failures + 1
    End If
    Err.Clear
End If

' ---- Set rules that clamp ----
p.PictureFrames = 0 : Check "PictureFrames 0", p.PictureFrames, 1
p.Panel3DBorderWidth = -2 : Check "Panel3DBorderWidth -2", p.Panel3DBorderWidth, 1
p.Panel3DBorderOffset = -1 : Check "Panel3DBorderOffset -1", p.Panel3DBorderOffset, 0
p.CustomBorderWidth = -4 : Check "CustomBorderWidth -4", p.CustomBorderWidth, 0
p.CustomBorderRadio = -3 : Check "CustomBorderRadio -3", p.CustomBorderRadio, 0

' ---- PictureAnimDelay out of range: a message box, no error, the old value kept ----
p.PictureAnimDelay = 0 : Check "PictureAnimDelay 0", p.PictureAnimDelay, 250
p.PictureAnimDelay = 32001 : Check "PictureAnimDelay 32001", p.PictureAnimDelay, 250
p.PictureAnimDelay = -5 : Check "PictureAnimDelay -5", p.PictureAnimDelay, 250
p.PictureAnimDelay = 32000 : Check "PictureAnimDelay 32000", p.PictureAnimDelay, 32000
p.PictureAnimDelay = 1 : Check "PictureAnimDelay 1", p.PictureAnimDelay, 1
Dim invalid : invalid = "EXPECT DIALOG Brisa Panel Error|The property  value is not valid    "
WScript.Echo invalid : WScript.Echo invalid : WScript.Echo invalid

' ---- PictureAnimEnabled without a picture: stored, then Object variable not set ----
p.PictureAnimEnabled = True : CheckError "PictureAnimEnabled without a picture", 91
Check "PictureAnimEnabled stays stored", p.PictureAnimEnabled, True

' ---- Caption and CaptionText (the default member) ----
p.CaptionText = "" : p.Caption = "One"
Check "Caption leaves CaptionText", p.CaptionText, ""
p.CaptionText = "Two"
Check "CaptionText sets Caption", p.Caption, "Two"
Check "the default member is CaptionText", p, "Two"
p.Caption = "Three"
Check "Caption set after CaptionText", p.CaptionText, "Two"

' ---- Acerca: the About box, Empty ----
Check "Acerca returns Empty", IsEmpty(p.Acerca()), True
WScript.Echo "EXPECT DIALOG About VexPanel|VexPanel*"

If failures = 0 Then WScript.Echo "PASS all"
