#include "runtime/given_devices.h"

#include "media/file_camera.h"
#include "media/sound_files.h"
#include "platform/part_library.h"
#include "platform/system_files.h"
#include "platform/system_reason.h"
#include "runtime/own_folder.h"
#include "text/code_page.h"
#include "windows/picture_codec.h"

namespace tessera {

namespace {

std::string ProblemOfMicrophone(const std::string& path) {
  auto [file, error] = SystemFiles().Open(path, OpenAs::Read);
  if (error != 0) return SystemReason(error);
  const PartEntry part = LoadPart(PartFolders(), "sound", media::kSoundFilesEntry, "libsndfile1");
  if (part.entry == nullptr) return ToUtf8(part.problem);
  const bool isKnown =
      reinterpret_cast<media::SoundFilesEntry>(part.entry)()->Open(std::move(file)) != nullptr;
  return isKnown ? "" : "não é um arquivo de som que se conheça (WAV, AIFF, FLAC ou OGG)";
}

std::string ProblemOfCamera(const std::string& path) {
  SystemFiles files;
  int error = 0;
  if (!files.IsFolder(path) && !files.IsFile(path, error)) return SystemReason(error == 0 ? ENOENT : error);
  const FoundCodec found = CodecOfPart(PartFolders())();
  if (found.codec == nullptr) return ToUtf8(found.problem);
  media::FileCamera camera(*found.codec, files, path);
  camera.Connect();
  return camera.Grab() ? "" : "não há ali uma figura que se conheça (BMP, GIF, ICO, JPEG ou PNG)";
}

std::string Told(const std::string& path, const std::string& problem) {
  return problem.empty() ? problem : path + ": " + problem;
}

}  // namespace

std::string ProblemOfDevices(const std::string& microphone, const std::string& camera) {
  const std::string problem =
      microphone.empty() ? std::string() : Told(microphone, ProblemOfMicrophone(microphone));
  if (!problem.empty() || camera.empty()) return problem;
  return Told(camera, ProblemOfCamera(camera));
}

}  // namespace tessera
