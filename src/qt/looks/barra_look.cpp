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
  const int at = PositionOf(*event);
  Tell([at](BarraControl& bar) { bar.PointerDown(at); },
       [&](const BarraControl& bar) { return PressLine(bar, at); });
}

void BarraLook::mouseMoveEvent(QMouseEvent* event) {
  const int at = PositionOf(*event);
  hovered_ = control().State().PartAt(at);
  update();
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  Tell([at](BarraControl& bar) { bar.PointerMove(at); },
       [&](const BarraControl& bar) { return DragLine(bar, at); });
}

void BarraLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Tell([](BarraControl& bar) { bar.PointerUp(); });
}

void BarraLook::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y() + event->angleDelta().x();
  if (turned == 0) return;
  Tell([up = turned < 0](BarraControl& bar) { bar.PressArrow(up); },
       [up = turned < 0](const BarraControl& bar) {
         return ActLine({"seta", bar.Name(), up ? "+" : "-"});
       });
}

// What the pointer does to the bar is tried on a copy, for a script tells the value that comes of it.
std::string BarraLook::PressLine(const BarraControl& bar, int at) {
  tried_ = bar.State();
  tried_.Change = {};
  const ScrollBar::Part part = tried_.PartAt(at);
  if (part == ScrollBar::Part::kFirstArrow) return ActLine({"seta", bar.Name(), "-"});
  if (part == ScrollBar::Part::kSecondArrow) return ActLine({"seta", bar.Name(), "+"});
  const std::int32_t before = tried_.Value();
  tried_.PointerDown(at);
  return ValueLine(bar, before);
}

std::string BarraLook::DragLine(const BarraControl& bar, int at) {
  const std::int32_t before = tried_.Value();
  tried_.PointerMove(at);
  return ValueLine(bar, before);
}

std::string BarraLook::ValueLine(const BarraControl& bar, std::int32_t before) const {
  if (tried_.Value() == before) return {};
  return ActLine({"valor", bar.Name(), std::to_string(tried_.Value())});
}

void BarraLook::leaveEvent(QEvent*) {
  hovered_ = ScrollBar::Part::kNone;
  update();
}

void BarraLook::timerEvent(QTimerEvent*) {
  Tell([](BarraControl& bar) { bar.Tick(); });
}

}  // namespace tessera
