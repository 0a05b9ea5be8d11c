// What the commands of texts, numbers, dates and checks answer: the rows of answers.txt, and what more than
// one call is needed for. A row behind "=" is an expression and gives its value; another one is a command
// with its arguments, whose answer keeps its quotes.
#include <gtest/gtest.h>

#include "commands/validation_commands.h"
#include "support/library_program.h"
#include "support/table.h"

namespace tessera::test {

namespace {

class Answers : public testing::TestWithParam<Table> {};

}  // namespace

TEST_P(Answers, AreThoseOfTheTable) {
  LibraryProgram program;
  for (const auto& [given, result] : GetParam().cases) {
    const std::size_t blank = given.find(' ');
    const std::string name = given.substr(0, blank), rest = given.substr(blank + 1);
    EXPECT_EQ((name == "=" ? program.Value(rest) : program.Answer(name, rest)) + "\n", result) << given;
  }
}

INSTANTIATE_TEST_SUITE_P(Commands, Answers, testing::ValuesIn(TablesOf("commands/answers.txt")), NameOfTable);

TEST(TextCommands, SobreponhaWritesIntoTheVariable) {
  const auto after = [](std::string_view arguments) {
    return LibraryProgram().Run("Var s String\ns = \"abcd\"\nSobreponha " + std::string(arguments) +
                                "\nEscreva s\n");
  };
  EXPECT_EQ(after("s, \"XY\", 2"), "aXYd\n");
  EXPECT_EQ(after("s, \"XY\", 4"), "abcX\n");
  EXPECT_EQ(after("s, \"XYZ\", 2, 1"), "aXcd\n");
  EXPECT_EQ(after("s, \"XYZ\", 2, 0"), "aXYZ\n");
  EXPECT_EQ(after("s, \"X\", 9"), "abcd\n");
  EXPECT_EQ(after("s, \"X\", 0"), "falha 5\n");
}

TEST(TextCommands, ValStrReadsATextOfMarkedParenthesesPlain) {
  LibraryProgram program;
  program.run.variables.VarCreateArray("v(3)", kTypeString);
  program.run.variables.VarWrite("v(2)", std::string("42 anos"), true);
  EXPECT_EQ(program.Answer("ValStr", "v(1]2[1)"), "42");
  EXPECT_EQ(program.Answer("ValStr", "v(12]2[12)"), "42");
}

TEST(NumberCommands, AleatorioReachesItsLimit) {
  LibraryProgram program;
  const auto drawn = [&](double next) {
    program.random.next = next;
    return program.Answer("Aleatorio", "10");
  };
  EXPECT_EQ(drawn(0), "0");
  EXPECT_EQ(drawn(0.25), "2");
  EXPECT_EQ(drawn(0.96), "10");
}

TEST(DateCommands, TodayAndNowComeFromTheClock) {
  LibraryProgram program;
  using namespace std::chrono;
  program.clock.now = local_days{2026y / November / 7} + 23h + 4min + 5s + 999ms;
  for (const auto& [call, answer] : {std::pair{"Data", "\"07/11/2026\""},
                                     {"Hora", "\"23:04:05\""},
                                     {"Dia", "7"},
                                     {"Mes", "11"},
                                     {"Ano", "2026"}}) {
    EXPECT_EQ(program.Answer(call, ""), answer) << call;
  }
  EXPECT_EQ(program.Answer("Dia", "\"\""), "7");
}

TEST(ValidationCommands, AMonthThatIsNoneHasNoDays) {
  EXPECT_EQ(MonthLength(2, 1900), 29);
  EXPECT_EQ(MonthLength(13, 1900), 0);
}

}  // namespace tessera::test
