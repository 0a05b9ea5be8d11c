#include "freeimage/writing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "freeimage/bitmap.h"

namespace tessera::freeimage {

namespace {

// The colours of a raster in the order in which they come, as far as a palette holds them.
class Palette {
 public:
  static constexpr std::size_t kMost = 256;

  // The place of a colour; nothing where the palette is full.
  std::optional<BYTE> Place(Pixel colour) {
    // Multiplicative hashing (Knuth, "Sorting and Searching", 6.4).
    std::size_t slot = std::size_t{(colour * 2654435769U) >> kShift};
    while (slots_[slot] != kFree && colours_[slots_[slot]] != colour) slot = (slot + 1) % slots_.size();
    if (slots_[slot] == kFree) {
      if (colours_.size() == kMost) return std::nullopt;
      slots_[slot] = static_cast<std::uint16_t>(colours_.size());
      colours_.push_back(colour);
    }
    return static_cast<BYTE>(slots_[slot]);
  }
  const std::vector<Pixel>& colours() const { return colours_; }

 private:
  static constexpr std::uint16_t kFree = 0xFFFF;
  static constexpr unsigned kBits = 11;  // many more slots than colours
  static constexpr unsigned kShift = 32 - kBits;

  std::vector<std::uint16_t> slots_ = std::vector<std::uint16_t>(std::size_t{1} << kBits, kFree);
  std::vector<Pixel> colours_;
};

void SetColour(RGBQUAD& entry, Pixel colour) {
  entry.rgbRed = static_cast<BYTE>(colour >> 16);
  entry.rgbGreen = static_cast<BYTE>(colour >> 8);
  entry.rgbBlue = static_cast<BYTE>(colour);
}

// Behind the last pixel that is like the one at `x`, one after the other. FAST: four at a time.
int EndOfRun(const Pixel* row, int x, int width) {
  const Pixel colour = row[x];
  int end = x + 1;
  const auto differs = [&](int at) { return row[at] ^ colour; };
  while (end + 4 <= width && (differs(end) | differs(end + 1) | differs(end + 2) | differs(end + 3)) == 0)
    end += 4;
  while (end < width && row[end] == colour) ++end;
  return end;
}

// Null for a picture of more colours.
Bitmap WithPalette(const Raster& raster) {
  const Size size = raster.size();
  Bitmap bitmap(FreeImage_Allocate(size.width, size.height, 8));
  Palette palette;
  for (int y = 0; bitmap && y < size.height; ++y) {
    BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), size.height - 1 - y);
    const Pixel* row = raster.Row(y);
    for (int x = 0; x < size.width;) {
      const std::optional<BYTE> place = palette.Place(row[x]);
      if (!place) return nullptr;
      const int end = EndOfRun(row, x, size.width);
      while (x < end) bytes[x++] = *place;
    }
  }
  if (!bitmap) return nullptr;
  RGBQUAD* entries = FreeImage_GetPalette(bitmap.get());
  for (std::size_t i = 0; i < palette.colours().size(); ++i) SetColour(entries[i], palette.colours()[i]);
  return bitmap;
}

Bitmap InFullColour(const Raster& raster) {
  constexpr int kDepth = 24;
  const Size size = raster.size();
  Bitmap bitmap(FreeImage_Allocate(size.width, size.height, kDepth));
  for (int y = 0; bitmap && y < size.height; ++y) {
    BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), size.height - 1 - y);
    const Pixel* row = raster.Row(y);
    for (int x = 0; x < size.width; ++x, bytes += kDepth / 8) {
      bytes[FI_RGBA_RED] = static_cast<BYTE>(row[x] >> 16);
      bytes[FI_RGBA_GREEN] = static_cast<BYTE>(row[x] >> 8);
      bytes[FI_RGBA_BLUE] = static_cast<BYTE>(row[x]);
    }
  }
  return bitmap;
}

std::string Encode(const Bitmap& bitmap, FREE_IMAGE_FORMAT format, int flags) {
  const Memory memory(FreeImage_OpenMemory());
  BYTE* saved = nullptr;
  DWORD length = 0;
  if (!bitmap || !memory || !FreeImage_SaveToMemory(format, bitmap.get(), memory.get(), flags) ||
      !FreeImage_AcquireMemory(memory.get(), &saved, &length)) {
    return {};
  }
  return {reinterpret_cast<const char*>(saved), length};
}

// OPEN: a file of 24 bits has no transparency; white stands for it.
std::string EncodeOpaque(const Raster& raster, FREE_IMAGE_FORMAT format, int flags) {
  constexpr Pixel kWhite = 0xFFFFFFFF;
  Raster opaque(raster.size());
  for (int y = 0; y < raster.size().height; ++y) {
    for (int x = 0; x < raster.size().width; ++x) opaque.Set(x, y, Blend(raster.At(x, y), kWhite));
  }
  return Encode(InFullColour(opaque), format, flags);
}

}  // namespace

std::string EncodePng(const Raster& raster) {
  constexpr int kDepth = 32;
  const Size size = raster.size();
  const Bitmap bitmap(FreeImage_Allocate(size.width, size.height, kDepth));
  for (int y = 0; bitmap && y < size.height; ++y) {
    BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), size.height - 1 - y);
    for (int x = 0; x < size.width; ++x, bytes += kDepth / 8) {
      const Pixel pixel = raster.At(x, y);
      const Pixel opacity = pixel >> 24;
      // The file has the colours as they are before they are multiplied by the opacity.
      const auto colourAt = [&](int shift) {
        return static_cast<BYTE>(opacity == 0 ? 0 : ((pixel >> shift & 0xFF) * 255 + opacity / 2) / opacity);
      };
      bytes[FI_RGBA_RED] = colourAt(16);
      bytes[FI_RGBA_GREEN] = colourAt(8);
      bytes[FI_RGBA_BLUE] = colourAt(0);
      bytes[FI_RGBA_ALPHA] = static_cast<BYTE>(opacity);
    }
  }
  return Encode(bitmap, FIF_PNG, PNG_DEFAULT);
}

std::string EncodePage(const Raster& page) {
  Bitmap bitmap = WithPalette(page);
  if (!bitmap) bitmap = InFullColour(page);
  return Encode(bitmap, FIF_PNG, PNG_Z_BEST_SPEED);
}

std::string EncodeBitmap(const Raster& raster) {
  return EncodeOpaque(raster, FIF_BMP, BMP_DEFAULT);
}

std::string EncodeJpeg(const Raster& raster, int quality) {
  return EncodeOpaque(raster, FIF_JPEG, quality);
}

}  // namespace tessera::freeimage
