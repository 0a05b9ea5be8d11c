#include "qt/svg_painting.h"

#include <QByteArray>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

namespace tessera {

QImage PaintSvg(std::string_view svg, double pixelRatio) {
  QSvgRenderer renderer(QByteArray::fromRawData(svg.data(), static_cast<qsizetype>(svg.size())));
  if (!renderer.isValid()) return {};
  const QSize size = renderer.defaultSize();
  QImage image(static_cast<int>(std::ceil(size.width() * pixelRatio)),
               static_cast<int>(std::ceil(size.height() * pixelRatio)), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(pixelRatio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  renderer.render(&painter, QRectF(QPointF(), size));
  return image;
}

}  // namespace tessera
