#include "windows/jpeg_file.h"

#include <FreeImage.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "platform/file_store.h"

namespace tessera {

int SaveJpeg(const Raster& raster, int quality, FileStore& files, const std::string& path) {
  constexpr Pixel kWhite = 0xFFFFFFFF;
  constexpr int kDepth = 24;
  const Size size = raster.size();
  const std::unique_ptr<FIBITMAP, decltype(&FreeImage_Unload)> bitmap(
      FreeImage_Allocate(size.width, size.height, kDepth), &FreeImage_Unload);
  const std::unique_ptr<FIMEMORY, decltype(&FreeImage_CloseMemory)> memory(FreeImage_OpenMemory(),
                                                                           &FreeImage_CloseMemory);
  if (!bitmap || !memory) return ENOMEM;
  for (int y = 0; y < size.height; ++y) {
    BYTE* bytes = FreeImage_GetScanLine(bitmap.get(), size.height - 1 - y);
    const Pixel* row = raster.Row(y);
    for (int x = 0; x < size.width; ++x, bytes += kDepth / 8) {
      const Pixel pixel = Blend(row[x], kWhite);
      bytes[FI_RGBA_RED] = static_cast<BYTE>(pixel >> 16);
      bytes[FI_RGBA_GREEN] = static_cast<BYTE>(pixel >> 8);
      bytes[FI_RGBA_BLUE] = static_cast<BYTE>(pixel);
    }
  }
  BYTE* saved = nullptr;
  DWORD length = 0;
  if (!FreeImage_SaveToMemory(FIF_JPEG, bitmap.get(), memory.get(), std::clamp(quality, 1, 100)) ||
      !FreeImage_AcquireMemory(memory.get(), &saved, &length)) {
    return ENOMEM;
  }
  return files.Replace(path, {reinterpret_cast<const char*>(saved), length});
}

}  // namespace tessera
