// A part of the system in a shared object of its own, loaded when a program first needs it, so that programs
// without it start as fast as ever. What can't be loaded is told with the package that brings it.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace tessera {

struct PartEntry {
  void* entry = nullptr;  // the part's one entry point; null where it could not be loaded
  std::string problem;    // why, as program text
};

// Loads "libtessera_NAME.so" from the first of `folders` that has it and looks its entry point up. The part
// comes with the package "tessera-NAME" and stands on the libraries of `package`.
PartEntry LoadPart(std::span<const std::filesystem::path> folders, std::string_view name, const char* entry,
                   std::string_view package);

}  // namespace tessera
