#include "platform/start_list.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/desktop_entry.h"
#include "platform/file_store.h"
#include "platform/whole_file.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

std::string StartList::FileOf(std::string_view name) const {
  return folder_ + "/" + ToUtf8(Replace(name, '/', '_')) + ".desktop";
}

bool StartList::Add(std::string_view name, const ProcessStart& start) const {
  files_->MakeFolders(folder_);
  const DesktopEntry entry{.name = ToUtf8(name), .command = start.command, .folder = start.folder};
  return files_->ReplacePrivately(FileOf(name), DesktopEntryText(entry)) == 0;
}

void StartList::Remove(std::string_view name) const {
  files_->Remove(FileOf(name));
}

ProcessStart OwnStart() {
  std::error_code ignored;
  std::vector<std::string> words = {std::filesystem::read_symlink("/proc/self/exe", ignored).string()};
  const auto read = ReadWholeFile("/proc/self/cmdline");
  const std::string line = std::holds_alternative<std::string>(read) ? std::get<std::string>(read) : "";
  for (std::size_t at = line.find('\0'); at != std::string::npos && at + 1 < line.size();) {
    const std::size_t end = line.find('\0', at + 1);
    words.push_back(line.substr(at + 1, end - at - 1));
    at = end;
  }
  return {.command = std::move(words), .folder = std::filesystem::current_path(ignored).string()};
}

}  // namespace tessera
