// The first image of an icon file: a header of 6 bytes (reserved 0, type 1, count), then entries of 16 bytes,
// whose last two numbers are an image's size and offset.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessera {

struct IconImage {
  std::uint8_t width = 0;  // 0 is 256
  std::uint8_t height = 0;
  std::string_view bytes;  // of the file
};

// Nothing where the file is none of the kind, or is cut short.
std::optional<IconImage> ReadFirstIcon(std::string_view file);

}  // namespace tessera
