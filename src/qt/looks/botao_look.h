// The look of `BtnEsp`: a push button, or one drawn from the pictures of its skin.
#pragma once

#include "objects/botao.h"
#include "qt/looks/look.h"

namespace tessera {

class BotaoLook final : public PaintedLook<BotaoControl> {
 public:
  using PaintedLook::PaintedLook;

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

 private:
  void PaintPlain(QPainter& painter);
  void PaintSkinned(QPainter& painter);
  void PaintContent(QPainter& painter, const QColor& colour);
};

}  // namespace tessera
