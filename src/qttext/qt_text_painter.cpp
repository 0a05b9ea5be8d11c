#include "qttext/qt_text_painter.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "qttext/fonts.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr int kDotsPerMeter = 3780;  // 96 dots an inch

QImage Canvas(QSize size) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  SetFontScale(image);
  image.fill(Qt::transparent);
  return image;
}

}  // namespace

void SetFontScale(QImage& image) {
  image.setDotsPerMeterX(kDotsPerMeter);
  image.setDotsPerMeterY(kDotsPerMeter);
}

TextMask QtTextPainter::Mask(std::string_view text, const FontFace& face, double left, double top,
                             Size surface) {
  const QStringList lines = ToQLines(text).split(u'\n');
  const QFont font = ToQFont(face);
  const QImage measured = Canvas({1, 1});
  const QFontMetricsF metrics(font, &measured);
  QRectF bounds;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    bounds |= metrics.boundingRect(lines[i]).translated(
        left, top + double(i) * metrics.height() + metrics.ascent());
  }
  // Slanted and smoothed edges reach beyond the measured box.
  const int margin = static_cast<int>(std::ceil(metrics.height()));
  const QRect area = bounds.toAlignedRect().adjusted(-margin, -margin, margin, margin) &
                     QRect(0, 0, surface.width, surface.height);
  if (area.isEmpty()) return {};
  QImage image = Canvas(area.size());
  QPainter painter(&image);
  painter.setFont(font);
  painter.translate(-area.topLeft());
  for (qsizetype i = 0; i < lines.size(); ++i) {
    painter.drawText(QPointF(left, top + double(i) * metrics.height() + metrics.ascent()), lines[i]);
  }
  painter.end();
  TextMask mask{.corner = {area.left(), area.top()}, .size = {area.width(), area.height()}, .coverage = {}};
  mask.coverage.reserve(static_cast<std::size_t>(area.width()) * static_cast<std::size_t>(area.height()));
  for (int y = 0; y < area.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < area.width(); ++x) mask.coverage.push_back(static_cast<std::uint8_t>(qAlpha(row[x])));
  }
  return mask;
}

}  // namespace tessera
