#include "platform/system_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/descriptor.h"
#include "platform/descriptor_io.h"
#include "platform/shared_page.h"
#include "platform/whole_file.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

// Far past the largest file that a program could fill.
constexpr off_t kLockOffset = off_t{1} << 62;
constexpr mode_t kAnyone = 0666;
constexpr std::chrono::microseconds kPause{200};

int ErrorOf(int result) {
  return result == 0 ? 0 : errno;
}

// An open-file-description lock on one byte far behind any data, so that no reader is ever stopped. It ends
// with the file, and with the process.
int SetLock(int descriptor, short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockOffset;
  lock.l_len = 1;
  if (fcntl(descriptor, F_OFD_SETLK, &lock) == 0) return 0;
  return errno == EACCES || errno == EINTR ? EAGAIN : errno;
}

class SystemFile final : public StoredFile {
 public:
  explicit SystemFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

  int ReadAt(std::uint64_t offset, std::size_t most, std::string& bytes) const override {
    const int error = ReadSomeAt(number(), offset, most, bytes);
    return error == ESPIPE ? ReadSome(number(), most, bytes) : error;
  }
  int WriteAt(std::uint64_t offset, std::string_view& bytes) override {
    const int error = WriteAllAt(number(), offset, bytes);
    return error == ESPIPE ? WriteAll(number(), bytes) : error;
  }
  int Size(std::uint64_t& size) const override {
    struct stat status {};
    if (fstat(number(), &status) != 0) return errno;
    size = static_cast<std::uint64_t>(status.st_size);
    return 0;
  }
  int Resize(std::uint64_t size) override { return ErrorOf(ftruncate(number(), static_cast<off_t>(size))); }
  int Sync() override { return ErrorOf(fsync(number())); }
  int TryLock() override {
    const int error = SetLock(number(), F_WRLCK);
    // A file opened for reading alone takes the shared form: it keeps writers out all the same.
    return error == 0 || error == EAGAIN ? error : SetLock(number(), F_RDLCK);
  }
  void Unlock() override { SetLock(number(), F_UNLCK); }
  void AwaitOthers() const override { std::this_thread::sleep_for(kPause); }
  SharedPage* FirstPage() override {
    if (firstPage_ == nullptr) firstPage_ = SharedPage::Of(number());
    return firstPage_.get();
  }
  bool IsAt(const std::string& path) const override {
    struct stat own {};
    struct stat wanted {};
    return fstat(number(), &own) == 0 && stat(path.c_str(), &wanted) == 0 && own.st_dev == wanted.st_dev &&
           own.st_ino == wanted.st_ino;
  }

 private:
  int number() const { return descriptor_.number(); }

  Descriptor descriptor_;
  std::unique_ptr<SharedPage> firstPage_;
};

// The system has two kinds of locks on whole files, which don't feel each other; both last as long as the
// file is open.
int LockWhole(int descriptor) {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  if (fcntl(descriptor, F_OFD_SETLK, &lock) != 0) return errno == EACCES ? EAGAIN : errno;
  return ErrorOf(flock(descriptor, LOCK_EX | LOCK_NB));
}

int FlagsOf(OpenAs how) {
  switch (how) {
    case OpenAs::Read:
      return O_RDONLY;
    case OpenAs::Rewrite:
      return O_WRONLY | O_CREAT | O_TRUNC;
    case OpenAs::Update:
      return O_RDWR | O_CREAT;
    case OpenAs::Alone:
      return O_RDWR;
    case OpenAs::New:
      break;
  }
  return O_RDWR | O_CREAT | O_EXCL;
}

int CopyBytes(int source, int target) {
  constexpr std::size_t kPortion = std::size_t{1} << 18;
  for (;;) {
    std::string bytes;
    if (const int error = ReadSome(source, kPortion, bytes)) return error;
    if (bytes.empty()) return 0;
    std::string_view rest = bytes;
    if (const int error = WriteAll(target, rest)) return error;
  }
}

}  // namespace

FileStore::Opened SystemFiles::Open(const std::string& path, OpenAs how) {
  Descriptor file(open(path.c_str(), FlagsOf(how) | O_CLOEXEC, kAnyone));
  if (!file.IsOpen() && how == OpenAs::Update && (errno == EACCES || errno == EROFS)) {
    return Open(path, OpenAs::Read);
  }
  if (!file.IsOpen()) return {nullptr, errno};
  struct stat status {};
  if (fstat(file.number(), &status) != 0) return {nullptr, errno};
  if (S_ISDIR(status.st_mode)) return {nullptr, EISDIR};
  if (how == OpenAs::Alone) {
    if (const int error = LockWhole(file.number())) return {nullptr, error};
  }
  return {std::make_unique<SystemFile>(std::move(file)), 0};
}

int SystemFiles::Create(const std::string& path, std::string_view bytes) {
  return CreateFile(path, bytes);
}

int SystemFiles::Replace(const std::string& path, std::string_view bytes) {
  return ReplaceFile(path, bytes, NewFilePermissions(kAnyone));
}

int SystemFiles::ReplacePrivately(const std::string& path, std::string_view bytes) {
  return ReplaceFile(path, bytes, kOwnerOnly);
}

int SystemFiles::Copy(const std::string& source, const std::string& target, std::string& at) {
  at = source;
  const Descriptor from(open(source.c_str(), O_RDONLY | O_CLOEXEC));
  if (!from.IsOpen()) return errno;
  struct stat status {};
  if (fstat(from.number(), &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;

  at = target;
  std::error_code ignored;
  if (fs::equivalent(source, target, ignored)) return EEXIST;
  if (fs::is_directory(target, ignored)) return EISDIR;
  // A device is written, not replaced.
  if (fs::exists(target, ignored) && !fs::is_regular_file(target, ignored)) {
    const Descriptor to(open(target.c_str(), O_WRONLY | O_CLOEXEC));
    return to.IsOpen() ? CopyBytes(from.number(), to.number()) : errno;
  }
  Replacement copy(target);
  if (copy.error() != 0) return copy.error();
  if (const int error = CopyBytes(from.number(), copy.descriptor())) return error;
  return copy.Commit(status.st_mode & 0777);
}

int SystemFiles::TakePlace(const std::string& fresh, const std::string& place) {
  return TakePlaceOf(fresh, place);
}

int SystemFiles::Remove(const std::string& path) {
  return ErrorOf(unlink(path.c_str()));
}

int SystemFiles::MakeFolder(const std::string& path) {
  constexpr mode_t kAnyonesFolder = 0777;
  return ErrorOf(mkdir(path.c_str(), kAnyonesFolder));
}

void SystemFiles::MakeFolders(const std::string& path) {
  std::error_code ignored;
  fs::create_directories(path, ignored);
}

int SystemFiles::RemoveFolder(const std::string& path) {
  return ErrorOf(rmdir(path.c_str()));
}

std::vector<FolderEntry> SystemFiles::List(const std::string& folder) {
  std::vector<FolderEntry> entries;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    std::error_code ignored;
    const bool isFolder = fs::is_directory(at->symlink_status(ignored));
    entries.push_back({at->path().filename().string(), at->is_regular_file(ignored), isFolder});
  }
  return entries;
}

bool SystemFiles::IsFile(const std::string& path, int& error) {
  struct stat status {};
  error = ErrorOf(stat(path.c_str(), &status));
  const bool isThere = error == 0;
  if (error == ENOENT || error == ENOTDIR) error = 0;
  return isThere && !S_ISDIR(status.st_mode);
}

bool SystemFiles::IsFolder(const std::string& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

bool SystemFiles::IsTaken(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

}  // namespace tessera
