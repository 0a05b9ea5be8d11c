#include "windows/icon_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "text/little_endian.h"

namespace tessera {

namespace {

constexpr std::size_t kDirectory = 6;
constexpr std::size_t kDirectoryEntry = 16;
constexpr std::size_t kHeader = 40;
constexpr std::int64_t kLongestSide = 4096;

// Numbers of `Bytes` bytes, the lowest first; bytes beyond the end are 0.
template <std::size_t Bytes>
std::uint32_t NumberAt(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint32_t>(FromLittleEndian(bytes.substr(std::min(at, bytes.size())), Bytes));
}

// A table of rows from the bottom up, each of whole groups of 32 bits.
class Rows {
 public:
  Rows(std::string_view bytes, Size size, std::uint32_t bits)
      : bytes_(bytes), size_(size), bits_(bits), length_((std::size_t(size.width) * bits + 31) / 32 * 4) {}

  std::size_t Length() const { return length_ * std::size_t(size_.height); }
  bool IsWhole() const { return bytes_.size() >= Length(); }

  // The pixel's own bits.
  std::uint32_t At(int x, int y) const {
    const std::size_t row = length_ * std::size_t(size_.height - 1 - y);
    const std::size_t bit = std::size_t(x) * bits_;
    if (bits_ >= 24) return NumberAt<4>(bytes_, row + bit / 8) & (bits_ == 24 ? 0xFFFFFFU : 0xFFFFFFFFU);
    return NumberAt<1>(bytes_, row + bit / 8) >> (8 - bits_ - bit % 8) & ((1U << bits_) - 1);
  }

 private:
  std::string_view bytes_;
  Size size_;
  std::uint32_t bits_;
  std::size_t length_;
};

struct Header {
  Size size;
  std::uint32_t bits;
  std::size_t colours;  // in the table behind the header
  bool isSound;
};

Header HeaderOf(std::string_view image) {
  constexpr std::array<std::uint32_t, 5> kDepths = {1, 4, 8, 24, 32};
  const std::int64_t width = static_cast<std::int32_t>(NumberAt<4>(image, 4));
  const std::int64_t height = static_cast<std::int32_t>(NumberAt<4>(image, 8)) / 2;  // mask included
  const std::uint32_t bits = NumberAt<2>(image, 14);
  const std::uint32_t used = NumberAt<4>(image, 32);
  const bool isSound = NumberAt<4>(image, 0) == kHeader && NumberAt<4>(image, 16) == 0 && width > 0 &&
                       width <= kLongestSide && height > 0 && height <= kLongestSide &&
                       std::find(kDepths.begin(), kDepths.end(), bits) != kDepths.end();
  if (!isSound) return {.size = {}, .bits = 0, .colours = 0, .isSound = false};
  const std::size_t most = bits <= 8 ? std::size_t{1} << bits : 0;
  return {.size = {static_cast<int>(width), static_cast<int>(height)},
          .bits = bits,
          .colours = used == 0 ? most : std::min<std::size_t>(used, most),
          .isSound = true};
}

bool HasOpacity(const Rows& rows, Size size) {
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      if (rows.At(x, y) >> 24 != 0) return true;
    }
  }
  return false;
}

}  // namespace

bool IsIcon(std::string_view bytes) {
  const std::uint32_t type = NumberAt<2>(bytes, 2);
  return bytes.size() > kDirectory && NumberAt<2>(bytes, 0) == 0 && (type == 1 || type == 2) &&
         NumberAt<2>(bytes, 4) > 0;
}

namespace {

// The image that entry `number` of the directory tells of.
std::string_view IconImage(std::string_view bytes, std::size_t number) {
  const std::size_t entry = kDirectory + number * kDirectoryEntry;
  if (bytes.size() < entry + kDirectoryEntry) return {};
  const std::size_t length = NumberAt<4>(bytes, entry + 8);
  const std::size_t at = NumberAt<4>(bytes, entry + 12);
  return at < bytes.size() && length <= bytes.size() - at ? bytes.substr(at, length) : std::string_view();
}

}  // namespace

std::string_view FirstIconImage(std::string_view bytes) {
  return IconImage(bytes, 0);
}

std::string_view LargestIconImage(std::string_view bytes) {
  constexpr std::uint32_t kNoByteHolds = 256;  // told as 0
  std::string_view largest;
  std::uint32_t widest = 0;
  const std::size_t count = NumberAt<2>(bytes, 4);
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t told = NumberAt<1>(bytes, kDirectory + i * kDirectoryEntry);
    const std::uint32_t width = told == 0 ? kNoByteHolds : told;
    const std::string_view image = IconImage(bytes, i);
    if (image.empty() || width <= widest) continue;
    largest = image;
    widest = width;
  }
  return largest;
}

PictureRef DecodeIconBitmap(std::string_view image) {
  const Header header = HeaderOf(image);
  if (!header.isSound || image.size() < kHeader + header.colours * 4) return nullptr;
  const std::string_view table = image.substr(kHeader, header.colours * 4);
  const Rows colours(image.substr(kHeader + table.size()), header.size, header.bits);
  if (!colours.IsWhole()) return nullptr;
  // A picture with an opacity of its own does without the mask.
  const bool isOpacity = header.bits == 32 && HasOpacity(colours, header.size);
  const Rows mask(image.substr(kHeader + table.size() + colours.Length()), header.size, 1);
  if (!isOpacity && !mask.IsWhole()) return nullptr;

  Picture picture{.raster = Raster(header.size)};
  for (int y = 0; y < header.size.height; ++y) {
    for (int x = 0; x < header.size.width; ++x) {
      const std::uint32_t own = colours.At(x, y);
      const std::uint32_t colour = header.bits <= 8 ? NumberAt<3>(table, std::size_t{own} * 4) : own;
      const Pixel opacity = isOpacity ? own >> 24 : (mask.At(x, y) != 0 ? 0 : 255);
      picture.raster.Set(x, y, PixelOf(colour, opacity));
    }
  }
  return std::make_shared<const Picture>(std::move(picture));
}

}  // namespace tessera
