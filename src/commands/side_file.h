// The keyed texts that a program keeps beside the runtime. docs/formats/side_file.md tells the bytes.
#pragma once

#include <string>
#include <string_view>

namespace tessera {

class FileStore;

class SideFile {
 public:
  // Nothing is read before the first use. The file store outlives the object.
  explicit SideFile(FileStore& files) : files_(files) {}

  // The text of a key, empty for a key that is not there. The file (the system's path) is read while nothing
  // is known of it; a missing or damaged file is read as far as it goes.
  std::string LeString(const std::string& path, std::string_view key);

  // Replaces the text of a key or adds it, and writes the file, which is made when it is missing. Failures:
  // those of the file.
  void SalvaString(const std::string& path, std::string_view key, std::string_view value);

 private:
  FileStore& files_;
  std::string text_;
};

}  // namespace tessera
