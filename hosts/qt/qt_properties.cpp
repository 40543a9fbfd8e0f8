// The generated Qt properties read and write the panel by name, through its own sets: a Qt
// property set runs the set rule (clamps, message boxes, the redraw) as a program's set does.
// Qt's property system has no way to report a failure, so a run-time error of a set is reported
// with qWarning and the property keeps its value.
#include "qt/vex_panel_properties.h"

#include "base/numeric.h"
#include "base/runtime_error.h"
#include "control/vex_panel.h"
#include "qt/qt_colours.h"
#include "qt/qt_pictures.h"

namespace vex::qt {

namespace {

template <typename Step>
void Setting(const char* name, Step step)
{
    try {
        step();
    } catch (const RuntimeError& error) {
        qWarning("VexPanelWidget: setting %s: run-time error %d: %s", name, error.number(), error.what());
    }
}

QFont ToQFont(const platform::FontDesc& desc)
{
    QFont font(QString::fromStdString(desc.name));
    font.setPointSizeF(desc.size);
    font.setBold(desc.bold);
    font.setItalic(desc.italic);
    font.setUnderline(desc.underline);
    font.setStrikeOut(desc.strikethrough);
    return font;
}

platform::FontDesc ToFontDesc(const QFont& font)
{
    platform::FontDesc desc;
    desc.name = font.family().toStdString();
    desc.size = static_cast<float>(font.pointSizeF());
    desc.bold = font.bold();
    desc.italic = font.italic();
    desc.underline = font.underline();
    desc.strikethrough = font.strikeOut();
    return desc;
}

} // namespace

int VexPanelProperties::ReadInt(const char* name) const { return control::AsInt32(PropertyPanel().GetProperty(name)); }

void VexPanelProperties::WriteInt(const char* name, int value)
{
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(int32_t { value })); });
}

bool VexPanelProperties::ReadBool(const char* name) const { return control::AsBoolean(PropertyPanel().GetProperty(name)); }

void VexPanelProperties::WriteBool(const char* name, bool value)
{
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(value)); });
}

// A single travels as a double (what a .ui file and Designer hold) and narrows as the host's CSng.
double VexPanelProperties::ReadSingle(const char* name) const { return control::AsSingle(PropertyPanel().GetProperty(name)); }

void VexPanelProperties::WriteSingle(const char* name, double value)
{
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(CSng(value))); });
}

// An OLE colour travels as a Long: the same 32 bits.
QColor VexPanelProperties::ReadColour(const char* name) const
{
    return ToQColor(static_cast<OleColor>(control::AsInt32(PropertyPanel().GetProperty(name))));
}

void VexPanelProperties::WriteColour(const char* name, const QColor& value)
{
    const auto colour = static_cast<int32_t>(ToOleColor(value));
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(colour)); });
}

QString VexPanelProperties::ReadText(const char* name) const
{
    return QString::fromStdString(control::AsText(PropertyPanel().GetProperty(name)));
}

void VexPanelProperties::WriteText(const char* name, const QString& value)
{
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(value.toStdString())); });
}

QFont VexPanelProperties::ReadFont(const char* name) const { return ToQFont(control::AsFont(PropertyPanel().GetProperty(name))); }

void VexPanelProperties::WriteFont(const char* name, const QFont& value)
{
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(ToFontDesc(value))); });
}

// Nothing is an empty pixmap both ways.
QPixmap VexPanelProperties::ReadPicture(const char* name) const
{
    const platform::PictureRef picture = control::AsPicture(PropertyPanel().GetProperty(name));
    return picture ? QPixmap::fromImage(ToQImage(*picture)) : QPixmap();
}

void VexPanelProperties::WritePicture(const char* name, const QPixmap& value)
{
    platform::PictureRef picture;
    if (!value.isNull())
        picture = platform::Picture::FromBitmap(ToDib(value.toImage()));
    Setting(name, [&] { PropertyPanel().SetProperty(name, control::PropertyValue(picture)); });
}

} // namespace vex::qt
