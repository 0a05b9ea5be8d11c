#include "qt/pictures.h"

#include <QByteArray>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

namespace tessera {

namespace {

QImage PaintSvg(const Picture& picture, double pixelRatio) {
  const Size size = picture.size();
  QImage image(static_cast<int>(std::ceil(size.width * pixelRatio)),
               static_cast<int>(std::ceil(size.height * pixelRatio)), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(pixelRatio);
  image.fill(Qt::transparent);
  QSvgRenderer renderer(
      QByteArray::fromRawData(picture.vector.data(), static_cast<qsizetype>(picture.vector.size())));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter, QRectF(0, 0, size.width, size.height));
  return image;
}

}  // namespace

QImage ToQImage(const Picture& picture, double pixelRatio) {
  if (!picture.vector.empty()) return PaintSvg(picture, pixelRatio);
  const Size size = picture.size();
  if (picture.raster.IsEmpty()) return {};
  // A copy, for the picture may go before its image does.
  return QImage(reinterpret_cast<const uchar*>(picture.raster.Row(0)), size.width, size.height,
                QImage::Format_ARGB32_Premultiplied)
      .copy();
}

PictureRef PaintedVector(PictureRef picture) {
  if (picture->vector.empty()) return picture;
  const QImage image = PaintSvg(*picture, 1);
  Picture painted{.raster = Raster(picture->size()), .vector = picture->vector};
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel*>(image.constScanLine(y));
    std::copy_n(row, image.width(), painted.raster.Row(y));
  }
  return std::make_shared<const Picture>(std::move(painted));
}

}  // namespace tessera
