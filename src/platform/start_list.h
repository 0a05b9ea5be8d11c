// The programs that begin with the user's session: the desktop's autostart folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessera {

class StartList {
 public:
  // The desktop's folder; it is made by the first entry.
  explicit StartList(std::string folder) : folder_(std::move(folder)) {}

  // An entry of that name (program text) that starts `command` in `workingFolder`, both in UTF-8. One of the
  // same name is replaced. False where the disk refuses.
  bool Add(std::string_view name, const std::vector<std::string>& command,
           const std::string& workingFolder) const;
  void Remove(std::string_view name) const;

 private:
  std::string FileOf(std::string_view name) const;

  std::string folder_;
};

// The words by which this process was started, the executable's full path in front.
std::vector<std::string> OwnCommand();

}  // namespace tessera
