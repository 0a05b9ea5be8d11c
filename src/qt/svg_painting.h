// The one way from the vector form of a picture to its pixels: at build time for the pixels that every host
// shares, later for a finer screen.
#pragma once

#include <QImage>
#include <string_view>

namespace tessera {

// The picture in its own size at a device pixel ratio, on transparent ground; a null image for what is no
// SVG.
QImage PaintSvg(std::string_view svg, double pixelRatio);

}  // namespace tessera
