// What statements cost: the programs in work/, beside the same work in other languages, and programs that are
// long or hold many routines.
#pragma once

#include <filesystem>
#include <string>

#include "table.h"

namespace tessera::bench {

struct Place {
  std::filesystem::path programs;  // this folder
  std::string tessera;
  std::filesystem::path scratch;  // an empty folder of this run
};

void MeasureWork(const Place& place, Table& table);

// A straight line of `lines` statements, run through `rounds` times, in the scratch folder.
std::filesystem::path WriteStraightProgram(const std::filesystem::path& folder, int lines, int rounds);

}  // namespace tessera::bench
