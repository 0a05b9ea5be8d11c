// What plays a file of sound or video.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "windows/picture.h"

namespace tessera::media {

using Milliseconds = std::chrono::milliseconds;

class Player {
 public:
  virtual ~Player() = default;

  // Closes what was open; the file, by the system's path, stands at its start. It is there and can be read. A
  // length of 0 is for the player to find out.
  virtual void Open(const std::string& path, Milliseconds length) = 0;
  // From where it stands; nothing at the end.
  virtual void Play() = 0;
  // Keeps the place.
  virtual void Pause() = 0;
  virtual void Close() = 0;

  // The length and the place of the open file, which at its end is the length; a length of 0 is not known.
  virtual Milliseconds Length() const = 0;
  virtual Milliseconds Position() const = 0;
  // It played to the end, and nothing came behind.
  virtual bool HasEnded() const = 0;

  // Whether it may still find out what it has opened.
  virtual bool IsLoading() const { return false; }
  // Why the file can't be played, once, as program text; empty where it can, or is told already.
  virtual std::string TakeProblem() { return {}; }
};

// Takes the pictures of a video as they come.
using FrameSink = std::function<void(PictureRef frame)>;

}  // namespace tessera::media
