// What a program has printed on a window, kept as a picture at the screen's own resolution. It lies
// transparent above the window's ground, survives whatever covers the window, and keeps what a smaller window
// hides.
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

class QColor;
class QFont;
class QPainter;

namespace tessera {

class PrintSurface {
 public:
  // Room for at least `size` (device-independent pixels), at that device pixel ratio. It never shrinks.
  void Fit(QSize size, double pixelRatio);

  // Prints lines of text from the upper left corner `at` on; the area that was touched.
  QRect Print(QPointF at, const QString& lines, const QFont& font, const QColor& colour);

  void Clear();

  // Paints the part of the picture that lies in `area`.
  void PaintOn(QPainter& painter, const QRect& area) const;

 private:
  QImage image_;
};

}  // namespace tessera
