// A case of console/outputs.txt: a program and what a person does there. A line behind "<" is one of the
// script, one behind "+" is one of a further editor, and behind "!" stands what is told on the error stream;
// a status other than 0 stands below.
#pragma once

#include <algorithm>
#include <array>
#include <sstream>
#include <string>

#include "support/console_window.h"
#include "support/temporary_folder.h"

namespace tessera::test {

// What comes of it, on a stage where one is given.
inline std::string OutputOf(const std::string& given, Stage* stage = nullptr) {
  std::array<std::string, 3> parts;
  std::istringstream lines(given);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t part = line.starts_with('<') ? 1 : line.starts_with('+') ? 2 : 0;
    parts[part].append(line, part > 0 ? std::min<std::size_t>(2, line.size()) : 0).append("\n");
  }
  const TemporaryFolder folder;
  ConsoleProgram fresh(stage);
  fresh.in.str(parts[1]);
  fresh.program.run.ProgramFolderText = folder.path().string() + "\\";
  fresh.program.run.paths = PathMapping(fresh.program.run.host.files, folder.path(), folder / "dados");
  const int status = fresh.program.Run(parts[0], parts[2]);
  std::string seen = fresh.out.str();
  std::istringstream told(fresh.err.str());
  for (std::string line; std::getline(told, line);) seen += "! " + line + "\n";
  if (status != 0) seen += "status " + std::to_string(status) + "\n";
  return seen.empty() ? "(nothing)\n" : seen;
}

}  // namespace tessera::test
