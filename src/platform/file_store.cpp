#include "platform/file_store.h"

namespace tessera {

int ReadAllAt(const StoredFile& file, std::uint64_t offset, std::size_t length, std::string& bytes) {
  const std::size_t end = bytes.size() + length;
  while (bytes.size() < end) {
    const std::size_t before = bytes.size();
    if (const int error = file.ReadAt(offset, end - before, bytes)) return error;
    if (bytes.size() == before) break;
    offset += bytes.size() - before;
  }
  return 0;
}

}  // namespace tessera
