#include "qt/looks/seta_look.h"

#include <QMouseEvent>
#include <QPainter>

#include "qt/looks/skin.h"

namespace tessera {

namespace {

constexpr double kHalf = 5;  // of the arrow's height, in pixels
constexpr double kStroke = 1.8;

}  // namespace

// A chevron; the outer two arrows end at a bar.
void SetaLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool isPressed = control().IsPressed();
  if (isPressed || underMouse()) {
    painter.setPen(QPen(QColor(isPressed ? skin::kAccent : skin::kEdgeDisabled), 1));
    painter.setBrush(QColor(skin::kAccentLight));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), skin::kRound, skin::kRound);
  }
  const bool isBack = control().Index() < 2;
  const bool hasBar = control().Index() == 0 || control().Index() == 3;
  const double toward = isBack ? -1 : 1;
  const double shift = isPressed ? 1 : 0;
  const QPointF middle = QRectF(rect()).center() + QPointF(shift, shift);
  const QPointF tip = middle + QPointF(toward * (hasBar ? 1 : 2.5), 0);
  painter.setPen(QPen(QColor(isPressed ? skin::kAccent : skin::kEdge).darker(isPressed ? 100 : 160), kStroke,
                      Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(
      QPolygonF({tip + QPointF(-toward * kHalf, -kHalf), tip, tip + QPointF(-toward * kHalf, kHalf)}));
  if (!hasBar) return;
  const QPointF bar = tip + QPointF(toward * 3.5, 0);
  painter.drawLine(bar + QPointF(0, -kHalf), bar + QPointF(0, kHalf));
}

void SetaLook::enterEvent(QEnterEvent*) {
  update();
}

void SetaLook::leaveEvent(QEvent*) {
  update();
}

void SetaLook::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Glance([](reports::SetaControl& arrow) { arrow.PointerDown(); });
}

void SetaLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const bool inside = rect().contains(event->pos());
  Tell([inside](reports::SetaControl& arrow) { arrow.PointerUp(inside); },
       [inside](reports::SetaControl& arrow) {
         arrow.PointerUp(false);
         return inside ? ActLine({"clique", arrow.Name(), std::to_string(arrow.Index())}) : std::string();
       });
}

}  // namespace tessera
