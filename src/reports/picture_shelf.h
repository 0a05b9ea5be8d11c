// The pictures that reports and prints put on paper.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "values/run.h"
#include "windows/picture.h"
#include "windows/shared_pictures.h"

namespace tessera::reports {

class PictureShelf {
 public:
  // Both outlive it.
  PictureShelf(Run& run, SharedPictures& pictures) : run_(run), pictures_(pictures) {}

  // The picture of a file as a program names it. Failure 53 where there is none, 481 where it holds none.
  // FAST: a file whose bytes are those of the last time gives the same picture, so that the logo of each page
  // is decoded and kept once.
  PictureRef Load(std::string_view path);

 private:
  struct Kept {
    std::string bytes;
    PictureRef picture;
  };
  Run& run_;
  SharedPictures& pictures_;
  std::map<std::string, Kept> kept_;  // by the system's path
};

}  // namespace tessera::reports
