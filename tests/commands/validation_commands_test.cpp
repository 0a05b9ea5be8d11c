#include "commands/validation_commands.h"

#include <gtest/gtest.h>

#include "support/library_program.h"

namespace tessera {
namespace {

using test::LibraryProgram;

bool Passes(std::string_view command, std::string_view arguments) {
  const std::string answer = LibraryProgram().Answer(command, arguments);
  EXPECT_TRUE(answer == "\"VERDADEIRO\"" || answer == "\"FALSO\"") << command << " " << arguments << answer;
  return answer == "\"VERDADEIRO\"";
}

TEST(ValidationCommands, TaxNumbersAreCheckedByTheirDigitsAlone) {
  EXPECT_TRUE(Passes("TestaCPF", "\"111.444.777-35\""));
  EXPECT_TRUE(Passes("TestaCPF", "11144477735"));
  EXPECT_TRUE(Passes("TestaCPF", "\"11111111111\""));
  EXPECT_FALSE(Passes("TestaCPF", "\"111.444.777-36\""));
  EXPECT_FALSE(Passes("TestaCPF", "\"111.444.777-45\""));
  EXPECT_TRUE(Passes("TestaCNPJ", "\"11.222.333/0001-81\""));
  EXPECT_FALSE(Passes("TestaCNPJ", "\"11.222.333/0001-82\""));
  EXPECT_FALSE(Passes("TestaCNPJ", "\"11.222.333/0001-91\""));
}

TEST(ValidationCommands, TaxNumbersHaveNoLengthTest) {
  EXPECT_TRUE(Passes("TestaCPF", "\"\""));
  EXPECT_TRUE(Passes("TestaCNPJ", "\"\""));
  EXPECT_TRUE(Passes("TestaCPF", "\"11144477735999\""));
  EXPECT_FALSE(Passes("TestaCPF", "\"1\""));
}

TEST(ValidationCommands, EmailsAreCheckedByTheirForm) {
  EXPECT_TRUE(Passes("TestaEmail", "\"ab@cd.ef\""));
  EXPECT_TRUE(Passes("TestaEmail", "\"a.b@cdef\""));
  for (const std::string_view text : {"\"a@b.c\"", "\"abcd.efg\"", "\"abcd@efg\"", "\"a@b@cd.ef\"",
                                      "\"@abcd.ef\"", "\"abcd.ef@\"", "\" a@b.c \"", "\"\""}) {
    EXPECT_FALSE(Passes("TestaEmail", text)) << text;
  }
}

TEST(ValidationCommands, DatesAreCutAtTheFirstAndLastSeparator) {
  EXPECT_TRUE(Passes("TestaData", "\"31/01/2000\""));
  EXPECT_TRUE(Passes("TestaData", "\"31-01-2000\",\"-\""));
  EXPECT_TRUE(Passes("TestaData", "\"1a/2/2000\""));
  EXPECT_TRUE(Passes("TestaData", "\"1/2/3/2000\""));
  EXPECT_TRUE(Passes("TestaData", "\"1/1/1\""));
  for (const std::string_view text :
       {"\"31/04/2000\"", "\"0/1/2000\"", "\"1/13/2000\"", "\"1/0/2000\"", "\"1/1/0\"", "\"29/02/2001\"",
        "\"2000-01-31\",\"-\"", "\"1/2\"", "\"abc\"", "\"\"", "\"1/99999999999/2000\"", "1,2,3,4"}) {
    EXPECT_FALSE(Passes("TestaData", text)) << text;
  }
}

TEST(ValidationCommands, TestaDataCountsEveryFourthYearAsLeap) {
  EXPECT_TRUE(Passes("TestaData", "\"29/02/1900\""));
  EXPECT_EQ(MonthLength(2, 1900), 29);
  EXPECT_EQ(MonthLength(13, 1900), 0);
}

}  // namespace
}  // namespace tessera
