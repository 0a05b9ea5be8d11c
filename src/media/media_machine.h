// What plays, hears and sees on a machine with windows: a part of its own, loaded at the first word of media.
#pragma once

#include <memory>

#include "media/camera.h"
#include "media/microphone.h"
#include "media/player.h"

namespace tessera::media {

class MediaMachine {
 public:
  virtual ~MediaMachine() = default;
  // What keeps it from playing at all, as program text; empty where nothing does.
  virtual std::string PlayingProblem() = 0;
  virtual std::unique_ptr<Player> NewPlayer(FrameSink frames) = 0;
  virtual std::unique_ptr<Microphone> NewMicrophone() = 0;
  virtual std::unique_ptr<Camera> NewCamera() = 0;
};

// The entry point of the part.
inline constexpr const char* kMediaMachineEntry = "TesseraMediaMachine";
using MediaMachineEntry = MediaMachine* (*)();

}  // namespace tessera::media
