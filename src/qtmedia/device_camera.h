// The system's camera.
#pragma once

#include <QCamera>
#include <QMediaCaptureSession>
#include <QVideoSink>
#include <memory>

#include "media/camera.h"

namespace tessera::qtmedia {

class DeviceCamera final : public media::Camera {
 public:
  bool Connect() override;
  PictureRef Grab() override;
  void Disconnect() override;

 private:
  QVideoSink screen_;
  QMediaCaptureSession session_;
  std::unique_ptr<QCamera> camera_;  // while it is connected
};

}  // namespace tessera::qtmedia
