// Package files: up to 300 files in one. docs/formats/package.md tells the bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

class FileStore;

inline constexpr std::size_t kPackageFiles = 300;

// Writes a file's bytes behind those of the package, which is made when it is missing, and its record into
// the first free place of the directory. False when the directory is full: nothing has been written. Paths
// are the system's own. Failures: those of the files, 13 for a record that holds no numbers, 5 for one that
// points into the directory.
bool InsertIntoPackage(FileStore& files, std::string_view name, const std::string& source,
                       const std::string& package);

// Writes the first file of that name, blind to case, into `target`. False when the package has none. Failure
// 62 where the package ends before the file does, 13 and 5 as above; then no target is left.
bool ExtractFromPackage(FileStore& files, std::string_view name, const std::string& target,
                        const std::string& package);

}  // namespace tessera
