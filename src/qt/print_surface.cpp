#include "qt/print_surface.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera {

namespace {

constexpr int kDotsPerMeter = 3780;  // 96 dots an inch: a font's points give the same pixels on every screen

void SetFontScale(QImage& image) {
  image.setDotsPerMeterX(kDotsPerMeter);
  image.setDotsPerMeterY(kDotsPerMeter);
}

QRectF PrintOn(QImage& image, QPointF at, const QStringList& lines, const QFont& font, const QColor& colour) {
  QPainter painter(&image);
  painter.setFont(font);
  painter.setPen(colour);
  const QFontMetricsF metrics(font, &image);
  QRectF touched;
  double top = at.y();
  for (const QString& line : lines) {
    painter.drawText(QPointF(at.x(), top + metrics.ascent()), line);
    touched |= metrics.boundingRect(line).translated(at.x(), top + metrics.ascent());
    top += metrics.height();
  }
  return touched;
}

QRect BoundsOf(const Spans& spans) {
  int left = std::numeric_limits<int>::max();
  int right = -1;
  for (const Span& span : spans) {
    left = std::min(left, span.left);
    right = std::max(right, span.right);
  }
  const auto [first, last] =
      std::minmax_element(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.y < b.y; });
  return QRect(QPoint(left, first->y), QPoint(right, last->y));
}

}  // namespace

QImage PrintSurface::RasterImage() {
  const Size size = raster_.size();
  QImage image(reinterpret_cast<uchar*>(raster_.Row(0)), size.width, size.height,
               QImage::Format_ARGB32_Premultiplied);
  SetFontScale(image);
  return image;
}

void PrintSurface::Fit(QSize size, double pixelRatio) {
  raster_.Grow({size.width(), size.height()});
  if (pixelRatio == 1) {
    fine_ = {};
    return;
  }
  const QSize wanted(raster_.size().width, raster_.size().height);
  const QSize now = fine_.isNull() ? QSize(0, 0) : fine_.deviceIndependentSize().toSize();
  if (wanted == now && fine_.devicePixelRatio() == pixelRatio) return;
  QImage grown(QSize(static_cast<int>(std::ceil(wanted.width() * pixelRatio)),
                     static_cast<int>(std::ceil(wanted.height() * pixelRatio))),
               QImage::Format_ARGB32_Premultiplied);
  grown.setDevicePixelRatio(pixelRatio);
  SetFontScale(grown);
  grown.fill(Qt::transparent);
  QPainter painter(&grown);
  if (fine_.isNull()) {
    if (!raster_.IsEmpty()) painter.drawImage(QRect(QPoint(), wanted), RasterImage());
  } else {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QPointF(0, 0), fine_);
  }
  painter.end();
  fine_ = std::move(grown);
}

QRect PrintSurface::Print(QPointF at, const QString& lines, const QFont& font, const QColor& colour) {
  if (raster_.IsEmpty() || lines.isEmpty()) return {};
  const QStringList rows = lines.split(u'\n');
  QImage image = RasterImage();
  const QRectF touched = PrintOn(image, at, rows, font, colour);
  if (!fine_.isNull()) PrintOn(fine_, at, rows, font, colour);
  // Slanted and smoothed edges reach a little beyond the measured box.
  return touched.toAlignedRect().adjusted(-2, -2, 2, 2);
}

// Each pixel of the raster is a block of the finer ones, and neighbours leave no gap at any ratio.
void PrintSurface::DrawFine(const Spans& spans, Pixel pixel) {
  const double ratio = fine_.devicePixelRatio();
  const auto fineOf = [ratio](int place, int limit) {
    return std::min(static_cast<int>(place * ratio), limit);
  };
  for (const Span& span : spans) {
    const int left = fineOf(span.left, fine_.width());
    const int right = fineOf(span.right + 1, fine_.width());
    const int bottom = fineOf(span.y + 1, fine_.height());
    for (int y = fineOf(span.y, fine_.height()); y < bottom; ++y) {
      auto* row = reinterpret_cast<Pixel*>(fine_.scanLine(y));
      std::fill(row + left, row + right, pixel);
    }
  }
}

QRect PrintSurface::Draw(const Spans& spans, Pixel pixel) {
  if (!fine_.isNull()) DrawFine(spans, pixel);
  return BoundsOf(spans);
}

QRect PrintSurface::Paint(const QImage& picture, QPoint at) {
  if (!fine_.isNull()) {
    QPainter painter(&fine_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(at, picture);
  }
  return QRect(at, picture.deviceIndependentSize().toSize());
}

void PrintSurface::Clear() {
  if (!fine_.isNull()) fine_.fill(Qt::transparent);
}

void PrintSurface::PaintOn(QPainter& painter, const QRect& area) {
  if (raster_.IsEmpty()) return;
  const QImage image = fine_.isNull() ? RasterImage() : fine_;
  const double ratio = image.devicePixelRatio();
  painter.drawImage(QRectF(area), image,
                    QRectF(area.x() * ratio, area.y() * ratio, area.width() * ratio, area.height() * ratio));
}

}  // namespace tessera
