#include "qtpaper/page_drawing.h"

#include <QGlyphRun>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "text/code_page.h"

namespace tessera::qtpaper {

using reports::kLineTwips;
using reports::kTwipsOfPixel;
using reports::Page;
using Operation = Page::Operation;
using Kind = Page::Kind;

namespace {

QColor ColourOf(const Operation& operation) {
  const std::int32_t colour = operation.colour;
  return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

bool IsStraight(const Operation& line) {
  return line.x1 == line.x2 || line.y1 == line.y2;
}

// A line as the box that its thickness and its square ends make.
QRectF BoxOfLine(const Operation& line) {
  const double half = kLineTwips / 2;
  return QRectF(QPointF(std::min(line.x1, line.x2), std::min(line.y1, line.y2)),
                QPointF(std::max(line.x1, line.x2), std::max(line.y1, line.y2)))
      .adjusted(-half, -half, half, half);
}

QRectF BoxOf(const Operation& box) {
  return QRectF(QPointF(box.x1, box.y1), QPointF(box.x2, box.y2)).normalized();
}

QRectF PlaceOf(const Operation& operation, const Picture& picture) {
  return {operation.x1, operation.y1, picture.size().width * kTwipsOfPixel,
          picture.size().height * kTwipsOfPixel};
}

void DrawSlantedLine(const Operation& line, QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ColourOf(line), kLineTwips, Qt::SolidLine, Qt::SquareCap));
  painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
  painter.setRenderHint(QPainter::Antialiasing, false);
}

// A page on the pixels of a raster.
class Pixels {
 public:
  Pixels(double scale, int left, int top, Raster& raster)
      : scale_(scale), left_(left), top_(top), raster_(raster) {}

  int X(double twips) const { return Nearest(twips * scale_) - left_; }
  int Y(double twips) const { return Nearest(twips * scale_) - top_; }

  void FillBox(const QRectF& box, Pixel pixel) {
    Fill(X(box.left()), Y(box.top()), X(box.right()), Y(box.bottom()), pixel);
  }

  // Every line is equally thick, wherever it falls between the pixels.
  void FillLine(const Operation& line, Pixel pixel) {
    const int thick = std::max(1, Nearest(kLineTwips * scale_));
    const auto edge = [&](double twips) { return Nearest(twips * scale_ - thick / 2.0); };
    Fill(edge(std::min(line.x1, line.x2)) - left_, edge(std::min(line.y1, line.y2)) - top_,
         edge(std::max(line.x1, line.x2)) + thick - left_, edge(std::max(line.y1, line.y2)) + thick - top_,
         pixel);
  }

 private:
  static int Nearest(double pixels) { return static_cast<int>(std::floor(pixels + 0.5)); }

  // Right and bottom are no part of it.
  void Fill(int left, int top, int right, int bottom, Pixel pixel) {
    left = std::max(left, 0);
    right = std::min(right, raster_.size().width);
    if (left >= right) return;
    for (int y = std::max(top, 0); y < std::min(bottom, raster_.size().height); ++y) {
      std::fill(raster_.Row(y) + left, raster_.Row(y) + right, pixel);
    }
  }

  double scale_;
  int left_;
  int top_;
  Raster& raster_;
};

}  // namespace

// A copy of the picture's pixels, since a page may go before its sheet is written.
const QImage& PageDrawing::ImageOf(const PictureRef& picture) {
  QImage& image = images_[picture];
  if (image.isNull() && !picture->raster.IsEmpty()) {
    const Size size = picture->size();
    image = QImage(reinterpret_cast<const uchar*>(picture->raster.Row(0)), size.width, size.height,
                   QImage::Format_ARGB32_Premultiplied)
                .copy();
  }
  return image;
}

void PageDrawing::Text(const Page& page, const Operation& operation, QPainter& painter) {
  const Face& face = faces_.Of(page.FaceOf(operation));
  glyphs_.clear();
  places_.clear();
  painter.setPen(ColourOf(operation));
  const QPointF start(operation.x1, operation.y1 + face.measures.ascent);
  double x = 0;
  for (const char character : page.TextOf(operation)) {
    const auto code = static_cast<unsigned char>(character);
    if (face.glyphs[code] != 0) {
      glyphs_.push_back(face.glyphs[code]);
      places_.emplace_back(x, 0);
    } else if (face.measures.advances[code] > 0) {
      painter.setFont(face.font);
      painter.drawText(start + QPointF(x, 0), QString(QChar(CodeOfByte(code))));
    }
    x += face.measures.advances[code];
  }
  if (glyphs_.empty()) return;
  QGlyphRun run;
  run.setRawFont(face.raw);
  run.setRawData(glyphs_.data(), places_.data(), static_cast<int>(glyphs_.size()));
  painter.drawGlyphRun(start, run);
}

void PageDrawing::OnPixels(const Page& page, double pixelsOfTwip, int left, int top, Raster& raster) {
  constexpr Pixel kWhite = 0xFFFFFFFF;
  const Size size = raster.size();
  for (int y = 0; y < size.height; ++y) std::fill(raster.Row(y), raster.Row(y) + size.width, kWhite);
  // The painter draws into the same memory at once, so that boxes may be filled beside it.
  QImage image(reinterpret_cast<uchar*>(raster.Row(0)), size.width, size.height,
               QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  painter.translate(-left, -top);
  painter.scale(pixelsOfTwip, pixelsOfTwip);
  Pixels pixels(pixelsOfTwip, left, top, raster);
  for (const Operation& operation : page.Operations()) {
    switch (operation.kind) {
      case Kind::Text:
        Text(page, operation, painter);
        break;
      case Kind::Box:
        pixels.FillBox(BoxOf(operation), ColourOf(operation).rgb());
        break;
      case Kind::Line:
        if (IsStraight(operation)) {
          pixels.FillLine(operation, ColourOf(operation).rgb());
        } else {
          DrawSlantedLine(operation, painter);
        }
        break;
      case Kind::Picture: {
        const PictureRef& picture = page.PictureOf(operation);
        const QRectF place = PlaceOf(operation, *picture);
        const QTransform scaled = painter.transform();
        painter.resetTransform();
        painter.drawImage(QRect(QPoint(pixels.X(place.left()), pixels.Y(place.top())),
                                QPoint(pixels.X(place.right()) - 1, pixels.Y(place.bottom()) - 1)),
                          ImageOf(picture));
        painter.setTransform(scaled);
        break;
      }
    }
  }
}

void PageDrawing::OnSheet(const Page& page, QPainter& painter) {
  for (const Operation& operation : page.Operations()) {
    switch (operation.kind) {
      case Kind::Text:
        Text(page, operation, painter);
        break;
      case Kind::Box:
        painter.fillRect(BoxOf(operation), ColourOf(operation));
        break;
      case Kind::Line:
        if (IsStraight(operation)) {
          painter.fillRect(BoxOfLine(operation), ColourOf(operation));
        } else {
          DrawSlantedLine(operation, painter);
        }
        break;
      case Kind::Picture: {
        const PictureRef& picture = page.PictureOf(operation);
        painter.drawImage(PlaceOf(operation, *picture), ImageOf(picture));
        break;
      }
    }
  }
}

}  // namespace tessera::qtpaper
