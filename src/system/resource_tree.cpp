#include "system/resource_tree.h"

#include <algorithm>

#include "text/little_endian.h"

namespace tessera {

namespace {

constexpr std::size_t kDosHeader = 64;
constexpr std::size_t kPeOffset = 60;  // of the PE header's own offset
constexpr std::size_t kSignature = 4;
constexpr std::size_t kFileHeader = 20;
constexpr std::size_t kSectionHeader = 40;
constexpr std::size_t kTable = 16;
constexpr std::size_t kEntry = 8;
constexpr std::size_t kDataEntry = 16;
constexpr std::uint32_t kBelowIsTable = 0x80000000;
// No file's tree begins within its headers.
constexpr std::size_t kLastNoTree = 308;
// A damaged tree may lead to the same tables again and again.
constexpr std::size_t kMostEntries = 100'000;

bool Holds(std::string_view file, std::uint64_t offset, std::uint64_t size) {
  return offset <= file.size() && size <= file.size() - offset;
}

// The number in bytes that the file holds.
std::uint32_t NumberAt(std::string_view file, std::size_t offset, std::size_t width) {
  return static_cast<std::uint32_t>(FromLittleEndian(file.substr(offset), width));
}

// The data directories' place in an optional header, by its magic word; 0 for an unknown one.
std::size_t DirectoriesOf(std::uint32_t magic) {
  constexpr std::uint32_t k32Bits = 0x10B;
  constexpr std::uint32_t k64Bits = 0x20B;
  return magic == k32Bits ? 96 : magic == k64Bits ? 112 : 0;
}

}  // namespace

bool IsPeFile(std::string_view file) {
  if (file.size() < kDosHeader || !file.starts_with("MZ")) return false;
  const std::size_t pe = NumberAt(file, kPeOffset, 4);
  return Holds(file, pe, kSignature) && file.substr(pe).starts_with("PE");
}

std::optional<ResourceTree> ResourceTree::Find(std::string_view file) {
  constexpr std::size_t kDirectory = 8;
  constexpr std::size_t kResources = 2;  // among the directories
  const std::size_t header = NumberAt(file, kPeOffset, 4) + kSignature;
  const std::size_t optional = header + kFileHeader;
  if (!Holds(file, header, kFileHeader + 2)) return std::nullopt;
  const std::size_t sectionCount = NumberAt(file, header + 2, 2);
  const std::size_t optionalSize = NumberAt(file, header + 16, 2);
  const std::size_t directories = DirectoriesOf(NumberAt(file, optional, 2));
  const std::size_t directory = directories + kResources * kDirectory;
  const std::size_t table = optional + optionalSize;
  if (directories == 0 || optionalSize < directory + kDirectory || !Holds(file, optional, optionalSize) ||
      NumberAt(file, optional + directories - 4, 4) <= kResources ||
      !Holds(file, table, sectionCount * kSectionHeader)) {
    return std::nullopt;
  }
  ResourceTree tree(file);
  tree.headers_ = {.offset = 0, .size = table + sectionCount * kSectionHeader};
  for (std::size_t i = 0; i < sectionCount; ++i) {
    const std::size_t at = table + i * kSectionHeader;
    tree.sections_.push_back({.address = NumberAt(file, at + 12, 4),
                              .size = NumberAt(file, at + 16, 4),
                              .offset = NumberAt(file, at + 20, 4)});
  }
  const auto root = tree.OffsetOf(NumberAt(file, optional + directory, 4));
  if (!root || *root <= kLastNoTree || !Holds(file, *root, kTable)) return std::nullopt;
  tree.root_ = *root;
  return tree;
}

// Of what a section has in the file, not of what the system adds to it in memory.
std::optional<std::size_t> ResourceTree::OffsetOf(std::uint64_t address) const {
  for (const Section& section : sections_) {
    if (address < section.address || address - section.address >= section.size) continue;
    const std::uint64_t offset = section.offset + (address - section.address);
    if (offset < file_.size()) return static_cast<std::size_t>(offset);
  }
  return std::nullopt;
}

std::optional<std::vector<ResourceTree::Entry>> ResourceTree::Table(std::uint32_t at,
                                                                    std::vector<FileRange>& tables,
                                                                    std::size_t& entriesLeft) const {
  const std::size_t offset = root_ + at;
  if (!Holds(file_, offset, kTable)) return std::nullopt;
  const std::size_t count = std::size_t{NumberAt(file_, offset + 12, 2)} + NumberAt(file_, offset + 14, 2);
  if (count > entriesLeft || !Holds(file_, offset + kTable, count * kEntry)) return std::nullopt;
  entriesLeft -= count;
  tables.push_back({.offset = offset, .size = kTable + count * kEntry});
  std::vector<Entry> entries(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = offset + kTable + i * kEntry;
    entries[i] = {.name = NumberAt(file_, entry, 4), .below = NumberAt(file_, entry + 4, 4)};
  }
  return entries;
}

std::optional<ResourceLeaf> ResourceTree::Leaf(std::uint32_t name, std::uint32_t at) const {
  const std::size_t entry = root_ + at;
  if (!Holds(file_, entry, kDataEntry)) return std::nullopt;
  ResourceLeaf leaf{.name = name, .entry = entry, .address = NumberAt(file_, entry, 4), .data = {}};
  const auto offset = OffsetOf(leaf.address);
  if (!offset) return std::nullopt;
  leaf.data = {.offset = *offset, .size = NumberAt(file_, entry + 4, 4)};
  return leaf;
}

std::optional<std::vector<ResourceLeaf>> ResourceTree::LeavesOf(std::uint32_t type,
                                                                std::vector<FileRange>& tables) const {
  const auto isTable = [](const Entry& entry) { return (entry.below & kBelowIsTable) != 0; };
  const auto below = [](const Entry& entry) { return entry.below & ~kBelowIsTable; };
  std::size_t entriesLeft = kMostEntries;
  std::vector<ResourceLeaf> leaves;
  tables.push_back(headers_);
  const auto types = Table(0, tables, entriesLeft);
  if (!types) return std::nullopt;
  for (const Entry& typeEntry : *types) {
    if (typeEntry.name != type || !isTable(typeEntry)) continue;
    const auto names = Table(below(typeEntry), tables, entriesLeft);
    if (!names) return std::nullopt;
    for (const Entry& nameEntry : *names) {
      if (!isTable(nameEntry)) continue;
      const auto languages = Table(below(nameEntry), tables, entriesLeft);
      if (!languages) return std::nullopt;
      for (const Entry& languageEntry : *languages) {
        if (isTable(languageEntry)) continue;
        const auto leaf = Leaf(nameEntry.name, languageEntry.below);
        if (!leaf) return std::nullopt;
        tables.push_back({.offset = leaf->entry, .size = kDataEntry});
        leaves.push_back(*leaf);
      }
    }
  }
  return leaves;
}

}  // namespace tessera
