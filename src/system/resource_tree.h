// The resource tree of a PE file ("PE Format", Microsoft): from the headers to the tables of types, names and
// languages, and the data entries below. Nothing is read outside of the file, whatever it holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tessera {

// A run of bytes of the file.
struct FileRange {
  std::size_t offset = 0;
  std::size_t size = 0;

  bool Meets(const FileRange& other) const {
    return offset < other.offset + other.size && other.offset < offset + size;
  }
};

// One resource: its name and where its data entry and its data stand.
struct ResourceLeaf {
  std::uint32_t name = 0;  // a number; above kLastNumber it is a text's place
  std::size_t entry = 0;   // offset of the data entry: address, size
  std::uint32_t address = 0;
  FileRange data;

  static constexpr std::uint32_t kLastNumber = 0x7FFFFFFF;
};

// The test of what is an executable of that kind at all.
bool IsPeFile(std::string_view file);

class ResourceTree {
 public:
  // Nothing where the headers lead to no tree.
  static std::optional<ResourceTree> Find(std::string_view file);

  // The resources of a type, in the tree's order, and the tables on the way to them, which are added to
  // `tables`. Nothing where the tree leads out of the file, or never ends.
  std::optional<std::vector<ResourceLeaf>> LeavesOf(std::uint32_t type, std::vector<FileRange>& tables) const;

 private:
  struct Section {
    std::uint64_t address;
    std::uint64_t size;
    std::uint64_t offset;
  };
  struct Entry {
    std::uint32_t name;
    std::uint32_t below;
  };

  explicit ResourceTree(std::string_view file) : file_(file) {}

  std::optional<std::size_t> OffsetOf(std::uint64_t address) const;
  std::optional<std::vector<Entry>> Table(std::uint32_t at, std::vector<FileRange>& tables,
                                          std::size_t& entriesLeft) const;
  std::optional<ResourceLeaf> Leaf(std::uint32_t name, std::uint32_t at) const;

  std::string_view file_;
  FileRange headers_;
  std::vector<Section> sections_;
  std::size_t root_ = 0;
};

}  // namespace tessera
