// Animated pictures: the frames of a file as they stand in it, and a film that lays them over each other.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "windows/picture.h"

namespace tessera {

// What becomes of a frame before the next one is laid over it, by its number in GIF files.
enum class Disposal : std::uint8_t { Untold = 0, Keep = 1, Clear = 2, Restore = 3 };

// What a frame lasts whose file doesn't tell.
inline constexpr std::chrono::milliseconds kUntoldFrameTime{100};

struct AnimationFrame {
  PictureRef picture;
  int left = 0;
  int top = 0;
  std::chrono::milliseconds time = kUntoldFrameTime;
  Disposal disposal = Disposal::Untold;
};

struct Animation {
  Size size;
  std::int64_t plays = 0;              // how often all frames are shown; 0 is without end
  std::vector<AnimationFrame> frames;  // one at least
};

using AnimationRef = std::shared_ptr<const Animation>;

// One frame.
AnimationRef StillAnimation(PictureRef picture);

// An animation at one of its frames. Going on by a frame costs one frame, going back all before it.
class Film {
 public:
  explicit Film(AnimationRef animation);

  const Animation& animation() const { return *animation_; }
  // From 0.
  std::size_t Frame() const { return frame_; }
  void Show(std::size_t frame);
  // The frame with all that shines through from those before it.
  const Raster& Seen() const { return seen_; }

 private:
  void Begin();
  void Lay(const AnimationFrame& frame);
  void Dispose(const AnimationFrame& frame);

  AnimationRef animation_;
  std::size_t frame_ = 0;
  Raster seen_;
  Raster before_;  // what the frame was laid over, where that comes back
};

}  // namespace tessera
