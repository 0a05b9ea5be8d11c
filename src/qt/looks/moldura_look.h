// The look of `SpecialFrame`: a line around, broken behind the caption.
#pragma once

#include "objects/moldura.h"
#include "qt/looks/look.h"

namespace tessera {

class MolduraLook final : public PaintedLook<MolduraControl> {
 public:
  MolduraLook(MolduraControl& control, LogicEntry& entry);

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessera
