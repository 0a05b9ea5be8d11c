#include "windows/picture_file.h"

#include <FreeImage.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include "platform/file_store.h"
#include "windows/gif_layout.h"
#include "windows/icon_picture.h"

namespace tessera {

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

// A row of the library is a row of ours.
static_assert(FI_RGBA_BLUE == 0 && FI_RGBA_ALPHA == 3);

constexpr std::string_view kPngStart = "\x89PNG";
constexpr std::string_view kGifStart = "GIF8";
constexpr std::array kFormats = {Format{"BM", FIF_BMP, 128}, Format{kGifStart, FIF_GIF, 2731},
                                 Format{"\xFF\xD8\xFF", FIF_JPEG, 342}, Format{kPngStart, FIF_PNG, 8256}};

std::uint64_t MostPixelsOf(const Format& format, std::size_t bytes) {
  return std::min(kMostPixelsOfPicture, std::max(kPixelsOfAnyFile, format.mostPixelsOfAByte * bytes));
}

// Null for what is none of the formats.
const Format* FormatOf(std::string_view bytes) {
  const auto found = std::find_if(kFormats.begin(), kFormats.end(),
                                  [&](const Format& format) { return bytes.starts_with(format.start); });
  return found == kFormats.end() ? nullptr : &*found;
}

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
  const Format* found = FormatOf(bytes);
  if (found == nullptr) return nullptr;
  const FREE_IMAGE_FORMAT format = found->number;
  std::string copy(bytes);  // the library takes bytes that it might write to
  const Memory memory(
      FreeImage_OpenMemory(reinterpret_cast<BYTE*>(copy.data()), static_cast<DWORD>(copy.size())));
  const std::uint64_t pixels = PixelsOf(format, memory.get(), bytes);
  if (pixels == 0 || pixels > MostPixelsOf(*found, bytes.size())) return nullptr;
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

std::optional<std::string> ReadPictureFile(FileStore& files, const std::string& path) {
  const auto [file, error] = files.Open(path, OpenAs::Read);
  std::uint64_t length = 0;
  if (error != 0 || file->Size(length) != 0 || length == 0 || length > kLargestPictureFile)
    return std::nullopt;
  std::string bytes;
  if (ReadAllAt(*file, 0, static_cast<std::size_t>(length), bytes) != 0) return std::nullopt;
  return bytes;
}

PictureRef LoadPicture(FileStore& files, const std::string& path) {
  const auto bytes = ReadPictureFile(files, path);
  return bytes ? DecodePicture(*bytes) : nullptr;
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

namespace {

// The bytes of a picture file of 24 bits; empty where the memory is short. OPEN: such a file has no
// transparency; white stands for it.
std::string EncodeOpaque(const Raster& raster, FREE_IMAGE_FORMAT format, int flags) {
  constexpr Pixel kWhite = 0xFFFFFFFF;
  Raster opaque(raster.size());
  for (int y = 0; y < raster.size().height; ++y) {
    for (int x = 0; x < raster.size().width; ++x) opaque.Set(x, y, Blend(raster.At(x, y), kWhite));
  }
  const Bitmap bitmap = InFullColour(opaque);
  const Memory memory(FreeImage_OpenMemory());
  BYTE* saved = nullptr;
  DWORD length = 0;
  if (!bitmap || !memory || !FreeImage_SaveToMemory(format, bitmap.get(), memory.get(), flags) ||
      !FreeImage_AcquireMemory(memory.get(), &saved, &length)) {
    return {};
  }
  return {reinterpret_cast<const char*>(saved), length};
}

int Replace(FileStore& files, const std::string& path, const std::string& bytes) {
  return bytes.empty() ? ENOMEM : files.Replace(path, bytes);
}

}  // namespace

int SaveBitmap(const Raster& raster, FileStore& files, const std::string& path) {
  return Replace(files, path, EncodeOpaque(raster, FIF_BMP, BMP_DEFAULT));
}

int SaveJpeg(const Raster& raster, int quality, FileStore& files, const std::string& path) {
  return Replace(files, path, EncodeOpaque(raster, FIF_JPEG, quality));
}

PictureRef Rescaled(const Picture& picture, Size size) {
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

// Animations

namespace {

struct CloseFrames {
  void operator()(FIMULTIBITMAP* frames) const { FreeImage_CloseMultiBitmap(frames); }
};
using Frames = std::unique_ptr<FIMULTIBITMAP, CloseFrames>;

// A number that the library found beside a frame.
template <typename T>
T Told(FIBITMAP* frame, const char* name, T otherwise) {
  FITAG* tag = nullptr;
  if (!FreeImage_GetMetadata(FIMD_ANIMATION, frame, name, &tag) || tag == nullptr) return otherwise;
  T value;
  std::memcpy(&value, FreeImage_GetTagValue(tag), sizeof value);
  return value;
}

// A file that tells no time for a frame, or none that an eye could see, gets the time that viewers give
// it.
std::chrono::milliseconds TimeOf(FIBITMAP* frame) {
  const auto told = Told<LONG>(frame, "FrameTime", 0);
  return told > 0 ? std::chrono::milliseconds(told) : kUntoldFrameTime;
}

AnimationRef DecodeGif(std::string_view bytes) {
  const GifLayout layout = ReadGifLayout(bytes);
  const auto mostPixels = MostPixelsOf(*FormatOf(bytes), bytes.size());
  if (layout.framePixels == 0 || layout.framePixels > mostPixels || layout.screenPixels > mostPixels)
    return nullptr;
  // The library takes no file that is cut: its end comes behind the last whole frame.
  std::string copy = std::string(bytes.substr(0, layout.end)) + ";";
  const Memory memory(
      FreeImage_OpenMemory(reinterpret_cast<BYTE*>(copy.data()), static_cast<DWORD>(copy.size())));
  const Frames pages(FreeImage_LoadMultiBitmapFromMemory(FIF_GIF, memory.get(), GIF_DEFAULT));
  if (!pages) return nullptr;
  Animation animation;
  const int count = std::min(FreeImage_GetPageCount(pages.get()), layout.frames);
  for (int number = 0; number < count; ++number) {
    FIBITMAP* page = FreeImage_LockPage(pages.get(), number);
    if (page == nullptr) break;
    if (number == 0) {
      animation.size = {Told<WORD>(page, "LogicalWidth", 0), Told<WORD>(page, "LogicalHeight", 0)};
      animation.plays = Told<LONG>(page, "Loop", 1);
    }
    PictureRef picture = ToPicture(page);
    if (picture) {
      animation.frames.push_back({.picture = std::move(picture),
                                  .left = Told<WORD>(page, "FrameLeft", 0),
                                  .top = Told<WORD>(page, "FrameTop", 0),
                                  .time = TimeOf(page),
                                  .disposal = static_cast<Disposal>(Told<BYTE>(page, "DisposalMethod", 0))});
    }
    FreeImage_UnlockPage(pages.get(), page, FALSE);
    if (animation.frames.size() != static_cast<std::size_t>(number) + 1) break;
  }
  if (animation.frames.empty()) return nullptr;
  const Size first = animation.frames.front().picture->size();
  if (animation.size.width == 0 || animation.size.height == 0) animation.size = first;
  return std::make_shared<const Animation>(std::move(animation));
}

}  // namespace

AnimationRef DecodeAnimation(std::string_view bytes) {
  if (bytes.starts_with(kGifStart)) return DecodeGif(bytes);
  PictureRef picture = DecodePicture(bytes);
  return picture ? StillAnimation(std::move(picture)) : nullptr;
}

}  // namespace tessera
