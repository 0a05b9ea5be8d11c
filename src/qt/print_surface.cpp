#include "qt/print_surface.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace tessera {

namespace {

constexpr int kDotsPerMeter = 3780;  // 96 dots an inch: a font's points give the same pixels on every screen

}  // namespace

void PrintSurface::Fit(QSize size, double pixelRatio) {
  const QSize now = image_.isNull() ? QSize(0, 0) : image_.deviceIndependentSize().toSize();
  const QSize wanted = size.expandedTo(now);
  if (wanted == now && image_.devicePixelRatio() == pixelRatio) return;
  QImage grown(QSize(static_cast<int>(std::ceil(wanted.width() * pixelRatio)),
                     static_cast<int>(std::ceil(wanted.height() * pixelRatio))),
               QImage::Format_ARGB32_Premultiplied);
  grown.setDevicePixelRatio(pixelRatio);
  grown.setDotsPerMeterX(kDotsPerMeter);
  grown.setDotsPerMeterY(kDotsPerMeter);
  grown.fill(Qt::transparent);
  if (!image_.isNull()) {
    QPainter painter(&grown);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QPointF(0, 0), image_);
  }
  image_ = std::move(grown);
}

QRect PrintSurface::Print(QPointF at, const QString& lines, const QFont& font, const QColor& colour) {
  if (image_.isNull() || lines.isEmpty()) return {};
  QPainter painter(&image_);
  painter.setFont(font);
  painter.setPen(colour);
  const QFontMetricsF metrics(font, &image_);
  QRectF touched;
  double top = at.y();
  for (const QString& line : lines.split(u'\n')) {
    painter.drawText(QPointF(at.x(), top + metrics.ascent()), line);
    touched |= metrics.boundingRect(line).translated(at.x(), top + metrics.ascent());
    top += metrics.height();
  }
  // Slanted and smoothed edges reach a little beyond the measured box.
  return touched.toAlignedRect().adjusted(-2, -2, 2, 2);
}

void PrintSurface::Clear() {
  image_.fill(Qt::transparent);
}

void PrintSurface::PaintOn(QPainter& painter, const QRect& area) const {
  const double ratio = image_.devicePixelRatio();
  painter.drawImage(QRectF(area), image_,
                    QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio));
}

}  // namespace tessera
