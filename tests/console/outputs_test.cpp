// Programs on the console host and what a person does there.
#include <gtest/gtest.h>

#include "support/console_case.h"
#include "support/table.h"

namespace tessera::test {

namespace {

class ConsoleOutputs : public testing::TestWithParam<Table> {};

}  // namespace

TEST_P(ConsoleOutputs, AreThoseOfTheTable) {
  for (const auto& [given, result] : GetParam().cases) EXPECT_EQ(OutputOf(given), result) << given;
}

INSTANTIATE_TEST_SUITE_P(Console, ConsoleOutputs, testing::ValuesIn(TablesOf("console/outputs.txt")),
                         NameOfTable);

}  // namespace tessera::test
