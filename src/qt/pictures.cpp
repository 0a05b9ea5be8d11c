#include "qt/pictures.h"

#include <algorithm>

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

Raster ToRaster(const QImage& image) {
  const QImage rows = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  Raster raster({rows.width(), rows.height()});
  for (int y = 0; y < rows.height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel*>(rows.constScanLine(y));
    std::copy(row, row + rows.width(), raster.Row(y));
  }
  return raster;
}

}  // namespace tessera
