#include "platform/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/descriptor.h"

namespace tessera {

namespace {

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(descriptor) == 0;
}

}  // namespace

std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool ReplaceFile(const std::string& path, std::string_view bytes) {
  std::error_code ignored;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
  std::string fresh = path + ".XXXXXX";
  const Descriptor file(mkostemp(fresh.data(), O_CLOEXEC));
  if (!file.IsOpen()) return false;
  if (WriteAll(file.number(), bytes) && std::rename(fresh.c_str(), path.c_str()) == 0) return true;
  unlink(fresh.c_str());
  return false;
}

}  // namespace tessera
