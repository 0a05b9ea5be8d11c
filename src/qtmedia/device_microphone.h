// The system's sound input.
#pragma once

#include <QAudioDevice>
#include <QThread>
#include <memory>

#include "media/microphone.h"

namespace tessera::qtmedia {

// It hears in a thread of its own, so that nothing is lost while a program computes.
class DeviceMicrophone final : public media::Microphone {
 public:
  ~DeviceMicrophone() override { Stop(); }

  bool Open() override;
  bool SetFormat(const media::RecordingFormat& format) override;
  bool Start(media::Hearing hearing) override;
  void Stop() override;
  bool Close() override;

 private:
  QAudioDevice device_;  // null while it is closed
  media::RecordingFormat format_;
  std::unique_ptr<QThread> hearing_;
};

}  // namespace tessera::qtmedia
