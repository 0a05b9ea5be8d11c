#include "platform/binary_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "platform/failure.h"

namespace tessera {

void FailSystem(int error) {
  switch (error) {
    case ENOENT:
      Fail(53);
    case ENOTDIR:
      Fail(76);
    case EEXIST:
      Fail(58);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      Fail(61);
    case EMFILE:
    case ENFILE:
      Fail(67);
    case EACCES:
    case EPERM:
    case EROFS:
      Fail(70);
    case EBADF:
      Fail(52);
    case EINVAL:
      FailArgument();
    default:
      Fail(75);
  }
}

std::unique_ptr<BinaryFile> BinaryFile::Open(const std::string& path) {
  constexpr mode_t kAnyone = 0666;
  int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kAnyone);
  if (descriptor < 0 && (errno == EACCES || errno == EROFS))
    descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  // A name in a folder that is not there: the path is missing, not the file.
  if (descriptor < 0 && errno == ENOENT) Fail(76);
  if (descriptor < 0) FailSystem(errno);
  return std::unique_ptr<BinaryFile>(new BinaryFile(descriptor));
}

BinaryFile::~BinaryFile() {
  close(descriptor_);
}

// A length that a program made up must not cost more memory than the file has bytes.
std::size_t BinaryFile::ReadableLength(std::uint64_t position, std::size_t length) const {
  constexpr std::size_t kHarmless = std::size_t{1} << 16;
  if (length <= kHarmless) return length;
  const std::uint64_t size = Size();
  const std::uint64_t left = position > size ? 0 : size - (position - 1);
  return static_cast<std::size_t>(std::min<std::uint64_t>(length, left));
}

std::string BinaryFile::Read(std::uint64_t position, std::size_t length) const {
  if (position == 0 || position > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
    FailArgument();
  std::string bytes(ReadableLength(position, length), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count =
        pread(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(position - 1 + done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) FailSystem(errno);
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
  return bytes;
}

std::string BinaryFile::ReadBlankPadded(std::uint64_t position, std::size_t length) const {
  std::string bytes = Read(position, length);
  bytes.resize(length, ' ');
  return bytes;
}

void BinaryFile::Write(std::uint64_t position, std::string_view bytes) {
  if (position == 0 || position > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
    FailArgument();
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = pwrite(descriptor_, bytes.data() + done, bytes.size() - done,
                                 static_cast<off_t>(position - 1 + done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) FailSystem(errno == EBADF ? EACCES : errno);
    done += static_cast<std::size_t>(count);
  }
}

std::uint64_t BinaryFile::Size() const {
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) FailSystem(errno);
  return static_cast<std::uint64_t>(status.st_size);
}

void BinaryFile::Sync() {
  if (fsync(descriptor_) != 0) FailSystem(errno);
}

int FileNumbers::Free() const {
  for (int number = kFirst; number <= kLast; ++number) {
    if (!files_.contains(number)) return number;
  }
  Fail(67);
}

void FileNumbers::Put(int number, std::unique_ptr<OpenedFile> file) {
  if (number < kFirst || number > kLast) Fail(52);
  if (files_.contains(number)) Fail(55);
  files_.emplace(number, std::move(file));
}

OpenedFile& FileNumbers::Find(int number) const {
  const auto found = files_.find(number);
  if (found == files_.end()) Fail(52);
  return *found->second;
}

void FileNumbers::FailMode() {
  Fail(54);
}

}  // namespace tessera
