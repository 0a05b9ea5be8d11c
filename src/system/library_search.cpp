#include "system/library_search.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/file_store.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "text/code_page.h"

namespace tessera {

namespace {

// The folders in which the system's loader looks.
std::vector<std::string> LoaderFolders() {
  std::vector<std::string> folders;
  void* self = dlopen(nullptr, RTLD_NOW);
  Dl_serinfo size{};
  if (self != nullptr && dlinfo(self, RTLD_DI_SERINFOSIZE, &size) == 0) {
    std::vector<std::max_align_t> room(size.dls_size / sizeof(std::max_align_t) + 1);
    auto* found = reinterpret_cast<Dl_serinfo*>(room.data());
    *found = size;
    if (dlinfo(self, RTLD_DI_SERINFO, found) == 0) {
      for (unsigned i = 0; i < found->dls_cnt; ++i) folders.emplace_back(found->dls_serpath[i].dls_name);
    }
  }
  if (self != nullptr) dlclose(self);
  folders.emplace_back("/usr/local/lib");
  return folders;
}

// The path of "libz.so" with its highest version; empty where the folder has none.
// OPEN: the highest one, by the order of its numbers, and "libz.so" finds it as "z" does: the file of that
// bare name is often a text for compilers.
std::string HighestVersion(FileStore& files, const std::string& folder, const std::string& base) {
  std::string highest;
  for (const FolderEntry& entry : files.List(folder)) {
    const bool isVersion = entry.name.starts_with(base + ".");
    if (isVersion && strverscmp(entry.name.c_str(), highest.c_str()) > 0) highest = entry.name;
  }
  return highest.empty() ? highest : folder + "/" + highest;
}

}  // namespace

std::vector<std::string> LibraryCandidates(const Run& run, std::string_view name) {
  if (name.empty()) return {};
  FileStore& files = run.host.files;
  const std::string inProgramFolder = run.paths.SystemPath(name);
  if (std::any_of(name.begin(), name.end(), IsPathSeparator)) return {inProgramFolder};
  std::vector<std::string> candidates;
  if (IsFile(files, inProgramFolder)) candidates.push_back(inProgramFolder);
  const std::string asGiven = ToUtf8(name);
  candidates.push_back(asGiven);
  const std::string base = asGiven.ends_with(".so") ? asGiven : "lib" + asGiven + ".so";
  for (const std::string& folder : LoaderFolders()) {
    if (std::string path = HighestVersion(files, folder, base); !path.empty()) {
      candidates.push_back(std::move(path));
      break;
    }
  }
  return candidates;
}

}  // namespace tessera
