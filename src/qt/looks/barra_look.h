// The look of `BarraRolagem`, and the ticks of the timer that a held bar has.
#pragma once

#include <QBasicTimer>

#include "objects/barra_rolagem.h"
#include "qt/looks/look.h"

namespace tessera {

class BarraLook final : public PaintedLook<BarraControl> {
 public:
  using PaintedLook::PaintedLook;

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  int PositionOf(const QMouseEvent& event) const;
  std::string PressLine(const BarraControl& bar, int at);
  std::string DragLine(const BarraControl& bar, int at);
  std::string ValueLine(const BarraControl& bar, std::int32_t before) const;

  QBasicTimer Timer1_;
  ScrollBar tried_;
  ScrollBar::Part hovered_ = ScrollBar::Part::kNone;
};

}  // namespace tessera
