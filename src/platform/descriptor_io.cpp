#include "platform/descriptor_io.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace tessera {

namespace {

// Calls `transfer`, which moves up to so many bytes behind those that are done, until all are done or none
// came. The error number, and how many were done.
template <typename Transfer>
int Repeat(std::size_t length, std::size_t& done, Transfer transfer) {
  for (done = 0; done < length;) {
    const ssize_t count = transfer(done, length - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) return 0;
    done += static_cast<std::size_t>(count);
  }
  return 0;
}

// A file that takes nothing and names no reason is a full one.
int OrFull(int error, bool isWhole) {
  return error == 0 && !isWhole ? ENOSPC : error;
}

}  // namespace

int WriteAll(int descriptor, std::string_view& bytes) {
  std::size_t done = 0;
  const int error = Repeat(bytes.size(), done, [&](std::size_t from, std::size_t length) {
    return write(descriptor, bytes.data() + from, length);
  });
  bytes.remove_prefix(done);
  return OrFull(error, bytes.empty());
}

int WriteAllAt(int descriptor, std::uint64_t offset, std::string_view bytes) {
  std::size_t done = 0;
  const int error = Repeat(bytes.size(), done, [&](std::size_t from, std::size_t length) {
    return pwrite(descriptor, bytes.data() + from, length, static_cast<off_t>(offset + from));
  });
  return OrFull(error, done == bytes.size());
}

int ReadAllAt(int descriptor, std::uint64_t offset, std::string& bytes) {
  std::size_t done = 0;
  const int error = Repeat(bytes.size(), done, [&](std::size_t from, std::size_t length) {
    return pread(descriptor, bytes.data() + from, length, static_cast<off_t>(offset + from));
  });
  bytes.resize(done);
  return error;
}

int ReadSome(int descriptor, std::size_t most, std::string& bytes) {
  const std::size_t held = bytes.size();
  bytes.resize(held + most);
  ssize_t count = 0;
  do {
    count = read(descriptor, bytes.data() + held, most);
  } while (count < 0 && errno == EINTR);
  const int error = count < 0 ? errno : 0;
  bytes.resize(held + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return error;
}

}  // namespace tessera
