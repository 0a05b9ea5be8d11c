// Pictures of programs as the window system's.
#pragma once

#include <QImage>

#include "windows/picture.h"

namespace tessera {

// The picture for a device pixel ratio: on a finer screen stock pictures are painted anew, others keep their
// pixels.
QImage ToQImage(const Picture& picture, double pixelRatio);

// The image's pixels as programs know them.
Raster ToRaster(const QImage& image);

}  // namespace tessera
