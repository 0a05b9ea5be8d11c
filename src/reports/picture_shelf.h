// The pictures that reports and prints put on paper.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "values/run.h"
#include "windows/picture.h"

namespace tessera::reports {

class PictureShelf {
 public:
  // The picture of a file as a program names it. Failure 53 where there is none, 481 where it holds none.
  // FAST: a file whose bytes are those of the last time gives the same picture, so that the logo of each page
  // is decoded and kept once.
  PictureRef Load(Run& run, std::string_view path);

 private:
  struct Kept {
    std::string bytes;
    PictureRef picture;
  };
  std::map<std::string, Kept> kept_;  // by the system's path
};

}  // namespace tessera::reports
