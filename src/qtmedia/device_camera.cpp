#include "qtmedia/device_camera.h"

#include <QMediaDevices>
#include <QVideoFrame>

#include "qtmedia/frames.h"

namespace tessera::qtmedia {

bool DeviceCamera::Connect() {
  const QCameraDevice device = QMediaDevices::defaultVideoInput();
  if (device.isNull()) return false;
  camera_ = std::make_unique<QCamera>(device);
  session_.setVideoSink(&screen_);
  session_.setCamera(camera_.get());
  camera_->start();
  return true;
}

PictureRef DeviceCamera::Grab() {
  return camera_ ? PictureOf(screen_.videoFrame()) : nullptr;
}

void DeviceCamera::Disconnect() {
  if (camera_) camera_->stop();
  session_.setCamera(nullptr);
  camera_.reset();
}

}  // namespace tessera::qtmedia
