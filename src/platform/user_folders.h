// The folders that the desktop gives a user, by the conventions of freedesktop.org.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tessera {

// Absolute paths without a final separator, in the program's code page.
struct UserFolders {
  std::string configuration;  // of the whole system
  std::string desktop;        // of the user
  std::string applications;   // of the user: the menu of programs
};

// A variable of the process' environment, or nothing.
using EnvironmentReader = std::function<const char*(const char* name)>;

// The folder of the user's own configuration, as a path of the system.
std::string UserConfigurationFolder(const EnvironmentReader& environment);

// The folder of the user's own data.
std::string UserDataFolder(const EnvironmentReader& environment);

UserFolders FindUserFolders(const EnvironmentReader& environment);

}  // namespace tessera
