#include "windows/raster.h"

#include <algorithm>

#include "platform/failure.h"

namespace tessera {

namespace {

constexpr std::int64_t kMostPixels = 64'000'000;

}  // namespace

Pixel PixelOf(std::uint32_t colour, Pixel opacity) {
  Pixel pixel = opacity << 24;
  for (const int shift : {0, 8, 16}) pixel |= ((colour >> shift & 0xFF) * opacity + 127) / 255 << shift;
  return pixel;
}

Pixel Blend(Pixel above, Pixel below) {
  const Pixel through = 255 - (above >> 24);
  Pixel blended = 0;
  for (const int shift : {0, 8, 16, 24}) {
    const Pixel low = (below >> shift & 0xFF) * through + 127;
    blended |= ((above >> shift & 0xFF) + low / 255) << shift;
  }
  return blended;
}

void Raster::Grow(Size size) {
  const Size wanted{std::max(size.width, size_.width), std::max(size.height, size_.height)};
  if (wanted == size_) return;
  if (std::int64_t{wanted.width} * wanted.height > kMostPixels) FailMemory();
  Raster grown;
  grown.size_ = wanted;
  grown.pixels_.resize(grown.Offset(wanted.height));
  for (int y = 0; y < size_.height; ++y) std::copy_n(Row(y), size_.width, grown.Row(y));
  *this = std::move(grown);
}

void Raster::Clear() {
  std::fill(pixels_.begin(), pixels_.end(), Pixel{0});
}

void Raster::Fill(const Span& span, Pixel pixel) {
  std::fill(Row(span.y) + span.left, Row(span.y) + span.right + 1, pixel);
}

}  // namespace tessera
