// The look of `Rot`, the label.
#pragma once

#include "objects/rotulo.h"
#include "qt/looks/look.h"

namespace tessera {

class RotuloLook final : public PaintedLook<RotuloControl> {
 public:
  using PaintedLook::PaintedLook;

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  // Whether each line has room as it was written.
  bool Fits(const QString& caption) const;

  bool afterDoubleClick_ = false;
};

}  // namespace tessera
