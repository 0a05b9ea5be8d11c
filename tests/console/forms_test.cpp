// The fast forms beside the text, held against the plain rules, in programs with windows, records and events.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "console/console_host.h"
#include "engine/made_application.h"
#include "platform/system_clock.h"
#include "recorddb/tsa_reader.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/made_from.h"
#include "support/temporary_folder.h"

namespace tessera::test {
namespace {

// All that a program can be seen to have done: what it wrote, its boxes, its end, its records and values.
struct Seen {
  std::string out, err;
  int status = 0;
  std::vector<std::string> records;
  std::vector<std::string> values;

  bool operator==(const Seen&) const = default;
};

std::vector<std::string> RecordsIn(const std::filesystem::path& path) {
  SystemFiles files;
  const auto file = BinaryFile::Open(files, path.string());
  const auto header = ReadTsaHeader(*file);
  std::vector<std::string> records;
  if (const auto* good = std::get_if<TsaHeader>(&header)) {
    for (std::int32_t i = 0; i < good->count; ++i) {
      const TsaRecord record = ReadTsaRecord(*file, *good, i);
      std::string text = std::to_string(static_cast<int>(record.state));
      for (const auto& value : record.values) text += ";" + (value ? value->ToText() : "-");
      records.push_back(text);
    }
  }
  return records;
}

Seen RunMade(const MadeApplication& made, bool plain) {
  const TemporaryFolder folder;
  std::istringstream in(made.script());
  std::ostringstream out;
  std::ostringstream err;
  Seen seen;
  {
    ConsoleHost host({in, out, err}, {.programTitle = "TESTE"});
    // Chance scrambles a record, and by its bytes it is put in order.
    SeededRandom random(1);
    const Host its = host.host();
    HostedProgram program({its.dialogs, its.events, its.clock, random, its.files}, host,
                          [plain](Services& services) { services.quickOrders = !plain; });
    program.run.plain = plain;
    program.run.paths = PathMapping(program.run.host.files, folder.path().string(), folder.path().string());
    seen.status = program.Run(made.text());
    VariableStore& variables = program.run.variables;
    seen.values = variables.Texts();
    for (const std::int32_t value : variables.Integers()) seen.values.push_back(std::to_string(value));
    for (const double value : variables.Decimals()) seen.values.push_back(NumberText(value));
  }
  seen.out = out.str();
  seen.err = err.str();
  seen.records = RecordsIn(folder.path() / "dados" / "B.Tsa");
  return seen;
}

TEST(FormsInApplications, DoWhatThePlainRulesDo) {
  const MadeRange range = RangeOfMade(200);
  for (unsigned seed = range.first; seed < range.first + range.count; ++seed) {
    const MadeApplication made(seed);
    const Seen plain = RunMade(made, true);
    const Seen fast = RunMade(made, false);
    ASSERT_TRUE(fast == plain) << "application " << seed << "\n"
                               << made.text() << "--- script\n"
                               << made.script() << "--- fast, " << fast.status << "\n"
                               << fast.out << fast.err << testing::PrintToString(fast.records)
                               << "\n--- plain, " << plain.status << "\n"
                               << plain.out << plain.err << testing::PrintToString(plain.records)
                               << "\nvalues:\n"
                               << testing::PrintToString(fast.values) << "\n"
                               << testing::PrintToString(plain.values);
  }
}

}  // namespace
}  // namespace tessera::test
