// The toolkit's frames as pictures.
#pragma once

#include "windows/picture.h"

class QVideoFrame;

namespace tessera::qtmedia {

// Null for a frame of nothing, and for one that there is no memory for.
PictureRef PictureOf(const QVideoFrame& frame);

}  // namespace tessera::qtmedia
