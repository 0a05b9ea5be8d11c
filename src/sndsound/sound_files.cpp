// The part's entry point.
#include "media/sound_files.h"

#include "sndsound/reader.h"
#include "sndsound/wave_writer.h"

namespace tessera::sndsound {

namespace {

class Files final : public media::SoundFiles {
 public:
  std::unique_ptr<media::SoundReader> Open(std::unique_ptr<StoredFile> file) override {
    return Reader::Open(std::move(file));
  }
  std::unique_ptr<media::WaveWriter> NewWave(Store store) override { return Writer::Begin(std::move(store)); }
};

}  // namespace

}  // namespace tessera::sndsound

extern "C" __attribute__((visibility("default"))) tessera::media::SoundFiles* TesseraSoundFiles() {
  static tessera::sndsound::Files files;
  return &files;
}
