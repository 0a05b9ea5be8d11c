// What a program has printed and drawn on a window, as the screen shows it: the surface's raster, and on a
// finer screen a second picture in which text is painted at that screen's resolution. It lies transparent
// above the window's ground, survives whatever covers the window, and keeps what a smaller window hides.
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>
#include <unordered_map>

#include "windows/picture.h"
#include "windows/raster.h"
#include "windows/surface.h"

class QColor;
class QFont;
class QPainter;

namespace tessera {

class PrintSurface {
 public:
  // The raster outlives the surface.
  explicit PrintSurface(Raster& raster) : raster_(raster) {}

  // Room for at least `size` (device-independent pixels), at that device pixel ratio. It never shrinks.
  void Fit(QSize size, double pixelRatio);

  // Follows lines of text that were printed in the raster, from the upper left corner `at` on.
  void Print(QPointF at, const QString& lines, const QFont& font, const QColor& colour);

  // Follows what was drawn in the raster; the area that was touched.
  QRect Draw(const Spans& spans, Pixel pixel);
  QRect Paint(const PlacedPicture& placed);

  // Follows the raster's clearing.
  void Clear();

  // Paints the part of the picture that lies in `area`.
  void PaintOn(QPainter& painter, const QRect& area);

 private:
  QImage RasterImage();
  QImage FineImage(const Picture& picture);
  void DrawFine(const Spans& spans, Pixel pixel);

  Raster& raster_;
  // At the screen's resolution; none where that is the raster's own.
  QImage fine_;
  std::unordered_map<const void*, QImage> stockImages_;  // for that screen, by their drawings
};

}  // namespace tessera
