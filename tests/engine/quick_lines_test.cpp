// Lines that run over and over are read once: how often each takes memory from then on, which is the same on
// every machine and many times as often where a line goes by the plain rules.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <sstream>

#include "support/core_program.h"
#include "support/counted_memory.h"
#include "support/table.h"

namespace tessera::test {

namespace {

class QuickLines : public testing::TestWithParam<Table> {};

// Behind `start`, where a line behind "+" is one of a further editor.
long TakenByTurns(const std::string& start, const std::string& line, int turns) {
  std::array<std::string, 2> editors;
  std::istringstream lines(start);
  for (std::string each; std::getline(lines, each);) {
    const bool isFurther = each.starts_with("+ ");
    editors[isFurther].append(each, isFurther ? 2 : 0).append("\n");
  }
  editors[0] +=
      "Var turn Inteiro\nEnquanto turn < " + std::to_string(turns) + "\nturn++\n" + line + "\nRepita\n";
  CoreProgram program;
  const long before = TimesMemoryWasTaken();
  EXPECT_EQ(program.Run(editors[0], {editors[1]}), "") << line;
  return TimesMemoryWasTaken() - before;
}

}  // namespace

// The first case of a table is the start of all others.
TEST_P(QuickLines, TakeNoMoreMemoryThanTheTableSays) {
  constexpr int kTurns = 400;
  const std::vector<TableCase>& cases = GetParam().cases;
  for (auto line = cases.begin() + 1; line != cases.end(); ++line) {
    const auto takenBy = [&](int turns) { return TakenByTurns(cases[0].given, line->given, turns); };
    EXPECT_LE((takenBy(2 * kTurns) - takenBy(kTurns)) / kTurns, std::stol(line->result)) << line->given;
  }
}

INSTANTIATE_TEST_SUITE_P(Engine, QuickLines, testing::ValuesIn(TablesOf("engine/quick_lines.txt")),
                         NameOfTable);

}  // namespace tessera::test
