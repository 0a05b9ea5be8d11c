#include "platform/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/descriptor_io.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

std::string FolderOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

// What a link at the place leads to.
std::string RealPlace(const std::string& path) {
  std::error_code ignored;
  const std::string real = fs::weakly_canonical(path, ignored).string();
  return real.empty() ? path : real;
}

int Sync(int descriptor) {
  // A file system without this call has nothing to wait for.
  return fsync(descriptor) == 0 || errno == EINVAL || errno == ENOSYS ? 0 : errno;
}

// A name in a folder is on the disk once the folder is.
void SyncFolderOf(const std::string& path) {
  const Descriptor folder(open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) fsync(folder.number());
}

int WriteSynced(int descriptor, std::string_view bytes) {
  if (const int error = WriteAll(descriptor, bytes)) return error;
  return Sync(descriptor);
}

// A file without a name gets one when it is whole. ENOTSUP where the file system has no such files or no
// links.
int CreateByLink(const std::string& path, std::string_view bytes) {
  const Descriptor file(open(FolderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
  if (!file.IsOpen()) return errno == ENOENT || errno == ENOTDIR || errno == EACCES ? errno : ENOTSUP;
  if (const int error = WriteSynced(file.number(), bytes)) return error;
  const std::string name = "/proc/self/fd/" + std::to_string(file.number());
  if (linkat(AT_FDCWD, name.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0) return 0;
  return errno == EEXIST ? EEXIST : ENOTSUP;
}

int CreateInPlace(const std::string& path, std::string_view bytes) {
  const Descriptor file(open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
  if (!file.IsOpen()) return errno;
  const int error = WriteSynced(file.number(), bytes);
  if (error != 0) unlink(path.c_str());
  return error;
}

}  // namespace

std::variant<std::string, SystemError> ReadWholeFile(const std::string& path) {
  constexpr std::size_t kPortion = std::size_t{1} << 16;
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return SystemError{errno};
  struct stat told {};
  const bool tellsSize = fstat(file.number(), &told) == 0 && told.st_size > 0;
  // One byte more than it tells, which finds its end. Some files tell of no size, and some grow meanwhile.
  std::size_t portion = tellsSize ? std::min(kPortion, static_cast<std::size_t>(told.st_size) + 1) : kPortion;
  std::string bytes;
  for (;;) {
    const std::size_t before = bytes.size();
    if (const int error = ReadSome(file.number(), portion, bytes)) return SystemError{error};
    if (bytes.size() == before) return bytes;
    portion = std::min(kPortion, bytes.size() + 1);
  }
}

mode_t NewFilePermissions(mode_t wanted) {
  const mode_t mask = umask(0);
  umask(mask);
  return wanted & ~mask;
}

Replacement::Replacement(const std::string& place)
    : place_(RealPlace(place)), path_(place_ + ".XXXXXX"), file_(mkostemp(path_.data(), O_CLOEXEC)) {
  if (file_.IsOpen()) return;
  error_ = errno;
  path_.clear();
}

Replacement::~Replacement() {
  if (!path_.empty()) unlink(path_.c_str());
}

int Replacement::Commit(mode_t permissions) {
  if (error_ != 0) return error_;
  if (fchmod(file_.number(), permissions) != 0 && errno != EPERM) return errno;
  if (const int error = Sync(file_.number())) return error;
  if (const int error = TakePlaceOf(path_, place_)) return error;
  path_.clear();
  return 0;
}

int TakePlaceOf(const std::string& fresh, const std::string& place) {
  if (std::rename(fresh.c_str(), place.c_str()) != 0) return errno;
  SyncFolderOf(place);
  return 0;
}

int ReplaceFile(const std::string& path, std::string_view bytes, mode_t permissions) {
  Replacement fresh(path);
  if (fresh.error() != 0) return fresh.error();
  if (const int error = WriteAll(fresh.descriptor(), bytes)) return error;
  return fresh.Commit(permissions);
}

int CreateFile(const std::string& path, std::string_view bytes) {
  const int error = CreateByLink(path, bytes);
  return error == ENOTSUP ? CreateInPlace(path, bytes) : error;
}

void MakeFoldersFor(const std::string& path) {
  std::error_code ignored;
  fs::create_directories(fs::path(path).parent_path(), ignored);
}

}  // namespace tessera
