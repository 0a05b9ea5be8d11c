// `Gravador`, which records sound, and `GravaSom`, the word in front of it. The device is led through its
// steps one by one; each tells whether it could be done, and most have a message for where it could not.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "media/keyword_call.h"
#include "media/media.h"
#include "media/recording.h"

namespace tessera::media {

class Gravador {
 public:
  // The run and the media outlive it. `most` frames are in a recording.
  Gravador(CommandTable& table, Run& run, Media& media, std::uint64_t most = kMostFrames);
  ~Gravador();
  Gravador(const Gravador&) = delete;
  Gravador& operator=(const Gravador&) = delete;

 private:
  Value GravaSom(const WordCall& call);
  void Iniciar(const ArgumentView& arguments);
  void Parar(const ArgumentView& arguments);
  void Salvar(const ArgumentView& arguments);

  // The steps of the device.
  void OpenDevice();
  void SetFormat();
  void StartRecording();
  void StopRecording();
  void SaveRecording(const std::string& name);
  void CloseDevice();

  bool SeekToStart();
  // False where the disk, or the part that writes such files, refuses; `error` is the system's.
  bool WriteWave(const std::string& place, int& error);
  void Tell(std::string_view message);

  Run& run_;
  Media& media_;
  std::uint64_t most_;
  std::unique_ptr<Microphone> device_;  // while it is open
  RecordingFormat format_;
  std::optional<Recording> recording_;
  LocalTime startedAt_{};
};

}  // namespace tessera::media
