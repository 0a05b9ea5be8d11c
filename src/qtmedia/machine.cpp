// The part's entry point.
#include <QtGlobal>

#include "media/media_machine.h"
#include "qtmedia/codecs.h"
#include "qtmedia/device_camera.h"
#include "qtmedia/device_microphone.h"
#include "qtmedia/file_player.h"

namespace tessera::qtmedia {

namespace {

class Machine final : public media::MediaMachine {
 public:
  // The toolkit's other ground plays no sound without a device, or ends the process there.
  Machine() { qputenv("QT_MEDIA_BACKEND", "gstreamer"); }

  std::string PlayingProblem() override {
    const std::string missing = MissingPackage();
    return missing.empty() ? missing : "Instale o pacote " + missing;
  }
  std::unique_ptr<media::Player> NewPlayer(media::FrameSink frames) override {
    return std::make_unique<FilePlayer>(std::move(frames));
  }
  std::unique_ptr<media::Microphone> NewMicrophone() override { return std::make_unique<DeviceMicrophone>(); }
  std::unique_ptr<media::Camera> NewCamera() override { return std::make_unique<DeviceCamera>(); }
};

}  // namespace

}  // namespace tessera::qtmedia

extern "C" __attribute__((visibility("default"))) tessera::media::MediaMachine* TesseraMediaMachine() {
  static tessera::qtmedia::Machine machine;
  return &machine;
}
