// What a program sees pictures through.
#pragma once

#include "windows/picture.h"

namespace tessera::media {

class Camera {
 public:
  virtual ~Camera() = default;
  // False where there is none.
  virtual bool Connect() = 0;
  // The picture of this moment; none while there is none yet.
  virtual PictureRef Grab() = 0;
  virtual void Disconnect() = 0;
};

}  // namespace tessera::media
