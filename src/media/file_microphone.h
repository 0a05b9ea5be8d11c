// A microphone that hears a file of sound in the timers' time, from its start at each recording; behind its
// end it hears silence.
#pragma once

#include <memory>
#include <string>

#include "media/microphone.h"
#include "media/player.h"
#include "media/sound_files.h"
#include "platform/host.h"

namespace tessera::media {

class FileMicrophone final : public Microphone {
 public:
  // The file by the system's path. All outlive the microphone.
  FileMicrophone(SoundFiles& sounds, const Host& host, std::string file)
      : sounds_(sounds), host_(host), file_(std::move(file)) {}

  bool Open() override { return isOpen_ = true; }
  bool SetFormat(const RecordingFormat&) override { return isOpen_; }
  bool Start(Hearing hearing) override;
  void Stop() override;
  bool Close() override;

 private:
  SoundFiles& sounds_;
  const Host& host_;
  std::string file_;
  bool isOpen_ = false;
  Hearing hearing_;  // while it hears
  Milliseconds since_{0};
};

}  // namespace tessera::media
