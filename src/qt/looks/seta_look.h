// The look of `ImgSeta`, an arrow of the preview.
#pragma once

#include "qt/looks/look.h"
#include "reports/preview_controls.h"

namespace tessera {

class SetaLook final : public PaintedLook<reports::SetaControl> {
 public:
  using PaintedLook::PaintedLook;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
};

}  // namespace tessera
