#include "windows/picture_file.h"

#include <FreeImage.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/file_store.h"
#include "windows/icon_picture.h"

namespace tessera {

namespace {

// A few damaged bytes may promise a picture of any size: what no screen could show, or what so few bytes
// can't hold in any of the formats, is refused before its pixels are made room for.
constexpr std::uint64_t kMostPixels = 100'000'000;
// So many are taken from any file; for more, the file must have the bytes that a picture of something has.
constexpr std::uint64_t kPixelsOfAnyFile = 16'000'000;
constexpr std::uint64_t kMostPixelsOfAByte = 200;

std::uint64_t MostPixelsOf(std::size_t bytes) {
  return std::min(kMostPixels, std::max(kPixelsOfAnyFile, kMostPixelsOfAByte * bytes));
}

struct Format {
  std::string_view start;  // the bytes that a file of the format begins with
  FREE_IMAGE_FORMAT number;
};

constexpr std::string_view kPngStart = "\x89PNG";
constexpr std::array kFormats = {Format{"BM", FIF_BMP}, Format{"GIF8", FIF_GIF},
                                 Format{"\xFF\xD8\xFF", FIF_JPEG}, Format{kPngStart, FIF_PNG}};

struct CloseMemory {
  void operator()(FIMEMORY* memory) const { FreeImage_CloseMemory(memory); }
};
struct Unload {
  void operator()(FIBITMAP* bitmap) const { FreeImage_Unload(bitmap); }
};
using Memory = std::unique_ptr<FIMEMORY, CloseMemory>;
using Bitmap = std::unique_ptr<FIBITMAP, Unload>;

int FlagsOf(FREE_IMAGE_FORMAT format) {
  return format == FIF_JPEG ? JPEG_ACCURATE | JPEG_EXIFROTATE : 0;
}

Bitmap Load(FREE_IMAGE_FORMAT format, FIMEMORY* memory, int flags) {
  FreeImage_SeekMemory(memory, 0, SEEK_SET);
  return Bitmap(FreeImage_LoadFromMemory(format, memory, flags));
}

// The pixels of a GIF's first frame, which stands behind colours and extensions; 0 where there is none.
std::uint64_t GifPixels(std::string_view bytes) {
  const auto byteAt = [&](std::size_t at) {
    return at < bytes.size() ? std::uint64_t{static_cast<unsigned char>(bytes[at])} : 0;
  };
  const auto wordAt = [&](std::size_t at) { return byteAt(at) | byteAt(at + 1) << 8; };
  constexpr std::size_t kHeader = 13;
  const bool hasColours = (byteAt(10) & 0x80) != 0;
  std::size_t at = kHeader + (hasColours ? std::size_t{3} << ((byteAt(10) & 7) + 1) : 0);
  while (byteAt(at) == '!') {
    at += 2;
    while (byteAt(at) != 0) at += byteAt(at) + 1;
    ++at;
  }
  return byteAt(at) == ',' ? wordAt(at + 5) * wordAt(at + 7) : 0;
}

std::uint64_t PixelsOf(FREE_IMAGE_FORMAT format, FIMEMORY* memory, std::string_view bytes) {
  if (format == FIF_GIF) return GifPixels(bytes);
  const Bitmap header = Load(format, memory, FIF_LOAD_NOPIXELS);
  return header ? std::uint64_t{FreeImage_GetWidth(header.get())} * FreeImage_GetHeight(header.get()) : 0;
}

Pixel PixelAt(const BYTE* bytes, bool isTransparent) {
  const std::uint32_t colour = std::uint32_t{bytes[FI_RGBA_RED]} << 16 |
                               std::uint32_t{bytes[FI_RGBA_GREEN]} << 8 | bytes[FI_RGBA_BLUE];
  return PixelOf(colour, isTransparent ? bytes[FI_RGBA_ALPHA] : 255);
}

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

PictureRef DecodeByLibrary(std::string_view bytes) {
  const auto found = std::find_if(kFormats.begin(), kFormats.end(),
                                  [&](const Format& format) { return bytes.starts_with(format.start); });
  if (found == kFormats.end()) return nullptr;
  const FREE_IMAGE_FORMAT format = found->number;
  std::string copy(bytes);  // the library takes bytes that it might write to
  const Memory memory(
      FreeImage_OpenMemory(reinterpret_cast<BYTE*>(copy.data()), static_cast<DWORD>(copy.size())));
  const std::uint64_t pixels = PixelsOf(format, memory.get(), bytes);
  if (pixels == 0 || pixels > MostPixelsOf(bytes.size())) return nullptr;
  const Bitmap bitmap = Load(format, memory.get(), FlagsOf(format));
  return bitmap ? ToPicture(bitmap.get()) : nullptr;
}

}  // namespace

PictureRef DecodePicture(std::string_view bytes) {
  if (!IsIcon(bytes)) return DecodeByLibrary(bytes);
  const std::string_view image = FirstIconImage(bytes);
  return image.starts_with(kPngStart) ? DecodeByLibrary(image) : DecodeIconBitmap(image);
}

std::string EncodePng(const Picture& picture) {
  constexpr int kDepth = 32;
  const Size size = picture.size();
  const Bitmap bitmap(FreeImage_Allocate(size.width, size.height, kDepth));
  const Memory memory(FreeImage_OpenMemory());
  if (!bitmap || !memory) return {};
  for (int y = 0; y < size.height; ++y) {
    BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), size.height - 1 - y);
    for (int x = 0; x < size.width; ++x, bytes += kDepth / 8) {
      const Pixel pixel = picture.raster.At(x, y);
      bytes[FI_RGBA_RED] = static_cast<BYTE>(pixel >> 16);
      bytes[FI_RGBA_GREEN] = static_cast<BYTE>(pixel >> 8);
      bytes[FI_RGBA_BLUE] = static_cast<BYTE>(pixel);
      bytes[FI_RGBA_ALPHA] = static_cast<BYTE>(pixel >> 24);
    }
  }
  BYTE* saved = nullptr;
  DWORD length = 0;
  if (!FreeImage_SaveToMemory(FIF_PNG, bitmap.get(), memory.get()) ||
      !FreeImage_AcquireMemory(memory.get(), &saved, &length)) {
    return {};
  }
  return {reinterpret_cast<const char*>(saved), length};
}

PictureRef LoadPicture(FileStore& files, const std::string& path) {
  const auto [file, error] = files.Open(path, OpenAs::Read);
  std::uint64_t length = 0;
  if (error != 0 || file->Size(length) != 0 || length == 0 || length > kLargestPictureFile) return nullptr;
  std::string bytes;
  if (ReadAllAt(*file, 0, static_cast<std::size_t>(length), bytes) != 0) return nullptr;
  return DecodePicture(bytes);
}

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

}  // namespace

int SavePng(const Raster& raster, FileStore& files, const std::string& path) {
  Bitmap bitmap = WithPalette(raster);
  if (!bitmap) bitmap = InFullColour(raster);
  const Memory memory(FreeImage_OpenMemory());
  BYTE* saved = nullptr;
  DWORD length = 0;
  if (!bitmap || !memory || !FreeImage_SaveToMemory(FIF_PNG, bitmap.get(), memory.get(), PNG_Z_BEST_SPEED) ||
      !FreeImage_AcquireMemory(memory.get(), &saved, &length)) {
    return ENOMEM;
  }
  const auto [file, error] = files.Open(path, OpenAs::Rewrite);
  if (error != 0) return error;
  std::string_view bytes(reinterpret_cast<const char*>(saved), length);
  return file->WriteAt(0, bytes);
}

// OPEN: a bitmap has no transparency; white stands for it.
bool SaveBitmap(const Picture& picture, FileStore& files, const std::string& path) {
  constexpr Pixel kWhite = 0xFFFFFFFF;
  constexpr int kDepth = 24;
  const Size size = picture.size();
  const Bitmap bitmap(FreeImage_Allocate(size.width, size.height, kDepth));
  const Memory memory(FreeImage_OpenMemory());
  if (!bitmap || !memory) return false;
  for (int y = 0; y < size.height; ++y) {
    BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), size.height - 1 - y);
    for (int x = 0; x < size.width; ++x, bytes += kDepth / 8) {
      const Pixel pixel = Blend(picture.raster.At(x, y), kWhite);
      bytes[FI_RGBA_RED] = static_cast<BYTE>(pixel >> 16);
      bytes[FI_RGBA_GREEN] = static_cast<BYTE>(pixel >> 8);
      bytes[FI_RGBA_BLUE] = static_cast<BYTE>(pixel);
    }
  }
  BYTE* saved = nullptr;
  DWORD length = 0;
  return FreeImage_SaveToMemory(FIF_BMP, bitmap.get(), memory.get()) &&
         FreeImage_AcquireMemory(memory.get(), &saved, &length) &&
         files.Replace(path, {reinterpret_cast<const char*>(saved), length}) == 0;
}

}  // namespace tessera
