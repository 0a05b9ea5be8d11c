// `IconChanger`: puts the first image of an icon file into the place of the first icon of an executable (PE).
// It is surgery on the file: nothing is moved, and no table is rebuilt, so that a larger image covers what
// stands behind the old one.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/file_store.h"
#include "system/icon_image.h"

namespace tessera {

enum class IconProblem {
  OpenIcon,
  OpenExecutable,
  InvalidIcon,
  NotExecutable,
  NoTree,
  NoDirectories,
};

// Bytes for a place of a file.
struct Patch {
  std::size_t offset = 0;
  std::string bytes;
};

// What to write into an executable's file, in this order; its length stays.
std::variant<std::vector<Patch>, IconProblem> PlanIconChange(std::string_view executable,
                                                             const IconImage& icon);

class IconChanger {
 public:
  explicit IconChanger(FileStore& files) : files_(files) {}

  // Takes paths of the system. A copy of the old file lies beside it until all is done. Failures of a disk,
  // behind which the old file is there again.
  std::variant<std::monostate, IconProblem> ReplaceIcon(const std::string& iconFile,
                                                        const std::string& executable);

 private:
  void Write(StoredFile& file, const std::string& path, const std::vector<Patch>& patches);
  std::string FreeNameBeside(const std::string& path) const;

  FileStore& files_;
};

}  // namespace tessera
