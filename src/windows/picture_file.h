// Pictures in files: BMP, GIF, ICO, CUR, JPEG and PNG, known by what is in the file and not by its name. The
// one place that knows the image library, which needs no display; icons are read in icon_picture.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "windows/animation.h"
#include "windows/picture.h"

namespace tessera {

class FileStore;

// A larger file, in bytes, is no picture that a program would show.
inline constexpr std::uint64_t kLargestPictureFile = 256U << 20;

// More pixels, or all frames of an animation together, no screen could show: a file that claims them is
// damaged.
inline constexpr std::uint64_t kMostPixelsOfPicture = 100'000'000;

// The bytes of a file that may hold a picture; nothing for one that can't be read, is empty or too large.
std::optional<std::string> ReadPictureFile(FileStore& files, const std::string& path);

// The picture of a file, an animation's first frame, by the system's path. Nothing for a file that can't be
// read, is damaged or too large, or holds something else.
PictureRef LoadPicture(FileStore& files, const std::string& path);

// The same from the bytes themselves.
PictureRef DecodePicture(std::string_view bytes);

// The frames of an animated GIF, as far as they are whole; a picture of another kind is one frame. Null where
// not even the first frame is a picture.
AnimationRef DecodeAnimation(std::string_view bytes);

// The picture at another size, its pixels mixed. Null for a size without pixels, or where the memory is
// short.
PictureRef Rescaled(const Picture& picture, Size size);

// The picture as the bytes of a PNG file, with what is transparent; empty where the memory is short.
std::string EncodePng(const Picture& picture);

// Puts the pixels into a file of 24 bits, what is transparent in white: a bitmap, or a JPEG of a quality from
// 1 to 100. The system's error number; an old file stays whole until the new one is.
int SaveBitmap(const Raster& raster, FileStore& files, const std::string& path);
int SaveJpeg(const Raster& raster, int quality, FileStore& files, const std::string& path);

// Writes an opaque raster as a PNG file; the system's error number. A picture of few colours gets a palette.
int SavePng(const Raster& raster, FileStore& files, const std::string& path);

}  // namespace tessera
