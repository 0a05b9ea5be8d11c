#include "engine/engine.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <random>
#include <sstream>

#include "engine/function_call.h"
#include "platform/user_folders.h"
#include "support/core_program.h"
#include "support/table.h"
#include "text/literal.h"

namespace tessera {
namespace {

using test::CoreProgram;
using test::Output;
using Texts = std::vector<std::string>;

// Programs with what they write, and behind "!" the boxes that they show; a line behind "+" is one of a
// further editor.
class Outputs : public testing::TestWithParam<test::Table> {};

TEST_P(Outputs, AreThoseOfTheTable) {
  for (const auto& [given, result] : GetParam().cases) {
    std::array<std::string, 2> editors;
    std::istringstream lines(given);
    for (std::string line; std::getline(lines, line);) {
      const bool isFurther = line.starts_with("+ ");
      editors[isFurther].append(line, isFurther ? 2 : 0).append("\n");
    }
    CoreProgram program;
    std::string seen = program.Run(editors[0], {editors[1]});
    for (const std::string& box : program.Boxes()) seen += "! " + box + "\n";
    EXPECT_EQ(seen.empty() ? "(nothing)\n" : seen, result) << given;
  }
}

INSTANTIATE_TEST_SUITE_P(Engine, Outputs, testing::ValuesIn(test::TablesOf("engine/outputs.txt")),
                         test::NameOfTable);

TEST(Assignment, AddingInPlaceStoresWhatJoiningWould) {
  std::mt19937 random(13);
  constexpr std::array kTerms = {"t", "T", "n", "\"ab\"", "v(1)", "nada", "Asc(\"a\")", "\"\"", "v(i)"};
  for (int round = 0; round < 300; ++round) {
    std::string joined = "t";
    for (auto terms = 1 + random() % 4; terms > 0; --terms)
      joined.append(" & ").append(kTerms[random() % kTerms.size()]);
    const std::string start = "Var t, u, n Inteiro, i Inteiro, v(3);t = \"x\";n = 7;i = 1;v(1) = \"w\"\n";
    ASSERT_EQ(Output(start + "t = " + joined + ";Escreva t"), Output(start + "u = " + joined + ";Escreva u"))
        << joined;
  }
}

TEST(Assignment, ANumberIsStoredAsItsTextReadsBack) {
  std::mt19937_64 random(19);
  CoreProgram program;
  program.Run("Var x Decimal, y Decimal, i Inteiro, s");
  for (int round = 0; round < 500; ++round) {
    const double value = std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())),
                                    -static_cast<int>(random() % 90));
    program.run.variables.VarWrite("y", value, true);
    program.Run("x = y");
    ASSERT_EQ(program.run.variables.VarRead("x").ToDouble(), *WholeNumber(NumberText(value)));
    program.Run("s = y;x = 0.5;x = y / 1;y = s");
    ASSERT_EQ(program.run.variables.VarRead("s").ToText(), NumberText(value));
  }
}

TEST(Blocks, Depth20IsTheLastOne) {
  const auto nested = [](int depth) {
    std::string source;
    for (int i = 0; i < depth; ++i) source += "Se 1 = 1;";
    source += "Escreva 1;";
    for (int i = 0; i < depth; ++i) source += "FimSe;";
    return source;
  };
  EXPECT_EQ(Output(nested(21)), "1\n");
  EXPECT_EQ(Output(nested(22)), "falha 9\n");
}

TEST(Statements, AnUnknownWordIsToldAndCancelStops) {
  CoreProgram program;
  EXPECT_EQ(program.Run("nome = \"x\"\nEscreva 1"), "1\n");
  EXPECT_EQ(program.Boxes(), (Texts{"Editor: 0 Linha: 1|Erro: variável não declarada: nome"}));
  EXPECT_EQ(program.dialogs.boxes[0].icon, BoxIcon::Critical);
  EXPECT_EQ(program.dialogs.boxes[0].title, "TESTE");
  CoreProgram cancelled;
  cancelled.dialogs.answer = BoxAnswer::Cancel;
  EXPECT_EQ(cancelled.Run("nome = \"x\"\nEscreva 1"), "");
}

TEST(Functions, LocalsEndWithTheCallAndLaterDeclarationsAreGlobal) {
  CoreProgram program;
  EXPECT_EQ(
      program.Run("Var x Inteiro;x = F(1);Escreva g",
                  {"Funcao F(a Inteiro) Inteiro\nVar b Inteiro\nVar g Inteiro\ng = 9\nRetorne 1\nFimFuncao"}),
      "9\n");
  EXPECT_EQ(program.run.variables.VarFind("F0a"), -1);
  EXPECT_EQ(program.run.variables.VarFind("F0b"), -1);
  EXPECT_EQ(program.engine.FunctionCallCounter, 1);
}

TEST(RenameInBody, OnlyWholeWordsBetweenBlanksAndParenthesesAreRenamed) {
  std::string body = "(a) a, b a + 1 a+1 \"o a b\" ab\ra\r";
  RenameInBody(body, "a", "F0a");
  EXPECT_EQ(body, "(F0a) F0a, b F0a + 1 a+1 \"o F0a b\" ab\rF0a\r");
}

TEST(Builtins, TellTheUsersFolders) {
  const UserFolders folders = FindUserFolders(std::getenv);
  EXPECT_EQ(Output("Escreva PastaWindows;Escreva AreaTrabalho;Escreva MenuProgramas"),
            folders.configuration + "\n" + folders.desktop + "\n" + folders.applications + "\n");
}

TEST(TickTimer, CallsTheSubsWhoseIntervalDividesTheTick) {
  CoreProgram program;
  program.Run("Var a Inteiro;Var b Inteiro",
              {"Sub Temporizador_A(2)\na++\nFimSub\nSub Temporizador_B(3)\nb++\nFimSub\nSub "
               "Temporizador_C()\na = 99\nFimSub"});
  for (int i = 0; i < 12; ++i) program.engine.OnTickTimer();
  EXPECT_EQ(program.run.variables.VarRead("a").ToText(), "6");
  EXPECT_EQ(program.run.variables.VarRead("b").ToText(), "4");
  CoreProgram mention;
  mention.Run("Escreva \"Temporizador_A(1)\"");
  mention.engine.OnTickTimer();
  EXPECT_EQ(mention.Boxes(), Texts{"Sub-rotina não encontrada: Temporizador_A(1)"});
}

}  // namespace
}  // namespace tessera
