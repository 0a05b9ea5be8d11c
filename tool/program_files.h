// A program on disk: one file `Nome.tsc`, or a folder of them.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <variant>

#include "image/packed_program.h"

namespace tessera {

struct LoadedProgram {
  PackedProgram program;
  std::string stem;                         // the file's or folder's name as it stands, in UTF-8
  std::filesystem::path folder;             // where the program lives, absolute
  std::array<std::string, kEditors> files;  // path of each editor's file, as a person would name it
};

// Why a program could not be loaded: a message in UTF-8 for a person, with file, line and column where it
// speaks of a character.
struct LoadProblem {
  std::string message;
};

// Reads the program at `path` (UTF-8, as given by the person).
std::variant<LoadedProgram, LoadProblem> LoadProgram(const std::string& path);

}  // namespace tessera
