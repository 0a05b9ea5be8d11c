#include "platform/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/binary_file.h"
#include "platform/descriptor.h"
#include "platform/descriptor_io.h"
#include "platform/failure.h"
#include "platform/whole_file.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

// Entries of a folder whose names are program text, sorted blind to case. What can't be read has none.
struct Entry {
  std::string name;
  std::string upper;
  bool isFile;
  bool isFolder;  // no link to one, so that a walk comes to an end
};

std::vector<Entry> EntriesOf(const std::string& folder) {
  std::vector<Entry> entries;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const auto text = FromUtf8(at->path().filename().string());
    const auto* name = std::get_if<std::string>(&text);
    if (name == nullptr) continue;
    std::error_code ignored;
    const bool isFolder = fs::is_directory(at->symlink_status(ignored));
    entries.push_back({*name, Upper(*name), at->is_regular_file(ignored), isFolder});
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return a.upper != b.upper ? a.upper < b.upper : a.name < b.name;
  });
  return entries;
}

void CopyBytes(int source, int target) {
  constexpr std::size_t kPortion = std::size_t{1} << 18;
  for (;;) {
    std::string bytes;
    if (const int error = ReadSome(source, kPortion, bytes)) FailSystem(error);
    if (bytes.empty()) return;
    std::string_view rest = bytes;
    if (const int error = WriteAll(target, rest)) FailSystem(error);
  }
}

// Writes a copy beside the target and puts it in the target's place.
void ReplaceByCopy(int source, mode_t permissions, const std::string& target) {
  Replacement copy(target);
  if (copy.error() != 0) FailOpening(target, copy.error());
  CopyBytes(source, copy.descriptor());
  if (const int error = copy.Commit(permissions)) FailSystem(error);
}

}  // namespace

void FailOpening(const std::string& path, int error) {
  const fs::path folder = fs::path(path).parent_path();
  std::error_code ignored;
  if (error == ENOENT && !folder.empty() && !fs::is_directory(folder, ignored)) Fail(76);
  FailSystem(error);
}

bool IsFile(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return !S_ISDIR(status.st_mode);
  if (errno != ENOENT && errno != ENOTDIR) FailSystem(errno);
  return false;
}

void CopyFile(const std::string& source, const std::string& target) {
  const Descriptor from(open(source.c_str(), O_RDONLY | O_CLOEXEC));
  if (!from.IsOpen()) FailOpening(source, errno);
  struct stat status {};
  if (fstat(from.number(), &status) != 0) FailSystem(errno);
  if (S_ISDIR(status.st_mode)) FailSystem(EISDIR);

  std::error_code ignored;
  if (fs::equivalent(source, target, ignored)) Fail(70);
  if (fs::is_directory(target, ignored)) FailSystem(EISDIR);
  // A device is written, not replaced.
  if (fs::exists(target, ignored) && !fs::is_regular_file(target, ignored)) {
    const Descriptor to(open(target.c_str(), O_WRONLY | O_CLOEXEC));
    if (!to.IsOpen()) FailOpening(target, errno);
    CopyBytes(from.number(), to.number());
    return;
  }
  ReplaceByCopy(from.number(), status.st_mode & 0777, target);
}

bool RemoveFile(const std::string& path) {
  return unlink(path.c_str()) == 0;
}

void MakeFolder(const std::string& path) {
  constexpr mode_t kAnyone = 0777;
  if (mkdir(path.c_str(), kAnyone) == 0) return;
  if (errno == EEXIST) Fail(75);
  if (errno == ENOENT) Fail(76);
  FailSystem(errno);
}

void RemoveFolder(const std::string& path) {
  if (rmdir(path.c_str()) == 0) return;
  if (errno == ENOTEMPTY || errno == EEXIST) Fail(75);
  if (errno == ENOENT) Fail(76);
  FailSystem(errno);
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

std::vector<std::string> FilesThatFit(const std::string& folder, std::string_view pattern) {
  std::vector<std::string> names;
  for (Entry& entry : EntriesOf(folder)) {
    const bool hidden = entry.name.starts_with('.') && !pattern.starts_with('.');
    if (entry.isFile && !hidden && FitsPattern(entry.name, pattern)) names.push_back(std::move(entry.name));
  }
  return names;
}

std::optional<std::string> FindInTree(const std::string& folder, std::string_view name) {
  const std::string sought = Upper(name);
  // Folders still to be searched, in program text from `folder` on; the next one is the last.
  std::vector<std::string> open = {""};
  while (!open.empty()) {
    const std::string below = std::move(open.back());
    open.pop_back();
    const std::vector<Entry> entries = EntriesOf(folder + "/" + ToUtf8(Replace(below, '\\', '/')));
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
