#include "sndsound/reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace tessera::sndsound {

namespace {

using media::kSamplesPerSecond;
using media::SoundFrame;

// The library writes to stderr on some others.
constexpr std::array<std::string_view, 4> kKnownStarts = {"RIFF", "FORM", "fLaC", "OggS"};
constexpr std::size_t kStart = 4;
// More channels than any recording has; their samples would be read at once.
constexpr int kMostChannels = 64;
constexpr std::size_t kFramesAhead = 4096;

bool IsKnown(const StoredFile& file) {
  std::string start;
  file.ReadAt(0, kStart, start);
  return std::find(kKnownStarts.begin(), kKnownStarts.end(), start) != kKnownStarts.end();
}

std::int16_t Between(std::int16_t before, std::int16_t behind, std::int64_t part, std::int64_t whole) {
  return static_cast<std::int16_t>(before + (behind - before) * part / whole);
}

}  // namespace

std::unique_ptr<Reader> Reader::Open(std::unique_ptr<StoredFile> file) {
  if (!IsKnown(*file)) return nullptr;
  std::unique_ptr<Reader> reader(new Reader(std::move(file)));
  reader->sound_ = reader->bytes_.Open(SFM_READ, reader->info_);
  const SF_INFO& info = reader->info_;
  if (!reader->sound_ || info.samplerate <= 0 || info.channels <= 0 || info.channels > kMostChannels ||
      info.frames < 0)
    return nullptr;
  sf_command(reader->sound_.get(), SFC_SET_SCALE_FLOAT_INT_READ, nullptr, SF_TRUE);
  sf_command(reader->sound_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
  return reader;
}

// A file that doesn't tell its length says the largest number.
std::chrono::milliseconds Reader::Length() const {
  constexpr sf_count_t kMostFrames = SF_COUNT_MAX / 1000;
  if (info_.frames > kMostFrames) return {};
  return std::chrono::milliseconds(info_.frames * 1000 / info_.samplerate);
}

bool Reader::Next(SoundFrame& frame) {
  const auto channels = static_cast<std::size_t>(info_.channels);
  if (next_ == samples_.size()) {
    samples_.resize(kFramesAhead * channels);
    const sf_count_t read = sf_readf_short(sound_.get(), samples_.data(), kFramesAhead);
    samples_.resize(static_cast<std::size_t>(std::max<sf_count_t>(read, 0)) * channels);
    next_ = 0;
    if (samples_.empty()) return false;
  }
  frame.left = samples_[next_];
  frame.right = samples_[next_ + (channels > 1 ? 1 : 0)];
  next_ += channels;
  return true;
}

// Behind the last frame lies nothing more.
void Reader::Advance() {
  before_ = behind_;
  if (place_ == Place::AtLast) {
    place_ = Place::Behind;
  } else if (!Next(behind_)) {
    place_ = Place::AtLast;
  }
}

// Straight lines lie between the frames of a file in another rate.
std::size_t Reader::Read(std::span<SoundFrame> frames) {
  if (place_ == Place::Start) {
    place_ = Next(behind_) ? Place::Within : Place::Behind;
    if (place_ == Place::Within) Advance();
  }
  std::size_t count = 0;
  while (count < frames.size() && place_ != Place::Behind) {
    frames[count++] = {Between(before_.left, behind_.left, part_, kSamplesPerSecond),
                       Between(before_.right, behind_.right, part_, kSamplesPerSecond)};
    for (part_ += info_.samplerate; part_ >= kSamplesPerSecond; part_ -= kSamplesPerSecond) Advance();
  }
  return count;
}

}  // namespace tessera::sndsound
