// The pictures and animations of a run, each in memory once, however many objects show it. A picture lives as
// long as one of them does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "values/run.h"
#include "windows/animation.h"
#include "windows/picture.h"
#include "windows/picture_codec.h"
#include "windows/stock_pictures.h"

namespace tessera {

// What is alive of a kind, by a key.
template <typename Key, typename T>
class Shared {
 public:
  using Ref = std::shared_ptr<const T>;

  // The one that lives, else a new one; null where none can be made.
  template <typename Make>
  Ref Find(const Key& key, Make make) {
    if (const auto kept = kept_.find(key); kept != kept_.end()) {
      if (Ref alive = kept->second.lock()) return alive;
    }
    std::erase_if(kept_, [](const auto& entry) { return entry.second.expired(); });
    Ref made = make();
    if (made) kept_[key] = made;
    return made;
  }

 private:
  std::map<Key, std::weak_ptr<const T>> kept_;
};

class SharedPictures {
 public:
  // The run outlives it.
  SharedPictures(Run& run, PictureCodecFinder findCodec) : run_(run), findCodec_(std::move(findCodec)) {}

  // The codec, sought at the first call. Null where there is none; then the run's first `Codec` tells why in
  // a box.
  PictureCodec* Codec();
  PictureCodec* SilentCodec();

  // The picture of a file as a program names it; null where `ResolveFile` finds none. Failure 481 for a file
  // that holds no picture. FAST: a file with the bytes of a picture that lives is that picture.
  PictureRef OfFile(std::string_view path);
  AnimationRef AnimationOfFile(std::string_view path);

  PictureRef Stock(StockKind kind, std::int32_t number);
  AnimationRef StockAnimation(std::int32_t number);

  // The picture of a figure: the pixel at its upper left corner is the key, and all that are like it are
  // transparent.
  PictureRef Keyed(const PictureRef& picture);

 private:
  using Content = std::pair<std::size_t, std::size_t>;  // the length and the hash of a file's bytes
  using StockNumbered = std::pair<StockKind, std::int32_t>;

  template <typename T, typename Decode>
  std::shared_ptr<const T> Share(Shared<Content, T>& shared, std::string_view path, Decode decode);

  Run& run_;
  PictureCodecFinder findCodec_;  // none once it was asked
  FoundCodec found_;
  bool isProblemTold_ = false;
  Shared<Content, Picture> pictures_;
  Shared<Content, Animation> animations_;
  Shared<StockNumbered, Picture> stock_;
  Shared<std::int32_t, Animation> stockAnimations_;
  // A source that went may leave its address to another one; so it is kept beside what was made of it.
  struct Figure {
    PictureRef source;
    PictureRef keyed;
  };
  Shared<const Picture*, Figure> keyed_;
};

}  // namespace tessera
