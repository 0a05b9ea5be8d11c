#include "platform/descriptor_io.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace tessera {

namespace {

// Calls `transfer`, which writes up to so many bytes behind those that are done, until all are done. A file
// that takes nothing and names no reason is a full one.
template <typename Transfer>
int WriteBy(std::string_view& bytes, Transfer transfer) {
  std::size_t done = 0;
  int error = 0;
  while (error == 0 && done < bytes.size()) {
    const ssize_t count = transfer(done, bytes.size() - done);
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (count == 0 || errno != EINTR) {
      error = count == 0 ? ENOSPC : errno;
    }
  }
  bytes.remove_prefix(done);
  return error;
}

template <typename Transfer>
int ReadBy(std::size_t most, std::string& bytes, Transfer transfer) {
  const std::size_t held = bytes.size();
  bytes.resize(held + most);
  ssize_t count = 0;
  do {
    count = transfer(bytes.data() + held);
  } while (count < 0 && errno == EINTR);
  const int error = count < 0 ? errno : 0;
  bytes.resize(held + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return error;
}

}  // namespace

int WriteAll(int descriptor, std::string_view& bytes) {
  return WriteBy(bytes, [&](std::size_t from, std::size_t length) {
    return write(descriptor, bytes.data() + from, length);
  });
}

int WriteAllAt(int descriptor, std::uint64_t offset, std::string_view& bytes) {
  return WriteBy(bytes, [&](std::size_t from, std::size_t length) {
    return pwrite(descriptor, bytes.data() + from, length, static_cast<off_t>(offset + from));
  });
}

int ReadSome(int descriptor, std::size_t most, std::string& bytes) {
  return ReadBy(most, bytes, [&](char* to) { return read(descriptor, to, most); });
}

int ReadSomeAt(int descriptor, std::uint64_t offset, std::size_t most, std::string& bytes) {
  return ReadBy(most, bytes,
                [&](char* to) { return pread(descriptor, to, most, static_cast<off_t>(offset)); });
}

}  // namespace tessera
