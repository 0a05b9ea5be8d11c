#include "media/media.h"

#include <utility>

#include "media/file_camera.h"
#include "media/file_microphone.h"
#include "media/page_view.h"
#include "media/silent_player.h"
#include "platform/file_store.h"
#include "platform/part_library.h"

namespace tessera::media {

void* Media::Load(Part& part, std::string_view name, const char* entry, std::string_view package) {
  if (!std::exchange(part.isSought, true)) {
    const PartEntry loaded = LoadPart(services_.partFolders, name, entry, package);
    part.entry = loaded.entry;
    if (part.entry == nullptr) ShowCritical(run_, loaded.problem);
  }
  return part.entry;
}

SoundFiles* Media::Sounds() {
  void* const entry = Load(sounds_, "sound", kSoundFilesEntry, "libsndfile1");
  return entry == nullptr ? nullptr : reinterpret_cast<SoundFilesEntry>(entry)();
}

MediaMachine* Media::Machine() {
  if (!services_.host.Plays()) return nullptr;
  void* const entry = Load(machine_, "media", kMediaMachineEntry, "libqt6multimedia6");
  if (entry == nullptr) return nullptr;
  MediaMachine* const machine = reinterpret_cast<MediaMachineEntry>(entry)();
  const std::string problem = machine->PlayingProblem();
  if (problem.empty()) return machine;
  if (!std::exchange(isProblemTold_, true)) ShowCritical(run_, problem);
  return nullptr;
}

std::unique_ptr<Player> Media::NewPlayer(FrameSink frames) {
  if (MediaMachine* const machine = Machine()) return machine->NewPlayer(std::move(frames));
  return std::make_unique<SilentPlayer>(run_.host.events);
}

std::unique_ptr<Microphone> Media::NewMicrophone() {
  if (!services_.microphone.empty()) {
    SoundFiles* const sounds = Sounds();
    if (sounds == nullptr) return nullptr;
    return std::make_unique<FileMicrophone>(*sounds, run_.host, services_.microphone);
  }
  MediaMachine* const machine = Machine();
  return machine == nullptr ? nullptr : machine->NewMicrophone();
}

std::unique_ptr<Camera> Media::NewCamera() {
  if (!services_.camera.empty()) {
    PictureCodec* const codec = pictures_.Codec();
    if (codec == nullptr) return nullptr;
    return std::make_unique<FileCamera>(*codec, run_.host.files, services_.camera);
  }
  MediaMachine* const machine = Machine();
  return machine == nullptr ? nullptr : machine->NewCamera();
}

void* Media::PageViews() {
  return Load(pageViews_, "web", kPageViewEntry, "libqt6webenginewidgets6");
}

Milliseconds Media::LengthOf(const std::string& path) {
  SoundFiles* const sounds = Sounds();
  auto [file, error] = run_.host.files.Open(path, OpenAs::Read);
  if (sounds == nullptr || error != 0) return {};
  const std::unique_ptr<SoundReader> sound = sounds->Open(std::move(file));
  return sound ? sound->Length() : Milliseconds(0);
}

}  // namespace tessera::media
