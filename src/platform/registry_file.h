// The registry: texts kept by root, key and name in one file of the user's configuration, for all programs of
// this system at once. Roots, keys and names are compared blind to case.
// docs/formats/registry.md shows the file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_store.h"
#include "platform/user_folders.h"

namespace tessera {

class RegistryFile {
 public:
  // Where the values are kept; the file and its folder are made by the first write. The store outlives it.
  RegistryFile(FileStore& files, std::string path) : files_(&files), path_(std::move(path)) {}

  // The value, or the empty text where there is none.
  std::string Read(std::string_view root, std::string_view key, std::string_view name) const;

  // Sets or adds a value. Safe among processes: no value that another one writes is lost. False where the
  // old values can't be read, or the disk refuses; then the file is as it was.
  bool Write(std::string_view root, std::string_view key, std::string_view name,
             std::string_view value) const;

 private:
  struct Entry {
    std::string root, key, name, value;
  };

  // Nothing where the file is there and can't be read.
  std::optional<std::vector<Entry>> Load() const;

  FileStore* files_;
  std::string path_;
};

// The registry's file below the user's configuration folder.
std::string RegistryPath(const EnvironmentReader& environment);

}  // namespace tessera
