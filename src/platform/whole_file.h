// Files that are read, made and replaced whole, so that another process sees the old content or the new one
// and never a part. Failures are the system's error numbers; 0 is none.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <variant>

#include "platform/descriptor.h"

namespace tessera {

struct SystemError {
  int number;
};

// The bytes of a file. What can't be read is never an empty file: a missing one is ENOENT.
std::variant<std::string, SystemError> ReadWholeFile(const std::string& path);

inline constexpr mode_t kOwnerOnly = 0600;

// The permissions of a new file of this process, as its user's mask has them.
mode_t NewFilePermissions(mode_t wanted = 0666);

// A new file beside a place, which it takes by `Commit`; without one it vanishes, and the old file is as it
// was. A link at the place leads on to its file.
class Replacement {
 public:
  explicit Replacement(const std::string& place);
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  // Why there is no new file.
  int error() const { return error_; }
  int descriptor() const { return file_.number(); }

  // Returns when the new file stands in its place on the disk.
  int Commit(mode_t permissions);

 private:
  std::string place_;
  std::string path_;  // empty once it has taken its place
  Descriptor file_;
  int error_ = 0;
};

// Puts a file with these bytes in the place of the old one.
int ReplaceFile(const std::string& path, std::string_view bytes, mode_t permissions = kOwnerOnly);

// Gives a whole file, whose bytes are on the disk, the place of another one beside it. Returns when the new
// name is there as well.
int TakePlaceOf(const std::string& fresh, const std::string& place);

// Makes a file with these bytes where there is none; EEXIST where there is one. No other process ever sees a
// part of it, and a death leaves nothing behind, wherever the file system knows files without a name.
int CreateFile(const std::string& path, std::string_view bytes);

// Makes the folders above a file, as far as they are missing.
void MakeFoldersFor(const std::string& path);

}  // namespace tessera
