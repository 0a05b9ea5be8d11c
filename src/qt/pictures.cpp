#include "qt/pictures.h"

#include "qt/svg_painting.h"

namespace tessera {

QImage ToQImage(const Picture& picture, double pixelRatio) {
  if (pixelRatio != 1 && !picture.vector.empty()) return PaintSvg(picture.vector, pixelRatio);
  const Size size = picture.size();
  if (picture.raster.IsEmpty()) return {};
  // A copy, for the picture may go before its image does.
  return QImage(reinterpret_cast<const uchar*>(picture.raster.Row(0)), size.width, size.height,
                QImage::Format_ARGB32_Premultiplied)
      .copy();
}

}  // namespace tessera
