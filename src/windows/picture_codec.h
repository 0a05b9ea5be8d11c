// What reads and writes the files of pictures. It stands on a heavy library, and so in a part of the system
// that is loaded when a program first needs it; another host may give another. Icons are read in
// icon_picture.h, the system's own pictures in stock_pictures.h, both without it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "windows/animation.h"
#include "windows/picture.h"

namespace tessera {

// More pixels, or all frames of an animation together, no screen could show: a file that claims them is
// damaged.
inline constexpr std::uint64_t kMostPixelsOfPicture = 100'000'000;

// The bytes that a file of these formats begins with.
inline constexpr std::string_view kPngStart = "\x89PNG";
inline constexpr std::string_view kGifStart = "GIF8";

class PictureCodec {
 public:
  virtual ~PictureCodec() = default;

  // The picture of a BMP, GIF, JPEG or PNG file, known by its bytes; an animation's first frame. Null for
  // bytes that are damaged or something else.
  virtual PictureRef Decode(std::string_view bytes) = 0;
  // The frames of a GIF file as far as they are whole; null where not even the first is a picture.
  virtual AnimationRef DecodeGif(std::string_view bytes) = 0;

  // The bytes of a file; empty where the memory is short. What is transparent stays so in `EncodePng` alone:
  // pages are opaque, and in bitmaps and JPEGs white stands for it. A page of few colours gets a palette; a
  // quality goes from 1 to 100.
  virtual std::string EncodePng(const Raster& raster) = 0;
  virtual std::string EncodePage(const Raster& page) = 0;
  virtual std::string EncodeBitmap(const Raster& raster) = 0;
  virtual std::string EncodeJpeg(const Raster& raster, int quality) = 0;

  // The picture at another size, its pixels mixed. Null for a size without pixels, or where the memory is
  // short.
  virtual PictureRef Rescale(const Picture& picture, Size size) = 0;
};

// The entry point of the part: the codec, which lives to the end.
inline constexpr const char* kPictureCodecEntry = "TesseraPictureCodec";
using PictureCodecEntry = PictureCodec* (*)();

struct FoundCodec {
  PictureCodec* codec = nullptr;
  std::string problem = {};  // why there is none, as program text
};

// Asked at the first need.
using PictureCodecFinder = std::function<FoundCodec()>;

// Of a host that has none.
FoundCodec NoPictureCodec();

// That of the part in the first of `folders` that has it.
PictureCodecFinder CodecOfPart(std::vector<std::filesystem::path> folders);

}  // namespace tessera
