// A finished program as a package of the system (.deb): the program with its data files, a command, a place
// in the menu, and what it needs.
//
//   /usr/lib/NAME/         the program and its files
//   /usr/bin/NAME          the command
//   /usr/share/applications/NAME.desktop, /usr/share/icons/...
//
// A program keeps its records beside itself, where a user of the system may not write. So the command gives
// each user a folder of the program's own, ~/.local/share/NAME, takes there what is not there yet, and runs
// it from there; what a user has recorded stays when the package is renewed or removed.
#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "tool/program_looks.h"
#include "tool/program_needs.h"

namespace tessera {

struct ProgramPackage {
  std::string stem;  // the program's name as a person writes it
  std::string version;
  std::string_view file;                        // the finished program's bytes
  std::vector<std::filesystem::path> included;  // files and folders that come to lie beside it
  const ProgramIcon* icon = nullptr;
  std::vector<NeededPackage> needs;
};

// The name of the package: lower case, without accents and blanks; empty where nothing of the name remains.
std::string PackageName(const std::string& stem);

// Writes the package into a folder. Its path, or in the user's language why there is none.
std::variant<std::filesystem::path, std::string> WritePackage(const ProgramPackage& package,
                                                              const std::filesystem::path& folder);

// Copies files and whole folders into a folder. Empty, or why it can't be.
std::string CopyBeside(const std::vector<std::filesystem::path>& included,
                       const std::filesystem::path& folder);

}  // namespace tessera
