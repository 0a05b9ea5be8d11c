#include "platform/paths.h"

#include <utility>

#include "platform/failure.h"
#include "platform/file_store.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

bool IsPathSeparator(char c) {
  return c == '\\' || c == '/';
}

PathMapping::PathMapping(FileStore& files, std::string programFolder, std::string dataFolder)
    : files_(&files),
      programFolder_(std::move(programFolder)),
      programFolderText_(FromUtf8Lossy(programFolder_)),
      dataFolder_(std::move(dataFolder)) {}

std::string PathMapping::DriveFolder(char letter) const {
  std::string folder = dataFolder_ + '/' + letter;
  // Where it can't be made the opening fails, and tells.
  files_->MakeFolders(folder);
  return folder;
}

// The name in `folder` that equals `name` blind to case; of several the first in order.
std::optional<std::string> PathMapping::NameIgnoringCase(const std::string& folder,
                                                         std::string_view name) const {
  std::optional<std::string> best;
  for (const FolderEntry& entry : files_->List(folder)) {
    const auto text = FromUtf8(entry.name);
    const auto* inCodePage = std::get_if<std::string>(&text);
    if (inCodePage == nullptr || !EqualsIgnoringCase(*inCodePage, name)) continue;
    if (!best || entry.name < *best) best = entry.name;
  }
  return best;
}

bool PathMapping::LiesInProgramFolder(std::string_view path) const {
  if (programFolderText_.empty() || !path.starts_with(programFolderText_)) return false;
  return path.size() == programFolderText_.size() || IsPathSeparator(path[programFolderText_.size()]);
}

std::string PathMapping::SystemPath(std::string_view path) const {
  if (path.empty()) return {};
  if (Contains(path, std::string_view("\0", 1))) Fail(52);

  // Where the path begins.
  std::string system = programFolder_;
  const char letter = Upper(path.front());
  if (CharAt(path, 2) == ':' && letter >= 'A' && letter <= 'Z') {
    system = DriveFolder(letter);
    path.remove_prefix(2);
  } else if (LiesInProgramFolder(path)) {
    path.remove_prefix(programFolderText_.size());
  } else if (IsPathSeparator(path.front())) {
    system.clear();
  }

  // One component after the other; empty ones fall away.
  bool spelledOnly = false;  // a folder above is missing
  for (std::size_t begin = 0; begin < path.size();) {
    std::size_t end = begin;
    while (end < path.size() && !IsPathSeparator(path[end])) ++end;
    const std::string_view name = path.substr(begin, end - begin);
    begin = end + 1;
    if (name.empty()) continue;
    std::string next = system + '/' + ToUtf8(name);
    if (!spelledOnly && !files_->IsTaken(next)) {
      if (const auto other = NameIgnoringCase(system + '/', name)) {
        next = system + '/' + *other;
      } else {
        spelledOnly = true;
      }
    }
    system = std::move(next);
  }
  return system.empty() ? "/" : system;
}

std::string SystemDataFolder(const char* xdgDataHome, const char* home) {
  const std::string own = "/tessera";
  if (xdgDataHome != nullptr && xdgDataHome[0] == '/') return xdgDataHome + own;
  return (home != nullptr && home[0] == '/' ? home : std::string()) + "/.local/share" + own;
}

}  // namespace tessera
