#include "windows/picture_codec.h"

#include <utility>

#include "platform/part_library.h"

namespace tessera {

namespace {

FoundCodec CodecIn(const std::vector<std::filesystem::path>& folders) {
  PartEntry part = LoadPart(folders, "picture", kPictureCodecEntry, "libfreeimage3");
  if (part.entry == nullptr) return {.problem = std::move(part.problem)};
  return {.codec = reinterpret_cast<PictureCodecEntry>(part.entry)()};
}

}  // namespace

FoundCodec NoPictureCodec() {
  return CodecIn({});
}

PictureCodecFinder CodecOfPart(std::vector<std::filesystem::path> folders) {
  return [folders = std::move(folders)] { return CodecIn(folders); };
}

}  // namespace tessera
