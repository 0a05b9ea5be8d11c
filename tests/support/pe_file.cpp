#include "support/pe_file.h"

#include "text/little_endian.h"

namespace tessera::test {

namespace {

void Put(std::string& bytes, std::uint64_t number, std::size_t width) {
  bytes += ToLittleEndian(number, width);
}

void PutTable(std::string& bytes, std::size_t entries) {
  bytes += std::string(14, '\0');
  Put(bytes, entries, 2);
}

}  // namespace

PeFile MakePe(const PeLayout& layout) {
  constexpr std::size_t kPe = 0x80;
  constexpr std::size_t kRaw = 0x400;         // the section in the file
  constexpr std::uint32_t kAddress = 0x2000;  // and in memory
  constexpr std::uint32_t kTableBit = 0x80000000;
  const std::size_t optional = layout.is64Bits ? 240 : 224;
  const std::size_t icons = layout.icons.size();

  // The tree: root, the names of both types, a language for each, the data entries.
  const std::size_t iconNames = 16 + 2 * 8;
  const std::size_t groupNames = iconNames + 16 + icons * 8;
  const std::size_t languages = groupNames + 16 + 8;
  const std::size_t entries = languages + (icons + 1) * 24;
  std::size_t data = entries + (icons + 1) * 16;
  const std::size_t groupSize = 6 + layout.group.size() * 14;
  PeFile pe;
  pe.root = kRaw;
  if (layout.groupStandsFirst) {
    pe.group = kRaw + data;
    data += groupSize;
  }
  for (const PeIcon& icon : layout.icons) {
    pe.images.push_back(kRaw + data);
    data += icon.image.size();
  }
  if (!layout.groupStandsFirst) {
    pe.group = kRaw + data;
    data += groupSize;
  }

  std::string tree;
  PutTable(tree, 2);
  Put(tree, 3, 4);
  Put(tree, kTableBit | iconNames, 4);
  Put(tree, 14, 4);
  Put(tree, kTableBit | groupNames, 4);
  PutTable(tree, icons);
  for (std::size_t i = 0; i < icons; ++i) {
    Put(tree, layout.icons[i].id, 4);
    Put(tree, kTableBit | (languages + i * 24), 4);
  }
  PutTable(tree, 1);
  Put(tree, 1, 4);
  Put(tree, kTableBit | (languages + icons * 24), 4);
  for (std::size_t i = 0; i <= icons; ++i) {
    PutTable(tree, 1);
    Put(tree, 1046, 4);
    Put(tree, entries + i * 16, 4);
  }
  for (std::size_t i = 0; i <= icons; ++i) {
    pe.dataEntries.push_back(kRaw + tree.size());
    const std::size_t at = i < icons ? pe.images[i] : pe.group;
    Put(tree, kAddress + (at - kRaw), 4);
    Put(tree, i < icons ? layout.icons[i].image.size() : groupSize, 4);
    Put(tree, 0, 8);
  }
  std::string group;
  Put(group, 0, 2);
  Put(group, 1, 2);
  Put(group, layout.group.size(), 2);
  for (const std::uint16_t id : layout.group) {
    group += std::string("\x20\x20\0\0\1\0\x20\0", 8);
    std::size_t size = 0;
    for (const PeIcon& icon : layout.icons) size = icon.id == id ? icon.image.size() : size;
    Put(group, size, 4);
    Put(group, id, 2);
  }
  if (layout.groupStandsFirst) tree += group;
  for (const PeIcon& icon : layout.icons) tree += icon.image;
  if (!layout.groupStandsFirst) tree += group;

  std::string& file = pe.bytes;
  file = "MZ" + std::string(58, '\0');
  Put(file, kPe, 4);
  file.resize(kPe, '\0');
  file += std::string("PE\0\0", 4);
  Put(file, layout.is64Bits ? 0x8664 : 0x14C, 2);
  Put(file, 1, 2);  // sections
  file += std::string(12, '\0');
  Put(file, optional, 2);
  Put(file, 0x22, 2);
  const std::size_t start = file.size();
  Put(file, layout.is64Bits ? 0x20B : 0x10B, 2);
  file.resize(start + optional - 16 * 8 - 4, '\0');
  Put(file, 16, 4);
  file += std::string(16, '\0');
  Put(file, kAddress, 4);
  Put(file, tree.size(), 4);
  file.resize(start + optional, '\0');
  file += std::string(".rsrc\0\0\0", 8);
  Put(file, tree.size(), 4);
  Put(file, kAddress, 4);
  Put(file, tree.size(), 4);
  Put(file, kRaw, 4);
  file.resize(kRaw, '\0');
  file += tree + layout.behind;
  return pe;
}

std::string MakeIco(const std::vector<std::string>& images, std::uint8_t side) {
  std::string ico;
  Put(ico, 0, 2);
  Put(ico, 1, 2);
  Put(ico, images.size(), 2);
  std::size_t at = 6 + images.size() * 16;
  for (const std::string& image : images) {
    Put(ico, side, 1);
    Put(ico, side, 1);
    Put(ico, 0x00200001'0000, 6);
    Put(ico, image.size(), 4);
    Put(ico, at, 4);
    at += image.size();
  }
  for (const std::string& image : images) ico += image;
  return ico;
}

}  // namespace tessera::test
