#pragma once
// OLE colours as QColors, so that Designer's colour editor shows and edits them, and a .ui file
// (8 bits per channel and alpha) keeps them. The alpha channel says what the colour is:
// - 255: a plain colour 0x00BBGGRR, as any opaque colour picked in Designer is;
// - 224..254: a system colour 0x800000nn, nn below 31, alpha 254 - nn, shown as the colour it
//   stands for now;
// - 1..223: any other value, alpha its high byte and red, green, blue its low three bytes as
//   they stand (a palette entry 0x01000005, a palette-relative 0x02BBGGRR, a system index the
//   host does not name 0x800000FF).
// Values with a high byte of 224 or more name no colour; they read as the plain low 24 bits.

#include <QColor>

#include "base/ole_color.h"

namespace vex::qt {

QColor ToQColor(OleColor colour);
OleColor ToOleColor(const QColor& colour);

} // namespace vex::qt
