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

// The picture's own pixels, which must outlive the image.
QImage ImageOf(const Picture& picture) {
  if (picture.raster.IsEmpty()) return {};
  const Size size = picture.size();
  return QImage(reinterpret_cast<const uchar*>(picture.raster.Row(0)), size.width, size.height,
                QImage::Format_ARGB32_Premultiplied);
}

void DrawSlantedLine(const Operation& line, QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ColourOf(line), kLineTwips, Qt::SolidLine, Qt::SquareCap));
  painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
  painter.setRenderHint(QPainter::Antialiasing, false);
}

// Boxes and lines on the pixels of a raster: right beside the painter, which draws into the same memory.
class Pixels {
 public:
  Pixels(double scale, int left, int top, QPainter& painter, Raster& raster)
      : scale_(scale), left_(left), top_(top), painter_(painter), raster_(raster) {}

  void Box(const Operation& box) {
    const QRectF place = BoxOf(box);
    Fill(X(place.left()), Y(place.top()), X(place.right()), Y(place.bottom()), ColourOf(box).rgb());
  }

  // Every line is equally thick, wherever it falls between the pixels.
  void Line(const Operation& line) {
    const int thick = std::max(1, Nearest(kLineTwips * scale_));
    const auto edge = [&](double twips) { return Nearest(twips * scale_ - thick / 2.0); };
    Fill(edge(std::min(line.x1, line.x2)) - left_, edge(std::min(line.y1, line.y2)) - top_,
         edge(std::max(line.x1, line.x2)) + thick - left_, edge(std::max(line.y1, line.y2)) + thick - top_,
         ColourOf(line).rgb());
  }

  void Picture(const QRectF& place, const PictureRef& picture) {
    const QTransform scaled = painter_.transform();
    painter_.resetTransform();
    painter_.drawImage(
        QRect(QPoint(X(place.left()), Y(place.top())), QPoint(X(place.right()) - 1, Y(place.bottom()) - 1)),
        ImageOf(*picture));
    painter_.setTransform(scaled);
  }

 private:
  static int Nearest(double pixels) { return static_cast<int>(std::floor(pixels + 0.5)); }
  int X(double twips) const { return Nearest(twips * scale_) - left_; }
  int Y(double twips) const { return Nearest(twips * scale_) - top_; }

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
  QPainter& painter_;
  Raster& raster_;
};

// The same on a sheet.
class Sheet {
 public:
  Sheet(QPainter& painter, SheetImages& images) : painter_(painter), images_(images) {}

  void Box(const Operation& box) { painter_.fillRect(BoxOf(box), ColourOf(box)); }
  void Line(const Operation& line) { painter_.fillRect(BoxOfLine(line), ColourOf(line)); }
  void Picture(const QRectF& place, const PictureRef& picture) {
    painter_.drawImage(place, images_.Of(picture));
  }

 private:
  QPainter& painter_;
  SheetImages& images_;
};

}  // namespace

const QImage& SheetImages::Of(const PictureRef& picture) {
  constexpr std::size_t kMost = 16;
  if (images_.size() >= kMost && !images_.contains(picture)) images_.clear();
  QImage& image = images_[picture];
  if (image.isNull()) image = ImageOf(*picture);
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

template <typename Target>
void PageDrawing::Draw(const Page& page, QPainter& painter, Target target) {
  for (const Operation& operation : page.Operations()) {
    switch (operation.kind) {
      case Kind::Text:
        Text(page, operation, painter);
        break;
      case Kind::Box:
        target.Box(operation);
        break;
      case Kind::Line:
        if (IsStraight(operation)) {
          target.Line(operation);
        } else {
          DrawSlantedLine(operation, painter);
        }
        break;
      case Kind::Picture:
        target.Picture(PlaceOf(operation, *page.PictureOf(operation)), page.PictureOf(operation));
        break;
    }
  }
}

void PageDrawing::OnPixels(const Page& page, double pixelsOfTwip, int left, int top, Raster& raster) {
  constexpr Pixel kWhite = 0xFFFFFFFF;
  const Size size = raster.size();
  for (int y = 0; y < size.height; ++y) std::fill(raster.Row(y), raster.Row(y) + size.width, kWhite);
  QImage image(reinterpret_cast<uchar*>(raster.Row(0)), size.width, size.height,
               QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  painter.translate(-left, -top);
  painter.scale(pixelsOfTwip, pixelsOfTwip);
  Draw(page, painter, Pixels(pixelsOfTwip, left, top, painter, raster));
}

void PageDrawing::OnSheet(const Page& page, QPainter& painter, SheetImages& images) {
  Draw(page, painter, Sheet(painter, images));
}

}  // namespace tessera::qtpaper
