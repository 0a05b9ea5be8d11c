// Pictures in files: BMP, GIF, ICO, CUR, JPEG and PNG, known by what is in the file and not by its name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "windows/animation.h"
#include "windows/picture.h"

namespace tessera {

class FileStore;
class PictureCodec;

// A larger file, in bytes, is no picture that a program would show.
inline constexpr std::uint64_t kLargestPictureFile = 256U << 20;

// The bytes of a file that may hold a picture; nothing for one that can't be read, is empty or too large.
std::optional<std::string> ReadPictureFile(FileStore& files, const std::string& path);

// The picture of a file, an animation's first frame, by the system's path. Nothing for a file that can't be
// read, is damaged or too large, or holds something else.
PictureRef LoadPicture(PictureCodec& codec, FileStore& files, const std::string& path);

// The same from the bytes themselves.
PictureRef DecodePicture(PictureCodec& codec, std::string_view bytes);

// The frames of an animated GIF, as far as they are whole; a picture of another kind is one frame. Null where
// not even the first frame is a picture.
AnimationRef DecodeAnimation(PictureCodec& codec, std::string_view bytes);

// Puts the encoded bytes of a picture into a file, of which an old one stays whole until the new one is. The
// system's error number; that of short memory for no bytes.
int SavePicture(const std::string& bytes, FileStore& files, const std::string& path);

// The same into the old file itself.
int WritePicture(const std::string& bytes, FileStore& files, const std::string& path);

}  // namespace tessera
