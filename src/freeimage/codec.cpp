// The codec of the part's entry point.
#include <cstring>
#include <memory>
#include <utility>

#include "freeimage/reading.h"
#include "freeimage/writing.h"
#include "windows/picture_codec.h"

namespace tessera::freeimage {

namespace {

class Codec final : public PictureCodec {
 public:
  PictureRef Decode(std::string_view bytes) override { return freeimage::Decode(bytes); }
  AnimationRef DecodeGif(std::string_view bytes) override { return freeimage::DecodeGif(bytes); }
  std::string EncodePng(const Raster& raster) override { return freeimage::EncodePng(raster); }
  std::string EncodePage(const Raster& page) override { return freeimage::EncodePage(page); }
  std::string EncodeBitmap(const Raster& raster) override { return freeimage::EncodeBitmap(raster); }
  std::string EncodeJpeg(const Raster& raster, int quality) override {
    return freeimage::EncodeJpeg(raster, quality);
  }

  PictureRef Rescale(const Picture& picture, Size size) override {
    const Size from = picture.size();
    if (picture.raster.IsEmpty() || size.width <= 0 || size.height <= 0) return nullptr;
    Picture scaled{.raster = Raster(size)};
    const Bitmap source(FreeImage_Allocate(from.width, from.height, 32));
    if (!source) return nullptr;
    for (int y = 0; y < from.height; ++y) {
      std::memcpy(FreeImage_GetScanLine(source.get(), from.height - 1 - y), picture.raster.Row(y),
                  static_cast<std::size_t>(from.width) * sizeof(Pixel));
    }
    const Bitmap result(FreeImage_Rescale(source.get(), size.width, size.height, FILTER_BILINEAR));
    if (!result) return nullptr;
    for (int y = 0; y < size.height; ++y) {
      std::memcpy(scaled.raster.Row(y), FreeImage_GetScanLine(result.get(), size.height - 1 - y),
                  static_cast<std::size_t>(size.width) * sizeof(Pixel));
    }
    return std::make_shared<const Picture>(std::move(scaled));
  }
};

}  // namespace

}  // namespace tessera::freeimage

extern "C" __attribute__((visibility("default"))) tessera::PictureCodec* TesseraPictureCodec() {
  static tessera::freeimage::Codec codec;
  return &codec;
}
