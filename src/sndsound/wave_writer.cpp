#include "sndsound/wave_writer.h"

namespace tessera::sndsound {

static_assert(sizeof(media::SoundFrame) == media::kChannels * sizeof(std::int16_t));
static_assert(media::kBitsPerSample == 16);

std::unique_ptr<Writer> Writer::Begin(media::SoundFiles::Store store) {
  std::unique_ptr<Writer> writer(new Writer(std::move(store)));
  SF_INFO info{};
  info.samplerate = media::kSamplesPerSecond;
  info.channels = media::kChannels;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  writer->sound_ = writer->bytes_.Open(SFM_WRITE, info);
  if (!writer->sound_ || writer->bytes_.error() != 0) return nullptr;
  return writer;
}

bool Writer::Write(std::span<const media::SoundFrame> frames) {
  const auto count = static_cast<sf_count_t>(frames.size());
  return sf_writef_short(sound_.get(), &frames.data()->left, count) == count && bytes_.error() == 0;
}

// The library writes the lengths of what it wrote when it closes.
bool Writer::Finish() {
  sound_.reset();
  return bytes_.error() == 0;
}

}  // namespace tessera::sndsound
