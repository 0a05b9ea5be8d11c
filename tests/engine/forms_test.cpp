// The fast forms beside the text, held against the plain rules: programs out of chance, run both ways.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "engine/made_program.h"
#include "support/core_program.h"
#include "support/made_from.h"

namespace tessera::test {
namespace {

// All that a program can be seen to have done.
struct Seen {
  std::vector<std::string> lines;
  std::vector<std::string> boxes;
  std::vector<std::string> records;
  std::int32_t calls = 0;

  bool operator==(const Seen&) const = default;
};

Seen RunMade(const std::string& text, bool plain) {
  CoreProgram program;
  program.run.plain = plain;
  program.run.mostReplacements = 20;
  program.engine.mostLevels = 60;
  Seen seen;
  std::istringstream output(program.Run(text));
  for (std::string line; std::getline(output, line);) seen.lines.push_back(line);
  seen.boxes = program.Boxes();
  for (const std::string_view type : {kTypeString, kTypeInteiro, kTypeDecimal}) {
    for (std::size_t row = 0; row < program.run.variables.NameCount(type); ++row) {
      seen.records.push_back(program.run.variables.NameRecord(type, row));
    }
  }
  for (const std::string& value : program.run.variables.Texts()) seen.records.push_back(value);
  for (const std::int32_t value : program.run.variables.Integers())
    seen.records.push_back(std::to_string(value));
  for (const double value : program.run.variables.Decimals()) seen.records.push_back(NumberText(value));
  seen.calls = program.engine.FunctionCallCounter;
  return seen;
}

// Where two lists part.
std::string FirstDifference(const std::vector<std::string>& fast, const std::vector<std::string>& plain) {
  const auto at = [](const std::vector<std::string>& list, std::size_t i) {
    return i < list.size() ? list[i] : std::string("nothing");
  };
  for (std::size_t i = 0; i < std::max(fast.size(), plain.size()); ++i) {
    if (at(fast, i) == at(plain, i)) continue;
    return "entry " + std::to_string(i) + "\n  fast:  " + at(fast, i) + "\n  plain: " + at(plain, i) + "\n";
  }
  return {};
}

TEST(Forms, DoWhatThePlainRulesDo) {
  const MadeRange range = RangeOfMade(4000);
  for (unsigned seed = range.first; seed < range.first + range.count; ++seed) {
    const MadeProgram made(seed);
    const Seen plain = RunMade(made.text(), true);
    const Seen fast = RunMade(made.text(), false);
    ASSERT_TRUE(fast == plain) << "program " << seed
                               << ", boxes: " << FirstDifference(fast.boxes, plain.boxes)
                               << "lines: " << FirstDifference(fast.lines, plain.lines)
                               << "records: " << FirstDifference(fast.records, plain.records)
                               << "calls: " << fast.calls << ", " << plain.calls << "\n"
                               << made.text();
  }
}

}  // namespace
}  // namespace tessera::test
