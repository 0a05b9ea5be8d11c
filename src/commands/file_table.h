// `FileTable`: the names under which a program knows its open files.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "text/one_based.h"

namespace tessera {

// The mode words; a file opened with any other word is not open at all.
inline constexpr std::string_view kModeBinary = "BINARIO";
inline constexpr std::string_view kModeRead = "TEXTOLEITURA";
inline constexpr std::string_view kModeWrite = "TEXTOGRAVACAO";

struct FileAlias {
  std::string alias;  // upper case; empty while the entry is free
  int number = 0;     // of the open file, or 0
  std::string mode;   // upper case
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
