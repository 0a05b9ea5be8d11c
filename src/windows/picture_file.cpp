#include "windows/picture_file.h"

#include <cerrno>
#include <utility>

#include "platform/file_store.h"
#include "windows/icon_picture.h"
#include "windows/picture_codec.h"

namespace tessera {

std::optional<std::string> ReadPictureFile(FileStore& files, const std::string& path) {
  const auto [file, error] = files.Open(path, OpenAs::Read);
  std::uint64_t length = 0;
  if (error != 0 || file->Size(length) != 0 || length == 0 || length > kLargestPictureFile)
    return std::nullopt;
  std::string bytes;
  if (ReadAllAt(*file, 0, static_cast<std::size_t>(length), bytes) != 0) return std::nullopt;
  return bytes;
}

PictureRef LoadPicture(PictureCodec& codec, FileStore& files, const std::string& path) {
  const auto bytes = ReadPictureFile(files, path);
  return bytes ? DecodePicture(codec, *bytes) : nullptr;
}

PictureRef DecodePicture(PictureCodec& codec, std::string_view bytes) {
  if (!IsIcon(bytes)) return codec.Decode(bytes);
  const std::string_view image = FirstIconImage(bytes);
  return image.starts_with(kPngStart) ? codec.Decode(image) : DecodeIconBitmap(image);
}

AnimationRef DecodeAnimation(PictureCodec& codec, std::string_view bytes) {
  if (bytes.starts_with(kGifStart)) return codec.DecodeGif(bytes);
  PictureRef picture = DecodePicture(codec, bytes);
  return picture ? StillAnimation(std::move(picture)) : nullptr;
}

int SavePicture(const std::string& bytes, FileStore& files, const std::string& path) {
  return bytes.empty() ? ENOMEM : files.Replace(path, bytes);
}

int WritePicture(const std::string& bytes, FileStore& files, const std::string& path) {
  if (bytes.empty()) return ENOMEM;
  const auto [file, error] = files.Open(path, OpenAs::Rewrite);
  if (error != 0) return error;
  std::string_view unwritten = bytes;
  return file->WriteAt(0, unwritten);
}

}  // namespace tessera
