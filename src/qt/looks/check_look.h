// The looks of `Check` and `Opcao`: a mark, and the caption beside it.
#pragma once

#include "objects/check.h"
#include "qt/looks/look.h"

namespace tessera {

class CheckLook : public PaintedLook<CheckControl> {
 public:
  using PaintedLook::PaintedLook;

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

  virtual void PaintMark(QPainter& painter, const QRectF& box);

 private:
  bool isPressed_ = false;
};

class OpcaoLook final : public CheckLook {
 public:
  OpcaoLook(OpcaoControl& control, LogicEntry& entry) : CheckLook(control, entry) {}

 protected:
  void PaintMark(QPainter& painter, const QRectF& box) override;
};

}  // namespace tessera
