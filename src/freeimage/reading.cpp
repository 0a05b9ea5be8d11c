#include "freeimage/reading.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>

#include "windows/gif_layout.h"
#include "windows/picture_codec.h"

namespace tessera::freeimage {

namespace {

// So many pixels are taken from any file, be its end missing; for more, the file must have the bytes that its
// format needs for so many.
constexpr std::uint64_t kPixelsOfAnyFile = 16'000'000;

struct Format {
  std::string_view start;  // the bytes that a file of the format begins with
  FREE_IMAGE_FORMAT number;
  // What no byte of the format holds more of: runs of 255 pixels in two bytes; codes of 12 bits for 4,096
  // pixels; one bit for each of six blocks of 16 by 16 pixels; deflate's 1,032 bytes of eight pixels.
  std::uint64_t mostPixelsOfAByte;
};

constexpr std::array kFormats = {Format{"BM", FIF_BMP, 128}, Format{kGifStart, FIF_GIF, 2731},
                                 Format{"\xFF\xD8\xFF", FIF_JPEG, 342}, Format{kPngStart, FIF_PNG, 8256}};

std::uint64_t MostPixels(const Format& format, std::size_t bytes) {
  return std::min(kMostPixelsOfPicture, std::max(kPixelsOfAnyFile, format.mostPixelsOfAByte * bytes));
}

// Null for what is none of the formats.
const Format* FormatOf(std::string_view bytes) {
  const auto found = std::find_if(kFormats.begin(), kFormats.end(),
                                  [&](const Format& format) { return bytes.starts_with(format.start); });
  return found == kFormats.end() ? nullptr : &*found;
}

int FlagsOf(FREE_IMAGE_FORMAT format) {
  return format == FIF_JPEG ? JPEG_ACCURATE | JPEG_EXIFROTATE : 0;
}

Bitmap Load(FREE_IMAGE_FORMAT format, FIMEMORY* memory, int flags) {
  FreeImage_SeekMemory(memory, 0, SEEK_SET);
  return Bitmap(FreeImage_LoadFromMemory(format, memory, flags));
}

std::uint64_t PixelsOf(FREE_IMAGE_FORMAT format, FIMEMORY* memory, std::string_view bytes) {
  if (format == FIF_GIF) return FirstGifFrame(bytes);
  const Bitmap header = Load(format, memory, FIF_LOAD_NOPIXELS);
  return header ? std::uint64_t{FreeImage_GetWidth(header.get())} * FreeImage_GetHeight(header.get()) : 0;
}

Pixel PixelAt(const BYTE* bytes, bool isTransparent) {
  const std::uint32_t colour = std::uint32_t{bytes[FI_RGBA_RED]} << 16 |
                               std::uint32_t{bytes[FI_RGBA_GREEN]} << 8 | bytes[FI_RGBA_BLUE];
  return PixelOf(colour, isTransparent ? bytes[FI_RGBA_ALPHA] : 255);
}

}  // namespace

PictureRef ToPicture(FIBITMAP* source) {
  // Some rows at a time, so that a large picture is in memory twice at most.
  constexpr int kRows = 64;
  const Size size{static_cast<int>(FreeImage_GetWidth(source)),
                  static_cast<int>(FreeImage_GetHeight(source))};
  if (size.width <= 0 || size.height <= 0) return nullptr;
  const bool isTransparent = FreeImage_IsTransparent(source);
  Picture picture{.raster = Raster(size)};
  for (int top = 0; top < size.height; top += kRows) {
    const int rows = std::min(kRows, size.height - top);
    const Bitmap part(FreeImage_Copy(source, 0, top, size.width, top + rows));
    const Bitmap bitmap(part ? FreeImage_ConvertTo32Bits(part.get()) : nullptr);
    if (!bitmap) return nullptr;
    for (int y = 0; y < rows; ++y) {
      // The library keeps its rows from the bottom up.
      const BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), rows - 1 - y);
      Pixel* row = picture.raster.Row(top + y);
      for (int x = 0; x < size.width; ++x) row[x] = PixelAt(bytes + std::ptrdiff_t{4} * x, isTransparent);
    }
  }
  return std::make_shared<const Picture>(std::move(picture));
}

PictureRef Decode(std::string_view bytes) {
  const Format* found = FormatOf(bytes);
  if (found == nullptr) return nullptr;
  const FREE_IMAGE_FORMAT format = found->number;
  std::string copy(bytes);
  const Memory memory = OpenFile(copy);
  const std::uint64_t pixels = PixelsOf(format, memory.get(), bytes);
  if (pixels == 0 || pixels > MostPixels(*found, bytes.size())) return nullptr;
  const Bitmap bitmap = Load(format, memory.get(), FlagsOf(format));
  return bitmap ? ToPicture(bitmap.get()) : nullptr;
}

std::uint64_t MostPixelsOf(std::string_view bytes) {
  const Format* found = FormatOf(bytes);
  return found == nullptr ? 0 : MostPixels(*found, bytes.size());
}

}  // namespace tessera::freeimage
