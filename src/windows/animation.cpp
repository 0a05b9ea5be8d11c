#include "windows/animation.h"

#include <algorithm>
#include <utility>

namespace tessera {

AnimationRef StillAnimation(PictureRef picture) {
  const Size size = picture->size();
  return std::make_shared<const Animation>(
      Animation{.size = size, .plays = 1, .frames = {{.picture = std::move(picture)}}});
}

Film::Film(AnimationRef animation) : animation_(std::move(animation)) {
  Begin();
}

void Film::Begin() {
  seen_ = Raster(animation_->size);
  frame_ = 0;
  Lay(animation_->frames.front());
}

void Film::Show(std::size_t frame) {
  if (frame < frame_) Begin();
  while (frame_ < frame) {
    Dispose(animation_->frames[frame_]);
    Lay(animation_->frames[++frame_]);
  }
}

void Film::Lay(const AnimationFrame& frame) {
  if (frame.disposal == Disposal::Restore) before_ = seen_;
  seen_.Lay(frame.picture->raster, frame.left, frame.top);
}

// A file that clears a frame means the ground that shines through, whatever colour it tells for it.
void Film::Dispose(const AnimationFrame& frame) {
  if (frame.disposal == Disposal::Restore) std::swap(seen_, before_);
  if (frame.disposal != Disposal::Clear) return;
  const Size size = frame.picture->size();
  const int right = std::min(frame.left + size.width, seen_.size().width) - 1;
  const int bottom = std::min(frame.top + size.height, seen_.size().height);
  if (frame.left > right) return;
  for (int y = frame.top; y < bottom; ++y) seen_.Fill({.y = y, .left = frame.left, .right = right}, 0);
}

}  // namespace tessera
