#pragma once
// OLE colours as QColors, so that Designer's colour editor shows and edits them. A plain colour
// is an opaque QColor. A system colour (0x800000nn, nn below 31) is the colour it stands for now,
// with the index kept in the alpha channel: alpha 254 - nn (224..254). Such a QColor saved in a
// .ui file and loaded again names the same system colour; any opaque colour picked in Designer
// is a plain one. Other 32-bit values (palette entries, unknown system indices) read as their
// low 24 bits.

#include <QColor>

#include "base/ole_color.h"

namespace vex::qt {

QColor ToQColor(OleColor colour);
OleColor ToOleColor(const QColor& colour);

} // namespace vex::qt
