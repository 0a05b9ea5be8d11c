// How a finished program looks on the desktop: its icon, and its entry in the menu of programs. They lie
// beside the program, or in the user's own folders, where the desktop finds them.
#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace tessera {

// A picture as desktops take it.
struct ProgramIcon {
  std::string bytes;
  std::string extension;  // ".png" or ".svg"
};

// The icon in a PNG, ICO or SVG file, of an ICO file its largest picture; or why it can't be used.
std::variant<ProgramIcon, std::string> ReadProgramIcon(const std::string& path);

struct ProgramLooks {
  std::filesystem::path program;  // the finished one
  const ProgramIcon* icon = nullptr;
  bool inMenu = false;  // in the user's folders
};

// Why they must not be written, or empty: the entry of another program stays.
std::string LooksProblem(const ProgramLooks& looks);

// Writes icon and entry; the files written, or why one could not be.
std::variant<std::vector<std::string>, std::string> WriteLooks(const ProgramLooks& looks);

}  // namespace tessera
