// Where the file names that programs write lead on this system. Every opening goes through this one mapping.
//
// A program's path separates by "\" or "/". One that begins with a drive letter lies under the user's data
// folder, which has a folder for each letter; one that begins with a separator begins at the system's root;
// any other lies in the program's folder (OPEN: wherever the process was
// started from, a program finds its own files). A component that does not exist as it is spelled is looked up
// blind to case. Program paths are program text, the system's are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessera {

class FileStore;

bool IsPathSeparator(char c);

class PathMapping {
 public:
  // The program's folder and the folder that holds the drive letters' ones, as paths of the system.
  explicit PathMapping(FileStore& files, std::string programFolder = ".", std::string dataFolder = ".");

  // The system's path of a program's path; the empty path stays empty. The folder of a drive letter is made
  // when it is missing. A component that no name fits stays as it is spelled. Failure 52 for a path with NUL.
  std::string SystemPath(std::string_view path) const;

 private:
  std::string DriveFolder(char letter) const;
  std::optional<std::string> NameIgnoringCase(const std::string& folder, std::string_view name) const;
  bool LiesInProgramFolder(std::string_view path) const;

  FileStore* files_;
  std::string programFolder_;
  // How programs see that folder: a character beyond the code page reads as "?" there, and leads back here.
  std::string programFolderText_;
  std::string dataFolder_;
};

// The folder under the user's data folder that belongs to this system, by the desktop's conventions: within
// `xdgDataHome` if that is an absolute path, else within `home`. Either may be null.
std::string SystemDataFolder(const char* xdgDataHome, const char* home);

}  // namespace tessera
