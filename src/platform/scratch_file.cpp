#include "platform/scratch_file.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdlib>

#include "platform/descriptor_io.h"

namespace tessera {

namespace {

// Where the file system knows no files without a name, the name is taken away at once.
int OpenIn(const std::string& folder) {
  const int unnamed = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (unnamed >= 0) return unnamed;
  std::string path = folder + "/tessera.XXXXXX";
  const int named = mkostemp(path.data(), O_CLOEXEC);
  if (named >= 0) unlink(path.c_str());
  return named;
}

std::string Folder() {
  const char* named = std::getenv("TMPDIR");
  return named != nullptr && *named != '\0' ? named : "/var/tmp";
}

}  // namespace

ScratchFile::ScratchFile() : file_(OpenIn(Folder())) {
  if (!file_.IsOpen()) error_ = errno;
}

int ScratchFile::Append(std::string_view bytes) {
  const std::size_t count = bytes.size();
  const int error = error_ != 0 ? error_ : WriteAllAt(file_.number(), length_, bytes);
  length_ += count - bytes.size();
  return error;
}

int ScratchFile::ReadAt(std::uint64_t offset, std::size_t most, std::string& bytes) const {
  return error_ != 0 ? error_ : ReadSomeAt(file_.number(), offset, most, bytes);
}

}  // namespace tessera
