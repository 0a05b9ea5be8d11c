// The programs that begin with the user's session: the desktop's autostart folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessera {

class FileStore;

// How a process was started, in UTF-8: its words, the executable's full path in front, and its folder.
struct ProcessStart {
  std::vector<std::string> command;
  std::string folder;
};

class StartList {
 public:
  // The desktop's folder; it is made by the first entry. The store outlives it.
  StartList(FileStore& files, std::string folder) : files_(&files), folder_(std::move(folder)) {}

  // An entry of that name (program text) that starts a process so. One of the same name is replaced. False
  // where the disk refuses.
  bool Add(std::string_view name, const ProcessStart& start) const;
  void Remove(std::string_view name) const;

 private:
  std::string FileOf(std::string_view name) const;

  FileStore* files_;
  std::string folder_;
};

// That of this process.
ProcessStart OwnStart();

}  // namespace tessera
