#include "platform/file_system.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/binary_file.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// Entries of a folder whose names are program text, sorted blind to case.
struct Entry {
  std::string name;
  std::string upper;
  bool isFile;
  bool isFolder;
};

std::vector<Entry> EntriesOf(FileStore& files, const std::string& folder) {
  std::vector<Entry> entries;
  for (const FolderEntry& entry : files.List(folder)) {
    const auto text = FromUtf8(entry.name);
    const auto* name = std::get_if<std::string>(&text);
    if (name != nullptr) entries.push_back({*name, Upper(*name), entry.isFile, entry.isFolder});
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return a.upper != b.upper ? a.upper < b.upper : a.name < b.name;
  });
  return entries;
}

}  // namespace

void FailOpening(FileStore& files, const std::string& path, int error) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  if (error == ENOENT && !folder.empty() && !files.IsFolder(folder)) Fail(76);
  FailSystem(error);
}

bool IsFile(FileStore& files, const std::string& path) {
  int error = 0;
  const bool isFile = files.IsFile(path, error);
  if (error != 0) FailSystem(error);
  return isFile;
}

void CopyFile(FileStore& files, const std::string& source, const std::string& target) {
  std::string at;
  const int error = files.Copy(source, target, at);
  if (error == EEXIST) Fail(70);
  if (error != 0) FailOpening(files, at, error);
}

bool RemoveFile(FileStore& files, const std::string& path) {
  return files.Remove(path) == 0;
}

void MakeFolder(FileStore& files, const std::string& path) {
  const int error = files.MakeFolder(path);
  if (error == EEXIST) Fail(75);
  if (error == ENOENT) Fail(76);
  if (error != 0) FailSystem(error);
}

void RemoveFolder(FileStore& files, const std::string& path) {
  const int error = files.RemoveFolder(path);
  if (error == ENOTEMPTY || error == EEXIST) Fail(75);
  if (error == ENOENT) Fail(76);
  if (error != 0) FailSystem(error);
}

bool FitsPattern(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  // Behind a "*" every place of the name is tried; only the last "*" needs its place remembered.
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = std::string_view::npos;
  std::size_t starAt = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      starAt = at;
    } else if (in < pattern.size() && (pattern[in] == '?' || Upper(pattern[in]) == Upper(name[at]))) {
      ++in;
      ++at;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

std::vector<std::string> FilesThatFit(FileStore& files, const std::string& folder, std::string_view pattern) {
  std::vector<std::string> names;
  for (Entry& entry : EntriesOf(files, folder)) {
    const bool hidden = entry.name.starts_with('.') && !pattern.starts_with('.');
    if (entry.isFile && !hidden && FitsPattern(entry.name, pattern)) names.push_back(std::move(entry.name));
  }
  return names;
}

std::optional<std::string> FindInTree(FileStore& files, const std::string& folder, std::string_view name) {
  const std::string sought = Upper(name);
  // Folders still to be searched, in program text from `folder` on; the next one is the last.
  std::vector<std::string> open = {""};
  while (!open.empty()) {
    const std::string below = std::move(open.back());
    open.pop_back();
    const std::vector<Entry> entries = EntriesOf(files, folder + "/" + ToUtf8(Replace(below, '\\', '/')));
    for (const Entry& entry : entries) {
      if (entry.isFile && entry.upper == sought) return below + entry.name;
    }
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
      if (entry->isFolder) open.push_back(below + entry->name + "\\");
    }
  }
  return std::nullopt;
}

}  // namespace tessera
