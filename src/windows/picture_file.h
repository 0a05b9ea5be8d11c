// Pictures in files: BMP, GIF, ICO, CUR, JPEG and PNG, known by what is in the file and not by its name. The
// one place that knows the image library, which needs no display; icons are read in icon_picture.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "windows/picture.h"

namespace tessera {

class FileStore;

// A larger file, in bytes, is no picture that a program would show.
inline constexpr std::uint64_t kLargestPictureFile = 256U << 20;

// The picture of a file, an animation's first frame, by the system's path. Nothing for a file that can't be
// read, is damaged or too large, or holds something else.
PictureRef LoadPicture(FileStore& files, const std::string& path);

// The same from the bytes themselves.
PictureRef DecodePicture(std::string_view bytes);

// The picture as the bytes of a PNG file, with what is transparent; empty where the memory is short.
std::string EncodePng(const Picture& picture);

// Puts the picture into a file as a bitmap of 24 bits, what is transparent in white. False where the disk
// refuses.
bool SaveBitmap(const Picture& picture, FileStore& files, const std::string& path);

// Writes an opaque raster as a PNG file; the system's error number. A picture of few colours gets a palette.
int SavePng(const Raster& raster, FileStore& files, const std::string& path);

}  // namespace tessera
