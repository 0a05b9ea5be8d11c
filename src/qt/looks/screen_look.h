// The look of a moving picture: the frame of a video, or of a camera.
#pragma once

#include "media/screen_control.h"
#include "qt/looks/look.h"

namespace tessera {

class ScreenLook final : public PaintedLook<media::ScreenControl> {
 public:
  using PaintedLook::PaintedLook;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessera
