// The look of `MenuSistema`: a bar of tabs along the window's upper edge, each of which drops its menu.
#pragma once

#include "objects/menu_sistema.h"
#include "qt/looks/look.h"

namespace tessera {

class GuiaLook final : public PaintedLook<GuiaControl> {
 public:
  using PaintedLook::PaintedLook;

  void FollowControl() override;
  // Where a visible tab stands; empty for another.
  QRectF TabRect(std::size_t menu) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  double TabWidth(std::size_t menu) const;
  std::size_t TabAt(QPointF at) const;
  void DropMenu(std::size_t menu);

  std::size_t hovered_ = GuiaControl::kMenus;
  bool follows_ = false;  // the window's width
};

}  // namespace tessera
