// What a host makes of sound, video and pages beside the windows that it shows.
#pragma once

#include <string_view>

namespace tessera::media {

class MediaHost {
 public:
  virtual ~MediaHost() = default;
  // Whether sounds are heard, and videos and pages seen; elsewhere only time goes by.
  virtual bool Plays() const { return false; }
  // The browser is sent to a page, by the address that the program gave it.
  virtual void TellAddress(std::string_view /*address*/) {}
  // A file begins to play, by the name that the program gave it.
  virtual void TellPlaying(std::string_view /*file*/) {}
};

}  // namespace tessera::media
