// A camera that sees pictures in files: one of them, or those of a folder in the order of their names' bytes,
// round and round, one at each look.
#pragma once

#include <string>
#include <vector>

#include "media/camera.h"
#include "platform/file_store.h"

namespace tessera {

class PictureCodec;

}  // namespace tessera

namespace tessera::media {

class FileCamera final : public Camera {
 public:
  // By the system's path. The codec and the store outlive the camera.
  FileCamera(PictureCodec& codec, FileStore& files, std::string path)
      : codec_(codec), files_(files), path_(std::move(path)) {}

  bool Connect() override;
  PictureRef Grab() override;
  void Disconnect() override { pictures_.clear(); }

 private:
  PictureCodec& codec_;
  FileStore& files_;
  std::string path_;
  std::vector<std::string> pictures_;  // those not found wanting; empty while it is not connected
  std::size_t next_ = 0;
};

}  // namespace tessera::media
