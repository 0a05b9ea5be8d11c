// What the words of media share: the parts that they stand on, each loaded at its first need, and the devices
// that whoever started the program gave it. A part that is missing is told in a box, once.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "media/camera.h"
#include "media/media_host.h"
#include "media/media_machine.h"
#include "media/microphone.h"
#include "media/player.h"
#include "media/sound_files.h"
#include "values/run.h"
#include "windows/shared_pictures.h"

namespace tessera::media {

// What a run with media needs beside its host. The files are the system's paths, in UTF-8, or empty.
struct MediaServices {
  MediaHost& host;
  std::vector<std::filesystem::path> partFolders;
  std::string microphone = {};  // a file of sound that the recorder hears
  std::string camera = {};      // a picture, or a folder of them, that the camera sees
};

class Media {
 public:
  // Both outlive it.
  Media(Run& run, SharedPictures& pictures, MediaServices services)
      : run_(run), pictures_(pictures), services_(std::move(services)) {}
  Media(const Media&) = delete;
  Media& operator=(const Media&) = delete;

  MediaHost& host() const { return services_.host; }

  // Null, behind its box, where the part is missing.
  SoundFiles* Sounds();
  // One that plays in time alone where nothing else can.
  std::unique_ptr<Player> NewPlayer(FrameSink frames);
  // Null where the machine has none.
  std::unique_ptr<Microphone> NewMicrophone();
  std::unique_ptr<Camera> NewCamera();

  // The entry point of the part that shows pages; null, behind its box, where it is missing.
  void* PageViews();

  // That of a file, by the system's path; 0 where it is not known.
  Milliseconds LengthOf(const std::string& path);

 private:
  // A part by its name, loaded at the first call.
  struct Part {
    void* entry = nullptr;
    bool isSought = false;
  };
  void* Load(Part& part, std::string_view name, const char* entry, std::string_view package);
  MediaMachine* Machine();

  Run& run_;
  SharedPictures& pictures_;
  MediaServices services_;
  Part sounds_;
  Part machine_;
  Part pageViews_;
  bool isProblemTold_ = false;
};

}  // namespace tessera::media
