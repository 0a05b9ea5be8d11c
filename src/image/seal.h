// What a finished program tells of its own file: the check sum of all that makes the program. The place for
// it stands in the runtime's own data, so that a file that lost its package still knows of it. It is blank in
// a bare runtime, and older copies have none: both go unchecked.
//
//   offset 0   16 bytes  the seal's word
//   offset 16   8 bytes  1, lowest byte first; in older programs, whose package stands behind the file's last
//   section,
//                        the length of the file; 0 in a bare runtime
//   offset 24   4 bytes  CRC-32 (ISO 3309), lowest byte first: of the segments that the system loads, without
//   the
//                        file's header and these 12 bytes, of the part with the windows, where there is one,
//                        and of the package; in older programs of the whole file without these 12 bytes
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
  Cut,      // the file is shorter than it tells, or has lost its package
  Changed,  // other bytes than were sealed
};

SealState CheckSeal(std::string_view file);

// The section in which the program's image stands.
inline constexpr std::string_view kPackageSection = ".tessera";

// The section in which the runtime carries the library that shows windows.
inline constexpr std::string_view kWindowsSection = ".tessera.windows";

// The runtime's bytes with the program's image in a section of its own, and their seal filled in where the
// runtime has the place for one. What is no executable gets the image behind its last byte.
std::string SealedFile(std::string_view runtime, std::string_view image);

}  // namespace tessera
