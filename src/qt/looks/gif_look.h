// The look of `GifAnimado`: the frame that its control shows.
#pragma once

#include "objects/gif_animado.h"
#include "qt/looks/look.h"

namespace tessera {

class GifLook final : public PaintedLook<GifControl> {
 public:
  GifLook(GifControl& control, LogicEntry& entry);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  bool afterDoubleClick_ = false;
};

}  // namespace tessera
