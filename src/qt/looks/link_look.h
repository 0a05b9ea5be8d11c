// The look of `TxtLink`: an underlined text.
#pragma once

#include "objects/link.h"
#include "qt/looks/look.h"

namespace tessera {

class LinkLook final : public PaintedLook<LinkControl> {
 public:
  LinkLook(LinkControl& control, LogicEntry& entry);

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace tessera
