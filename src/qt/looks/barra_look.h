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

  QBasicTimer Timer1_;
  ScrollBar::Part hovered_ = ScrollBar::Part::kNone;
};

}  // namespace tessera
