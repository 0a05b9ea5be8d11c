#include "media/silent_player.h"

#include <algorithm>

namespace tessera::media {

void SilentPlayer::Open(const std::string&, Milliseconds length) {
  Close();
  length_ = length;
  stood_ = Milliseconds(0);
  isOpen_ = true;
}

void SilentPlayer::Play() {
  if (!isOpen_ || isPlaying_) return;
  since_ = events_.DispatchTime();
  isPlaying_ = true;
}

void SilentPlayer::Pause() {
  stood_ = Position();
  isPlaying_ = false;
}

void SilentPlayer::Close() {
  isOpen_ = isPlaying_ = false;
}

Milliseconds SilentPlayer::Position() const {
  const Milliseconds place = stood_ + (isPlaying_ ? events_.DispatchTime() - since_ : Milliseconds(0));
  return length_.count() > 0 ? std::min(place, length_) : place;
}

}  // namespace tessera::media
