// Programs on the console host and what a person does there: a line behind "<" is one of the script, one
// behind
// "+" is one of a further editor, and behind "!" stands what is told on the error stream.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>

#include "support/console_window.h"
#include "support/table.h"
#include "support/temporary_folder.h"

namespace tessera::test {

namespace {

class ConsoleOutputs : public testing::TestWithParam<Table> {};

}  // namespace

TEST_P(ConsoleOutputs, AreThoseOfTheTable) {
  for (const auto& [given, result] : GetParam().cases) {
    std::array<std::string, 3> parts;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      const std::size_t part = line.starts_with('<') ? 1 : line.starts_with('+') ? 2 : 0;
      parts[part].append(line, part > 0 ? std::min<std::size_t>(2, line.size()) : 0).append("\n");
    }
    const TemporaryFolder folder;
    ConsoleProgram fresh;
    fresh.in.str(parts[1]);
    fresh.program.run.ProgramFolderText = folder.path().string() + "\\";
    fresh.program.run.paths = PathMapping(fresh.program.run.host.files, folder.path(), folder / "dados");
    fresh.program.Run(parts[0], parts[2]);
    std::string seen = fresh.out.str();
    std::istringstream told(fresh.err.str());
    for (std::string line; std::getline(told, line);) seen += "! " + line + "\n";
    EXPECT_EQ(seen.empty() ? "(nothing)\n" : seen, result) << given;
  }
}

INSTANTIATE_TEST_SUITE_P(Console, ConsoleOutputs, testing::ValuesIn(TablesOf("console/outputs.txt")),
                         NameOfTable);

}  // namespace tessera::test
