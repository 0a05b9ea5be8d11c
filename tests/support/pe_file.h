// Executables and icon files for tests, written byte by byte from what the formats' publishers tell.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::test {

struct PeIcon {
  std::uint16_t id = 1;
  std::string image;
};

struct PeLayout {
  bool is64Bits = true;
  std::vector<PeIcon> icons = {{1, std::string(40, 'A')}, {2, std::string(24, 'B')}};
  // The numbers that the one group names.
  std::vector<std::uint16_t> group = {1, 2};
  bool groupStandsFirst = true;  // before the images, so that a larger one does not cover it
  std::string behind = "o que vem depois, ainda dentro do arquivo";
};

struct PeFile {
  std::string bytes;
  std::vector<std::size_t> images;       // where each icon's image stands
  std::vector<std::size_t> dataEntries;  // and its data entry
  std::size_t group = 0;                 // where the group stands
  std::size_t root = 0;                  // where the tree begins
};

PeFile MakePe(const PeLayout& layout);

// An icon file whose images are these bytes, each `side` pixels wide and high.
std::string MakeIco(const std::vector<std::string>& images, std::uint8_t side = 16);

}  // namespace tessera::test
