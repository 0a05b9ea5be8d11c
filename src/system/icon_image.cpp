#include "system/icon_image.h"

#include <cstddef>

#include "text/little_endian.h"

namespace tessera {

std::optional<IconImage> ReadFirstIcon(std::string_view file) {
  constexpr std::size_t kHeader = 6;
  constexpr std::size_t kEntry = 16;
  constexpr std::uint64_t kIcon = 1;
  if (file.size() < kHeader + kEntry) return std::nullopt;
  const bool isIcon = FromLittleEndian(file, 2) == 0 && FromLittleEndian(file.substr(2), 2) == kIcon &&
                      FromLittleEndian(file.substr(4), 2) >= 1;
  const std::string_view entry = file.substr(kHeader, kEntry);
  const std::uint64_t size = FromLittleEndian(entry.substr(8), 4);
  const std::uint64_t at = FromLittleEndian(entry.substr(12), 4);
  if (!isIcon || size == 0 || at > file.size() || size > file.size() - at) return std::nullopt;
  return IconImage{.width = static_cast<std::uint8_t>(entry[0]),
                   .height = static_cast<std::uint8_t>(entry[1]),
                   .bytes = file.substr(at, size)};
}

}  // namespace tessera
