#include "windows/shared_pictures.h"

#include <algorithm>
#include <chrono>

#include "commands/resolve_file.h"
#include "platform/failure.h"
#include "windows/picture_file.h"

namespace tessera {

namespace {

constexpr long kNoPicture = 481;
constexpr std::chrono::milliseconds kStockFrameTime{150};

// The bytes of the file that a program names; nothing where there is none.
std::optional<std::string> BytesOf(Run& run, std::string_view path) {
  const std::string resolved = ResolveFile(run, path);
  if (resolved.empty()) return std::nullopt;
  auto bytes = ReadPictureFile(run.host.files, run.paths.SystemPath(resolved));
  if (!bytes) Fail(kNoPicture);
  return bytes;
}

template <typename T, typename Decode>
std::shared_ptr<const T> Share(Shared<std::pair<std::size_t, std::size_t>, T>& shared,
                               const std::optional<std::string>& bytes, Decode decode) {
  if (!bytes) return nullptr;
  auto found = shared.Find({bytes->size(), std::hash<std::string_view>{}(*bytes)},
                           [&] { return decode(std::string_view(*bytes)); });
  if (!found) Fail(kNoPicture);
  return found;
}

PictureRef WithoutKey(const PictureRef& picture) {
  const Raster& from = picture->raster;
  const Size size = from.size();
  const Pixel key = from.At(0, 0);
  if (key == 0) return picture;
  Picture keyed{.raster = from};
  for (int y = 0; y < size.height; ++y) {
    Pixel* row = keyed.raster.Row(y);
    std::replace(row, row + size.width, key, Pixel{0});
  }
  return std::make_shared<const Picture>(std::move(keyed));
}

}  // namespace

PictureRef SharedPictures::OfFile(Run& run, std::string_view path) {
  return Share(pictures_, BytesOf(run, path), DecodePicture);
}

AnimationRef SharedPictures::AnimationOfFile(Run& run, std::string_view path) {
  return Share(animations_, BytesOf(run, path), DecodeAnimation);
}

PictureRef SharedPictures::Stock(StockKind kind, std::int32_t number) {
  return stock_.Find({kind, number}, [&] { return StockPicture(kind, number); });
}

AnimationRef SharedPictures::StockAnimation(std::int32_t number) {
  return stockAnimations_.Find(number, [&] {
    Animation animation;
    for (PictureRef& frame : StockFrames(number)) {
      animation.size = frame->size();
      // Each frame is a whole picture.
      animation.frames.push_back(
          {.picture = std::move(frame), .time = kStockFrameTime, .disposal = Disposal::Clear});
    }
    return std::make_shared<const Animation>(std::move(animation));
  });
}

PictureRef SharedPictures::Keyed(const PictureRef& picture) {
  const auto figure = keyed_.Find(picture.get(), [&] {
    return std::make_shared<const Figure>(Figure{.source = picture, .keyed = WithoutKey(picture)});
  });
  // The picture keeps its figure alive.
  return {figure, figure->keyed.get()};
}

}  // namespace tessera
