#include "windows/stock_pixels.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessera {

namespace {

constexpr std::size_t kHeader = 14;
constexpr std::size_t kWidthAt = 4;
constexpr std::size_t kHeightAt = 8;
// A byte that says what follows: two of them whole, the others by their upper two bits.
constexpr unsigned kColour = 0xFE;
constexpr unsigned kColourAndOpacity = 0xFF;
enum class Op : std::uint8_t { Seen, Near, ByGreen, Run };

struct Rgba {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  std::uint8_t opacity = 0;

  std::size_t Slot() const { return (red * 3U + green * 5U + blue * 7U + opacity * 11U) % 64; }
  void Change(unsigned byRed, unsigned byGreen, unsigned byBlue) {
    red = static_cast<std::uint8_t>(red + byRed);
    green = static_cast<std::uint8_t>(green + byGreen);
    blue = static_cast<std::uint8_t>(blue + byBlue);
  }
};

class Reader {
 public:
  explicit Reader(std::string_view qoi) : bytes_(qoi) {}

  Rgba Next() {
    if (run_ > 0) {
      --run_;
      return pixel_;
    }
    Take(Byte());
    seen_[pixel_.Slot()] = pixel_;
    return pixel_;
  }

 private:
  std::uint8_t Byte() { return static_cast<std::uint8_t>(bytes_[at_++]); }

  void Take(unsigned op) {
    if (op >= kColour) {
      pixel_ = {.red = Byte(), .green = Byte(), .blue = Byte(), .opacity = pixel_.opacity};
      if (op == kColourAndOpacity) pixel_.opacity = Byte();
      return;
    }
    const unsigned low = op & 0x3F;
    switch (static_cast<Op>(op >> 6)) {
      case Op::Seen:
        pixel_ = seen_[low];
        break;
      case Op::Near:
        pixel_.Change((low >> 4) - 2, (low >> 2 & 3) - 2, (low & 3) - 2);
        break;
      case Op::ByGreen: {
        const unsigned green = low - 32;
        const unsigned others = Byte();
        pixel_.Change(green + (others >> 4) - 8, green, green + (others & 0xF) - 8);
        break;
      }
      case Op::Run:
        run_ = low;
        break;
    }
  }

  std::string_view bytes_;
  std::size_t at_ = kHeader;
  std::array<Rgba, 64> seen_{};
  Rgba pixel_{.opacity = 255};
  unsigned run_ = 0;  // how often the pixel comes again
};

int NumberAt(std::string_view bytes, std::size_t at) {
  int number = 0;
  for (const char c : bytes.substr(at, 4)) number = number << 8 | static_cast<std::uint8_t>(c);
  return number;
}

}  // namespace

Raster StockPixels(std::string_view qoi) {
  Raster raster(Size{NumberAt(qoi, kWidthAt), NumberAt(qoi, kHeightAt)});
  Reader reader(qoi);
  for (int y = 0; y < raster.size().height; ++y) {
    for (int x = 0; x < raster.size().width; ++x) {
      const Rgba pixel = reader.Next();
      const unsigned colour = unsigned{pixel.red} << 16 | unsigned{pixel.green} << 8 | pixel.blue;
      raster.Set(x, y, PixelOf(colour, pixel.opacity));
    }
  }
  return raster;
}

}  // namespace tessera
