#include "platform/user_folders.h"

#include <fstream>

#include "text/code_page.h"

namespace tessera {

namespace {

// A variable that holds an absolute path, as the conventions ask; else the fallback.
std::string FolderOr(const char* value, std::string fallback) {
  return value != nullptr && value[0] == '/' ? value : std::move(fallback);
}

// The value of a line `XDG_DESKTOP_DIR="$HOME/..."` or `="/..."`; anything else gives the fallback.
std::string DesktopFolder(const std::string& userDirsFile, const std::string& home) {
  constexpr std::string_view kKey = "XDG_DESKTOP_DIR=\"";
  constexpr std::string_view kHome = "$HOME";
  std::ifstream file(userDirsFile);
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(kKey)) continue;
    std::string path = line.substr(kKey.size());
    path.resize(std::min(path.find('"'), path.size()));
    if (path.starts_with(kHome)) path.replace(0, kHome.size(), home);
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    if (path.starts_with('/')) return path;
  }
  return home + "/Desktop";
}

}  // namespace

std::string UserConfigurationFolder(const EnvironmentReader& environment) {
  return FolderOr(environment("XDG_CONFIG_HOME"), FolderOr(environment("HOME"), "/") + "/.config");
}

std::string UserDataFolder(const EnvironmentReader& environment) {
  return FolderOr(environment("XDG_DATA_HOME"), FolderOr(environment("HOME"), "/") + "/.local/share");
}

UserFolders FindUserFolders(const EnvironmentReader& environment) {
  const std::string home = FolderOr(environment("HOME"), "/");
  const std::string userConfiguration = UserConfigurationFolder(environment);
  // A list of folders, the most important first.
  std::string configuration = FolderOr(environment("XDG_CONFIG_DIRS"), "/etc/xdg");
  configuration.resize(std::min(configuration.find(':'), configuration.size()));
  return {
      .configuration = FromUtf8Lossy(configuration),
      .desktop = FromUtf8Lossy(DesktopFolder(userConfiguration + "/user-dirs.dirs", home)),
      .applications = FromUtf8Lossy(UserDataFolder(environment) + "/applications"),
  };
}

}  // namespace tessera
