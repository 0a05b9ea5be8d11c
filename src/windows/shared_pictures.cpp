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

PictureCodec* SharedPictures::SilentCodec() {
  if (findCodec_) found_ = std::exchange(findCodec_, nullptr)();
  return found_.codec;
}

PictureCodec* SharedPictures::Codec() {
  PictureCodec* const codec = SilentCodec();
  if (codec == nullptr && !std::exchange(isProblemTold_, true)) ShowCritical(run_, found_.problem);
  return codec;
}

template <typename T, typename Decode>
std::shared_ptr<const T> SharedPictures::Share(Shared<Content, T>& shared, std::string_view path,
                                               Decode decode) {
  const std::optional<std::string> bytes = BytesOf(run_, path);
  if (!bytes) return nullptr;
  PictureCodec* const codec = Codec();
  if (codec == nullptr) Fail(kNoPicture);
  auto found = shared.Find({bytes->size(), std::hash<std::string_view>{}(*bytes)},
                           [&] { return decode(*codec, *bytes); });
  if (!found) Fail(kNoPicture);
  return found;
}

PictureRef SharedPictures::OfFile(std::string_view path) {
  return Share(pictures_, path, DecodePicture);
}

AnimationRef SharedPictures::AnimationOfFile(std::string_view path) {
  return Share(animations_, path, DecodeAnimation);
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
