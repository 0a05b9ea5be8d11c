// A control that shows a moving picture: that of a video, or of a camera.
#pragma once

#include "windows/control.h"
#include "windows/picture.h"

namespace tessera::media {

class ScreenControl : public Control {
 public:
  using Control::Control;

  // None shows the plain ground.
  const PictureRef& Frame() const { return frame_; }
  void SetFrame(PictureRef frame) { Set(frame_, std::move(frame)); }

  // Where a frame of that size lies on the control, its aspect kept.
  virtual ControlPlace PlaceOfFrame(Size frame) const = 0;

 private:
  PictureRef frame_;
};

}  // namespace tessera::media
