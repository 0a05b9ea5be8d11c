// Plays in time alone: nothing is heard, and the place goes on as the timers' time does.
#pragma once

#include "media/player.h"
#include "platform/host.h"

namespace tessera::media {

class SilentPlayer final : public Player {
 public:
  // `events` outlives the player.
  explicit SilentPlayer(EventDispatch& events) : events_(events) {}

  void Open(const std::string& path, Milliseconds length) override;
  void Play() override;
  void Pause() override;
  void Close() override;

  Milliseconds Length() const override { return length_; }
  Milliseconds Position() const override;
  bool HasEnded() const override { return isPlaying_ && length_.count() > 0 && Position() >= length_; }

 private:
  EventDispatch& events_;
  Milliseconds length_{0};
  // Where it stood when it was started or held, and when that was.
  Milliseconds stood_{0};
  Milliseconds since_{0};
  bool isOpen_ = false;
  bool isPlaying_ = false;
};

}  // namespace tessera::media
