#include "qt/looks/barra_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "qt/looks/bar_painting.h"
#include "qt/looks/skin.h"

namespace tessera {

void BarraLook::FollowControl() {
  const bool runs = control().State().TimerRuns();
  if (runs && !Timer1_.isActive()) Timer1_.start(ScrollBar::kTickMs, this);
  if (!runs) Timer1_.stop();
  update();
}

void BarraLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const bool isVertical = control().Direction() == BarDirection::Vertical;
  skin::PaintBar(painter, rect(), isVertical ? Qt::Vertical : Qt::Horizontal, control().State(), hovered_);
  if (hasFocus()) skin::PaintFocusMark(painter, QRectF(rect()), QColor(skin::kAccent));
}

int BarraLook::PositionOf(const QMouseEvent& event) const {
  return control().Direction() == BarDirection::Vertical ? event.pos().y() : event.pos().x();
}

void BarraLook::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Tell([at = PositionOf(*event)](BarraControl& bar) { bar.PointerDown(at); });
}

void BarraLook::mouseMoveEvent(QMouseEvent* event) {
  const int at = PositionOf(*event);
  hovered_ = control().State().PartAt(at);
  update();
  if (event->buttons().testFlag(Qt::LeftButton)) Tell([at](BarraControl& bar) { bar.PointerMove(at); });
}

void BarraLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Tell([](BarraControl& bar) { bar.PointerUp(); });
}

void BarraLook::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y() + event->angleDelta().x();
  if (turned != 0) Tell([up = turned < 0](BarraControl& bar) { bar.PressArrow(up); });
}

void BarraLook::leaveEvent(QEvent*) {
  hovered_ = ScrollBar::Part::kNone;
  update();
}

void BarraLook::timerEvent(QTimerEvent*) {
  Tell([](BarraControl& bar) { bar.Tick(); });
}

}  // namespace tessera
