// A font of blocks, made here, so that a picture of a text is the same on every machine: capitals, digits and
// signs are 5 by 8 pixels, small letters 5 by 5, each 6 pixels wide, on lines of 12, at the 8 points of all
// objects.
#pragma once

#include <vector>

namespace tessera::test {

// While it lives the fonts of objects are those of blocks.
class BlockFont {
 public:
  BlockFont();
  ~BlockFont();
  BlockFont(const BlockFont&) = delete;
  BlockFont& operator=(const BlockFont&) = delete;

 private:
  std::vector<int> numbers_;
};

}  // namespace tessera::test
