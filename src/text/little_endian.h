// Numbers in the byte order of all files of this system, lowest byte first.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

// The lowest `width` bytes of a number.
inline std::string ToLittleEndian(std::uint64_t number, std::size_t width) {
  std::string bytes(width, '\0');
  for (char& byte : bytes) {
    byte = static_cast<char>(number & 0xFF);
    number >>= 8;
  }
  return bytes;
}

// The number in the first `width` bytes, at most 8; those that a shorter text lacks count as 0.
inline std::uint64_t FromLittleEndian(std::string_view bytes, std::size_t width) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < std::min(width, bytes.size()); ++i) {
    number |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  }
  return number;
}

}  // namespace tessera
