// The drawing of a page's operations: on pixels, where lines and boxes keep to whole ones so that they are
// crisp and meet at the corners, and on a sheet measured in twips.
#pragma once

#include <QImage>
#include <QPainter>
#include <map>
#include <vector>

#include "qtpaper/faces.h"
#include "reports/page.h"
#include "windows/raster.h"

namespace tessera::qtpaper {

// The pictures of a document. One that stands on many sheets is written once, as long as it is the same image
// to the toolkit; the last few are kept, and with them the pictures themselves.
class SheetImages {
 public:
  const QImage& Of(const PictureRef& picture);

 private:
  std::map<PictureRef, QImage> images_;
};

// What all pages of one painter share.
class PageDrawing {
 public:
  explicit PageDrawing(Faces& faces) : faces_(faces) {}

  void OnPixels(const reports::Page& page, double pixelsOfTwip, int left, int top, Raster& raster);
  // The painter's unit is the twip.
  void OnSheet(const reports::Page& page, QPainter& painter, SheetImages& images);

 private:
  // `target` knows how boxes, straight lines and pictures are put there.
  template <typename Target>
  void Draw(const reports::Page& page, QPainter& painter, Target target);
  void Text(const reports::Page& page, const reports::Page::Operation& operation, QPainter& painter);

  Faces& faces_;
  // The glyphs of the text in hand.
  std::vector<quint32> glyphs_;
  std::vector<QPointF> places_;
};

}  // namespace tessera::qtpaper
