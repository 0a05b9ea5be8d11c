#include "qt/looks/skin.h"

#include <QPainter>
#include <QPolygonF>
#include <QWidget>
#include <algorithm>
#include <array>

namespace tessera::skin {

State StateOf(const QWidget& widget) {
  if (!widget.isEnabled()) return State::Disabled;
  if (widget.hasFocus()) return State::Focus;
  return widget.underMouse() ? State::Hover : State::Normal;
}

QColor EdgeOf(State state) {
  switch (state) {
    case State::Disabled:
      return kEdgeDisabled;
    case State::Focus:
    case State::Hover:
      return kAccent;
    case State::Normal:
      break;
  }
  return kEdge;
}

QColor TextColour(const QWidget& widget, const QColor& own) {
  return widget.isEnabled() ? own : QColor(kTextDisabled);
}

void PaintFrame(QPainter& painter, const QRectF& rect, const QColor& ground, State state) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(EdgeOf(state), 1));
  painter.setBrush(ground);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), kRound, kRound);
  painter.restore();
}

void PaintFocusMark(QPainter& painter, const QRectF& rect, const QColor& colour) {
  painter.save();
  QPen pen(colour, 1, Qt::CustomDashLine);
  pen.setDashPattern({1, 1});
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
  painter.restore();
}

void PaintArrow(QPainter& painter, const QRectF& rect, Direction direction, const QColor& colour) {
  const double size = std::min({rect.width(), rect.height(), 16.0}) * 0.25;
  constexpr std::array<double, 4> kTurns = {0, 180, -90, 90};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect.center());
  painter.rotate(kTurns[static_cast<std::size_t>(direction)]);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(QPolygonF({{-size, size / 2}, {size, size / 2}, {0, -size / 2}}));
  painter.restore();
}

}  // namespace tessera::skin
