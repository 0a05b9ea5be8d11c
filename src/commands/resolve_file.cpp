#include "commands/resolve_file.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "text/one_based.h"

namespace tessera {

std::string ResolveFile(const Run& run, std::string_view path) {
  if (path.empty()) return {};
  std::string full(path);
  const bool hasDrive = CharAt(path, 2) == ':';
  // The current folder has no drive letter on this system, so that a path from the root stays as it is.
  if (!hasDrive && std::none_of(path.begin(), path.end(), IsPathSeparator)) {
    full.insert(0, run.ProgramFolderText);
  }
  bool exists = false;
  Guard([&] { exists = IsFile(run.host.files, run.paths.SystemPath(full)); });
  return exists ? full : std::string();
}

}  // namespace tessera
