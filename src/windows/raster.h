// A plain picture in memory, on which every host draws alike: rows of 32-bit pixels from the top down. A
// pixel is 0xAARRGGBB with its colours multiplied by its opacity; 0 lets the ground through.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessera {

using Pixel = std::uint32_t;

struct Size {
  int width = 0;
  int height = 0;

  bool Holds(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
  friend bool operator==(const Size&, const Size&) = default;
};

// Pixels of one row, both ends included.
struct Span {
  int y;
  int left;
  int right;

  friend bool operator==(const Span&, const Span&) = default;
};

using Spans = std::vector<Span>;

// A colour 0xRRGGBB at an opacity from 0 to 255.
Pixel PixelOf(std::uint32_t colour, Pixel opacity);

// `above` laid over `below`.
Pixel Blend(Pixel above, Pixel below);

class Raster {
 public:
  Raster() = default;
  explicit Raster(Size size) { Grow(size); }

  Size size() const { return size_; }
  bool IsEmpty() const { return pixels_.empty(); }

  // Room for at least `size`; the new pixels are transparent, and what is there stays. Failure 7 for more
  // pixels than any screen has, before their memory is taken.
  void Grow(Size size);
  void Clear();

  // Inside the size alone.
  Pixel At(int x, int y) const { return Row(y)[x]; }
  void Set(int x, int y, Pixel pixel) { Row(y)[x] = pixel; }
  void Fill(const Span& span, Pixel pixel);

  // Lays another raster over this one, its upper left corner there. Of the other one the upper left `part` is
  // laid, and of this one that much is touched; what lies outside either is cut off.
  void Lay(const Raster& above, std::int64_t left, std::int64_t top, Size part, Size within);
  void Lay(const Raster& above, std::int64_t left, std::int64_t top) {
    Lay(above, left, top, above.size_, size_);
  }

  Pixel* Row(int y) { return pixels_.data() + Offset(y); }
  const Pixel* Row(int y) const { return pixels_.data() + Offset(y); }

 private:
  std::size_t Offset(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
  }

  Size size_;
  std::vector<Pixel> pixels_;
};

}  // namespace tessera
