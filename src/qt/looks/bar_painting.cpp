#include "qt/looks/bar_painting.h"

#include <QColor>
#include <QLinearGradient>
#include <QPainter>

#include "qt/looks/skin.h"

namespace tessera::skin {

namespace {

constexpr QRgb kTrough = 0xFFE4E8EC;
constexpr QRgb kPiece = 0xFFF4F6F8;
constexpr QRgb kMark = 0xFF4A545E;
constexpr double kGripStep = 3;
constexpr double kGripLength = 6;

enum class Face { Normal, Hovered, Pressed, Disabled };

Face FaceOf(const ScrollBar& bar, ScrollBar::Part part, ScrollBar::Part hovered) {
  if (!bar.Enabled()) return Face::Disabled;
  if (bar.Held() == part) return Face::Pressed;
  return hovered == part && bar.Held() == ScrollBar::Part::kNone ? Face::Hovered : Face::Normal;
}

QColor GroundOf(Face face) {
  switch (face) {
    case Face::Disabled:
      return kFieldDisabled;
    case Face::Pressed:
      return kAccent;
    case Face::Hovered:
      return kAccentLight;
    case Face::Normal:
      break;
  }
  return kPiece;
}

QColor EdgeOf(Face face) {
  if (face == Face::Disabled) return kEdgeDisabled;
  return face == Face::Normal ? kEdge : kAccent;
}

QColor MarkOf(Face face) {
  if (face == Face::Disabled) return kEdgeDisabled;
  return face == Face::Pressed ? QColor(Qt::white) : QColor(kMark);
}

// A piece of the bar between two places along it.
QRectF PieceOf(const QRectF& rect, Qt::Orientation orientation, int from, int length) {
  if (orientation == Qt::Horizontal) return {rect.left() + from, rect.top(), double(length), rect.height()};
  return {rect.left(), rect.top() + from, rect.width(), double(length)};
}

// Light falls across the bar.
void PaintPiece(QPainter& painter, const QRectF& piece, Qt::Orientation orientation, Face face) {
  const QColor ground = GroundOf(face);
  const QPointF across = orientation == Qt::Horizontal ? piece.bottomLeft() : piece.topRight();
  QLinearGradient light(piece.topLeft(), across);
  light.setColorAt(0, face == Face::Normal ? ground.lighter(104) : ground);
  light.setColorAt(1, ground.darker(106));
  painter.setPen(QPen(EdgeOf(face), 1));
  painter.setBrush(light);
  painter.drawRoundedRect(piece.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

// Three short lines across the thumb.
void PaintGrip(QPainter& painter, const QRectF& thumb, Qt::Orientation orientation, const QColor& colour) {
  const QPointF middle(qRound(thumb.center().x()), qRound(thumb.center().y()));
  for (const double step : {-kGripStep, 0.0, kGripStep}) {
    const QRectF line = orientation == Qt::Horizontal ? QRectF(step, -kGripLength / 2, 1, kGripLength)
                                                      : QRectF(-kGripLength / 2, step, kGripLength, 1);
    painter.fillRect(line.translated(middle), colour);
  }
}

}  // namespace

void PaintBar(QPainter& painter, const QRectF& rect, Qt::Orientation orientation, const ScrollBar& bar,
              ScrollBar::Part hovered) {
  const bool isHorizontal = orientation == Qt::Horizontal;
  const int length = qRound(isHorizontal ? rect.width() : rect.height());
  painter.save();
  painter.fillRect(rect, QColor(bar.Enabled() ? kTrough : kFieldDisabled));
  painter.setRenderHint(QPainter::Antialiasing);

  const auto arrow = [&](ScrollBar::Part part, int from, Direction direction) {
    const Face face = FaceOf(bar, part, hovered);
    const QRectF piece = PieceOf(rect, orientation, from, bar.ArrowLength());
    PaintPiece(painter, piece, orientation, face);
    PaintArrow(painter, piece, direction, MarkOf(face));
  };
  arrow(ScrollBar::Part::kFirstArrow, 0, isHorizontal ? Direction::Left : Direction::Up);
  arrow(ScrollBar::Part::kSecondArrow, length - bar.ArrowLength(),
        isHorizontal ? Direction::Right : Direction::Down);

  // A bar that has nothing to move over shows no thumb.
  if (bar.Enabled() && bar.Max() > 0) {
    const Face face = FaceOf(bar, ScrollBar::Part::kThumb, hovered);
    const QRectF piece = PieceOf(rect, orientation, bar.ThumbPosition(), bar.ThumbLength());
    PaintPiece(painter, piece, orientation, face);
    PaintGrip(painter, piece, orientation, MarkOf(face));
  }
  painter.restore();
}

}  // namespace tessera::skin
