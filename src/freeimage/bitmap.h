// What the image library hands out, given back when it is done with.
#pragma once

#include <FreeImage.h>

#include <memory>
#include <string>

namespace tessera::freeimage {

struct CloseMemory {
  void operator()(FIMEMORY* memory) const { FreeImage_CloseMemory(memory); }
};
struct Unload {
  void operator()(FIBITMAP* bitmap) const { FreeImage_Unload(bitmap); }
};
using Memory = std::unique_ptr<FIMEMORY, CloseMemory>;
using Bitmap = std::unique_ptr<FIBITMAP, Unload>;

// A row of the library is a row of ours, but for their order: it keeps them from the bottom up.
static_assert(FI_RGBA_BLUE == 0 && FI_RGBA_ALPHA == 3);

// A file in memory. The library takes bytes that it might write to; they outlive it.
inline Memory OpenFile(std::string& bytes) {
  return Memory(
      FreeImage_OpenMemory(reinterpret_cast<BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size())));
}

}  // namespace tessera::freeimage
