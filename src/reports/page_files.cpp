#include "reports/page_files.h"

#include <algorithm>
#include <cerrno>
#include <vector>

#include "platform/file_system.h"
#include "text/one_based.h"
#include "windows/picture_file.h"

namespace tessera::reports {

namespace {

constexpr std::string_view kTmp = "TMP";
constexpr std::string_view kPng = ".png";
constexpr int kPrefixes = 1000;
constexpr int kPageDigits = 4;

bool IsDigits(std::string_view text, std::size_t least, std::size_t most) {
  return text.size() >= least && text.size() <= most &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The prefix of a page file or of its lock; empty for what is none of ours.
std::string_view PrefixOf(std::string_view name) {
  const bool isLock = name.starts_with('.');
  if (isLock) name.remove_prefix(1);
  const std::size_t tmp = name.find(kTmp);
  if (tmp == std::string_view::npos || !IsDigits(name.substr(0, tmp), 1, kPageDigits)) return {};
  std::string_view rest = name.substr(tmp + kTmp.size());
  if (isLock) return rest.empty() ? name : std::string_view();
  if (!rest.ends_with(kPng)) return {};
  rest.remove_suffix(kPng.size());
  constexpr std::size_t kMostDigits = 9;
  return IsDigits(rest, kPageDigits, kMostDigits) ? name.substr(0, tmp + kTmp.size()) : std::string_view();
}

std::string LockName(std::string_view prefix) {
  return std::string(".").append(prefix);
}

}  // namespace

std::string PageFiles::PathOf(std::string_view name) const {
  return std::string(folder_).append("/").append(name);
}

std::string PageFiles::PageName(int number) const {
  return prefix_ + ZeroFilled(number, kPageDigits) + std::string(kPng);
}

void PageFiles::Begin() {
  Remove();
  folder_ = run_.paths.SystemPath(run_.ProgramFolderText + "XRel");
  run_.host.files.MakeFolder(folder_);
  Sweep();
  // A folder that can't be written to leaves the last prefix drawn, and the first page fails.
  for (int i = 0; i < kPrefixes && !TakePrefix(); ++i) continue;
}

// Somebody who sweeps may take away the lock between its making and its locking: then it is no lock any more.
bool PageFiles::TakePrefix() {
  const int number = static_cast<int>(run_.host.random.Next() * kPrefixes) + 1;
  prefix_ = std::to_string(number).append(kTmp);
  FileStore& files = run_.host.files;
  for (const FolderEntry& entry : files.List(folder_)) {
    if (PrefixOf(entry.name) == prefix_) return false;
  }
  const std::string path = PathOf(LockName(prefix_));
  lock_ = files.Open(path, OpenAs::New).file;
  return lock_ != nullptr && lock_->TryLock() == 0 && lock_->IsAt(path);
}

void PageFiles::Sweep() {
  FileStore& files = run_.host.files;
  std::vector<std::string> gone;
  const std::vector<FolderEntry> entries = files.List(folder_);
  for (const FolderEntry& entry : entries) {
    const std::string prefix(PrefixOf(entry.name));
    if (prefix.empty() || std::find(gone.begin(), gone.end(), prefix) != gone.end()) continue;
    const auto [lock, error] = files.Open(PathOf(LockName(prefix)), OpenAs::Read);
    if (error == ENOENT || (lock != nullptr && lock->TryLock() == 0)) gone.push_back(prefix);
  }
  for (const FolderEntry& entry : entries) {
    const std::string_view prefix = PrefixOf(entry.name);
    if (std::find(gone.begin(), gone.end(), prefix) != gone.end()) files.Remove(PathOf(entry.name));
  }
}

void PageFiles::Save(int number, const Raster& page) {
  PictureCodec* const codec = pictures_.Codec();
  if (codec == nullptr) return;
  FileStore& files = run_.host.files;
  const std::string path = PathOf(PageName(number));
  if (const int error = WritePicture(codec->EncodePage(page), files, path)) FailOpening(files, path, error);
  saved_ = std::max(saved_, number);
}

void PageFiles::Remove() {
  if (prefix_.empty()) return;
  FileStore& files = run_.host.files;
  for (int page = 1; page <= saved_; ++page) files.Remove(PathOf(PageName(page)));
  if (lock_ != nullptr) files.Remove(PathOf(LockName(prefix_)));
  lock_ = nullptr;
  saved_ = 0;
  prefix_.clear();
  files.RemoveFolder(folder_);
}

}  // namespace tessera::reports
