// Pictures of programs as the window system's.
#pragma once

#include <QImage>

#include "windows/picture.h"

namespace tessera {

// The picture at a device pixel ratio: stock pictures are painted anew for it, others keep their pixels.
QImage ToQImage(const Picture& picture, double pixelRatio);

// The picture itself, or for a stock picture one that has its pixels too.
PictureRef PaintedVector(PictureRef picture);

}  // namespace tessera
