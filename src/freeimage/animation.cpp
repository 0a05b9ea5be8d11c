#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "freeimage/reading.h"
#include "windows/gif_layout.h"

namespace tessera::freeimage {

namespace {

struct CloseFrames {
  void operator()(FIMULTIBITMAP* frames) const { FreeImage_CloseMultiBitmap(frames); }
};
using Frames = std::unique_ptr<FIMULTIBITMAP, CloseFrames>;

// A number that the library found beside a frame.
template <typename T>
T Told(FIBITMAP* frame, const char* name, T otherwise) {
  FITAG* tag = nullptr;
  if (!FreeImage_GetMetadata(FIMD_ANIMATION, frame, name, &tag) || tag == nullptr) return otherwise;
  T value;
  std::memcpy(&value, FreeImage_GetTagValue(tag), sizeof value);
  return value;
}

// A file that tells no time for a frame, or none that an eye could see, gets the time that viewers give
// it.
std::chrono::milliseconds TimeOf(FIBITMAP* frame) {
  const auto told = Told<LONG>(frame, "FrameTime", 0);
  return told > 0 ? std::chrono::milliseconds(told) : kUntoldFrameTime;
}

}  // namespace

AnimationRef DecodeGif(std::string_view bytes) {
  const GifLayout layout = ReadGifLayout(bytes);
  const auto mostPixels = MostPixelsOf(bytes);
  if (layout.framePixels == 0 || layout.framePixels > mostPixels || layout.screenPixels > mostPixels)
    return nullptr;
  // The library takes no file that is cut: its end comes behind the last whole frame.
  std::string copy = std::string(bytes.substr(0, layout.end)) + ";";
  const Memory memory = OpenFile(copy);
  const Frames pages(FreeImage_LoadMultiBitmapFromMemory(FIF_GIF, memory.get(), GIF_DEFAULT));
  if (!pages) return nullptr;
  Animation animation;
  const int count = std::min(FreeImage_GetPageCount(pages.get()), layout.frames);
  for (int number = 0; number < count; ++number) {
    FIBITMAP* page = FreeImage_LockPage(pages.get(), number);
    if (page == nullptr) break;
    if (number == 0) {
      animation.size = {Told<WORD>(page, "LogicalWidth", 0), Told<WORD>(page, "LogicalHeight", 0)};
      animation.plays = Told<LONG>(page, "Loop", 1);
    }
    PictureRef picture = ToPicture(page);
    if (picture) {
      animation.frames.push_back({.picture = std::move(picture),
                                  .left = Told<WORD>(page, "FrameLeft", 0),
                                  .top = Told<WORD>(page, "FrameTop", 0),
                                  .time = TimeOf(page),
                                  .disposal = static_cast<Disposal>(Told<BYTE>(page, "DisposalMethod", 0))});
    }
    FreeImage_UnlockPage(pages.get(), page, FALSE);
    if (animation.frames.size() != static_cast<std::size_t>(number) + 1) break;
  }
  if (animation.frames.empty()) return nullptr;
  const Size first = animation.frames.front().picture->size();
  if (animation.size.width == 0 || animation.size.height == 0) animation.size = first;
  return std::make_shared<const Animation>(std::move(animation));
}

}  // namespace tessera::freeimage
