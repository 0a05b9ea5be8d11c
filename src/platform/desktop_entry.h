// What the desktop is told of a program: an entry of its menus or of its start list (the desktop entries
// of freedesktop.org). All texts are UTF-8.
#pragma once

#include <string>
#include <vector>

namespace tessera {

struct DesktopEntry {
  std::string name;
  std::vector<std::string> command;
  std::string folder;      // in which the program starts
  std::string icon = {};   // the picture's full path; empty: none of its own
  bool isForMenu = false;  // it has a place among the programs
};

// The content of the entry's file.
std::string DesktopEntryText(const DesktopEntry& entry);

}  // namespace tessera
