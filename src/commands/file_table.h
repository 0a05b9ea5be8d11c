// `FileTable`: the names under which a program knows its open files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/one_based.h"

namespace tessera {

// What a file was opened for. With any other word it is not open at all.
enum class FileMode : std::uint8_t { None, Binary, Read, Write };

inline FileMode FileModeOf(std::string_view word) {
  if (word == "BINARIO") return FileMode::Binary;
  if (word == "TEXTOLEITURA") return FileMode::Read;
  return word == "TEXTOGRAVACAO" ? FileMode::Write : FileMode::None;
}

struct FileAlias {
  std::string alias;  // upper case; empty while the entry is free
  int number = 0;     // of the open file, or 0
  FileMode mode = FileMode::None;
};

class FileTable {
 public:
  // An entry of the table, or null.
  FileAlias* FirstFree() { return Find({}); }
  FileAlias* Find(std::string_view alias) {
    for (FileAlias& entry : entries_) {
      if (EqualsIgnoringCase(entry.alias, alias)) return &entry;
    }
    return nullptr;
  }

  auto begin() { return entries_.begin(); }
  auto end() { return entries_.end(); }

 private:
  static constexpr std::size_t kAliases = 20;

  std::array<FileAlias, kAliases> entries_;
};

}  // namespace tessera
