// What a finished program tells of its own file: how long it is, and the check sum of its bytes. The place
// for it stands in the runtime's own data, so that a file that lost its end still knows of it. It is blank in
// a bare runtime, and older copies have none: both go unchecked.
//
//   offset 0   16 bytes  the seal's word
//   offset 16   8 bytes  length of the file, lowest byte first; 0 in a bare runtime
//   offset 24   4 bytes  CRC-32 (ISO 3309) of the file without these 12 bytes, lowest byte first
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "image/image_layout.h"

namespace tessera {

inline constexpr HiddenText kSealWord("TESSERA#SELO#001");
inline constexpr std::size_t kSealWordLength = 16;
inline constexpr std::size_t kSealNumbers = 12;
using SealPlace = std::array<char, kSealWordLength + kSealNumbers>;

// The blank seal, which stands in the data of the runtime's main and nowhere else.
consteval SealPlace BlankSeal() {
  SealPlace place{};
  for (std::size_t i = 0; i < kSealWordLength; ++i) place[i] = kSealWord.At(i);
  return place;
}

enum class SealState {
  None,     // no seal in the file, or a blank one
  Whole,    // length and sum are those of the file
  Cut,      // the file is shorter than its seal tells
  Changed,  // other bytes than were sealed
};

SealState CheckSeal(std::string_view file);

// The runtime's bytes with the program's image behind them, and their seal filled in where the runtime has
// the place for one.
std::string SealedFile(std::string_view runtime, std::string_view image);

}  // namespace tessera
