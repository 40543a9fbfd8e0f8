#pragma once
// Pictures between the panel's bitmaps and Qt's images. A Qt image that comes in carries no
// fourth byte into the panel (captured pixels and loaded pictures are colours only); the panel's
// pixels go out as opaque RGB32.

#include <QImage>

#include "platform/dib.h"
#include "platform/picture.h"

namespace vex::qt {

QImage ToQImage(const platform::Dib& dib);
platform::Dib ToDib(const QImage& image); // 32 bits, top-down, fourth byte 0
QImage ToQImage(const platform::Picture& picture); // icons with their mask as alpha

} // namespace vex::qt
