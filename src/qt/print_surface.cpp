#include "qt/print_surface.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

#include "qt/pictures.h"
#include "qttext/qt_text_painter.h"

namespace tessera {

namespace {

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

void PrintSurface::Print(QPointF at, const QString& lines, const QFont& font, const QColor& colour) {
  if (fine_.isNull()) return;
  QPainter painter(&fine_);
  painter.setFont(font);
  painter.setPen(colour);
  const QFontMetricsF metrics(font, &fine_);
  double baseline = at.y() + metrics.ascent();
  for (const QString& line : lines.split(u'\n')) {
    painter.drawText(QPointF(at.x(), baseline), line);
    baseline += metrics.height();
  }
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

// Stock drawings are painted once for the screen: an animation places the same ones again and again.
QImage PrintSurface::FineImage(const Picture& picture) {
  const double ratio = fine_.devicePixelRatio();
  if (picture.vector.empty()) return ToQImage(picture, ratio);
  QImage& known = stockImages_[picture.vector.data()];
  if (known.isNull() || known.devicePixelRatio() != ratio) known = ToQImage(picture, ratio);
  return known;
}

QRect PrintSurface::Paint(const PlacedPicture& placed) {
  const Size whole = placed.picture->size();
  const QPoint at(placed.at.x, placed.at.y);
  const QSize part(std::min(whole.width, placed.part.width), std::min(whole.height, placed.part.height));
  if (!fine_.isNull()) {
    const QImage picture = FineImage(*placed.picture);
    QPainter painter(&fine_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipRect(QRect(at, part));
    painter.drawImage(at, picture);
  }
  return QRect(at, part);
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
