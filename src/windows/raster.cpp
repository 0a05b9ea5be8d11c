#include "windows/raster.h"

#include <algorithm>
#include <cstdint>

#include "platform/failure.h"

namespace tessera {

namespace {

constexpr std::int64_t kMostPixels = 100'000'000;

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

// FAST: most pixels of most pictures hide all that is below them, or nothing.
void Raster::Lay(const Raster& above, std::int64_t left, std::int64_t top, Size part, Size within) {
  const std::int64_t firstRow = std::max<std::int64_t>(0, -top);
  const std::int64_t endRow = std::min<std::int64_t>({part.height, above.size_.height, within.height - top});
  const std::int64_t first = std::max<std::int64_t>(0, -left);
  const std::int64_t end = std::min<std::int64_t>({part.width, above.size_.width, within.width - left});
  if (first >= end) return;
  for (std::int64_t row = firstRow; row < endRow; ++row) {
    const Pixel* from = above.Row(static_cast<int>(row));
    Pixel* to = Row(static_cast<int>(top + row));
    for (std::int64_t x = first; x < end; ++x) {
      const Pixel opacity = from[x] >> 24;
      if (opacity == 255) {
        to[left + x] = from[x];
      } else if (opacity != 0) {
        to[left + x] = Blend(from[x], to[left + x]);
      }
    }
  }
}

void Raster::Fill(const Span& span, Pixel pixel) {
  std::fill(Row(span.y) + span.left, Row(span.y) + span.right + 1, pixel);
}

}  // namespace tessera
