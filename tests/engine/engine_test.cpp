#include "engine/engine.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "engine/function_call.h"
#include "support/core_program.h"
#include "text/literal.h"

namespace tessera {
namespace {

using test::CoreProgram;
using test::Output;
using test::OutputWithRoutines;
using Texts = std::vector<std::string>;

struct Sample {
  std::string_view source;
  std::string_view output;
};

void ExpectOutputs(std::initializer_list<Sample> samples) {
  for (const Sample& sample : samples) EXPECT_EQ(Output(sample.source), sample.output) << sample.source;
}

TEST(Assignment, EvaluatesTheRightSide) {
  ExpectOutputs({
      {"Var x Inteiro;x = 1 + 2 * 3;Escreva x", "7\n"},
      {"Var x Decimal;x = 0.1 + 0.2;Escreva x", "0,3\n"},
      {"Var x Decimal, y Decimal;y = 10;y = y / 3;x = y;Escreva x", "3,33333333333333\n"},
      {"Var s String;s = 1,5;Escreva s", "15\n"},
      {"Var s;s = \"a,b\";Escreva s", "a,b\n"},
      {"Var a;a = b = c;Escreva a", "b = c\n"},
      {"Var x Inteiro, y Inteiro;x = -3;y = 2*x;Escreva y", "-3\n"},
      {"Var v(3) Inteiro, i Inteiro;i = 1;v(i) = 5;Escreva v(1), v(i)", "55\n"},
      {"Var x Inteiro;x = abc;Escreva 1", "falha 13\n"},
      {"Var x Inteiro;x = 99999999999;Escreva 1", "falha 6\n"},
  });
}

TEST(Assignment, AmpersandJoinsTermsThatAreLiteralsVariablesOrCalls) {
  ExpectOutputs({
      {"Var s, n Decimal;n = 1.5;s = \"x\" & n & \"y\";Escreva s", "x1,5y\n"},
      {"Var s;s = \"a\" & b;Escreva s", "a\n"},
      {"Var s, n Inteiro;n = 2;s = \"n+1: \" & n + 1;Escreva s", "n+1: \n"},
      {"Var s;s = \"a & b\";Escreva s", "a\n"},
  });
}

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

TEST(StepForms, AreSettledBeforeAnythingElse) {
  ExpectOutputs({
      {"Var x Inteiro;x = 5;x++;Escreva x", "6\n"},
      {"Var x Inteiro;x--;Escreva x", "-1\n"},
      {"Var x Inteiro;x += 2;x+=3;x -= 1;x-=1;Escreva x", "3\n"},
      {"Var x Inteiro;Escreva x++;Escreva x", "1\n"},
      {"Var s;s = \"a\";s += \"b\";Escreva s", "ab\n"},
      {"Var x Inteiro;x = 2147483647;x++;Escreva x", "falha 6\n"},
  });
}

TEST(Blocks, SeTakesItsBranch) {
  ExpectOutputs({
      {"Se 1 = 1;Escreva 1;CasoContrario;Escreva 2;FimSe;Escreva 3", "1\n3\n"},
      {"Se 1 = 2;Escreva 1;CasoContrario;Escreva 2;FimSe;Escreva 3", "2\n3\n"},
      {"Se 1 = 2;Escreva 1;FimSe;Se 1 = 1;Escreva 2;CasoContrario;Escreva 3;FimSe", "2\n"},
      {"Se 1 = 2;Escreva 1;CasoContrario;Escreva 2;CasoContrario;Escreva 3;FimSe", "2\n3\n"},
      {"Se 1 = 1;Escreva 1;CasoContrario;Escreva 2;CasoContrario;Escreva 3;FimSe", "1\n"},
      {"Se 1 = 1;Se 1 = 2;Escreva 1;CasoContrario;Escreva 2;FimSe;CasoContrario;Escreva 3;FimSe", "2\n"},
      {"Se a;Escreva 1;FimSe;Escreva 2", "2\n"},
      {"Se 5 = \"5\";Escreva 1;FimSe;Se \"5\" = 5;Escreva 2;FimSe", "1\n"},
  });
}

TEST(Blocks, EnquantoRepeatsAndIsLeft) {
  ExpectOutputs({
      {"Var i Inteiro;Enquanto i < 3;i++;Escreva i;Repita;Escreva \"fim\"", "1\n2\n3\nfim\n"},
      {"Var i Inteiro, j Inteiro;Enquanto i < 2;j = 0;Enquanto j < 2;Escreva i, j;j++;Repita;i++;Repita",
       "00\n01\n10\n11\n"},
      {"Enquanto 1 = 2;Escreva 1;Repita;Escreva 2", "2\n"},
  });
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

TEST(VaPara, FindsTheFirstPlaceOfTheLabel) {
  ExpectOutputs({
      {"VaPara fim;Escreva 1;fim:;Escreva 2", "2\n"},
      {"Var n Inteiro;volta:;n++;Se n < 3;VaPara volta;FimSe;Escreva n", "3\n"},
      {"VaPara fim;FimPrograma;outrofim:;Escreva 1;FimPrograma;fim:;Escreva 2", "1\n"},
      {"fim: Escreva 1;Escreva 2", "2\n"},
  });
}

TEST(VaPara, ABadLabelEndsTheRunWithABox) {
  CoreProgram colon;
  EXPECT_EQ(colon.Run("\nVaPara fim:\nEscreva 1"), "");
  EXPECT_EQ(
      colon.Boxes(),
      (Texts{"Erro no comando VaPara (Ed.: 0 Linha 2): rótulo não pode ter caractere : (dois pontos)!"}));
  CoreProgram missing;
  EXPECT_EQ(missing.Run("VaPara  fim;fim:"), "");
  EXPECT_EQ(missing.Boxes(),
            (Texts{"Erro no comando VaPara (Ed.: 0 Linha 1): rótulo não encontrado:  fim:"}));
}

TEST(EndWords, CountInLiteralsToo) {
  ExpectOutputs(
      {{"Escreva 1;Escreva \"FimPrograma\";Escreva 2", "1\n"}, {"Var meufimfuncao Inteiro;Escreva 1", ""}});
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

TEST(Statements, ReservedPrefixesAndLabelsPassInSilence) {
  CoreProgram program;
  EXPECT_EQ(program.Run("Sexo = 1;Segundo = 2;fim: Escreva 1;Abc-;se 1 = 2;Rel.Novo;imp.texto;Escreva 3"),
            "3\n");
  EXPECT_TRUE(program.Boxes().empty());
}

TEST(Statements, ReadingAnUndeclaredNameShowsABoxAndGoesOn) {
  CoreProgram program;
  EXPECT_EQ(program.Run("Var x Inteiro;x = a + 1;Escreva x"), "1\n");
  EXPECT_EQ(program.Boxes(), (Texts{"Não pode ler a: variável não declarada!"}));
}

TEST(Functions, TakeArgumentsAndAnswer) {
  constexpr std::string_view kRoutines =
      "Funcao Soma(a Inteiro, b Inteiro) Inteiro\nRetorne a + b\nFimFuncao\n"
      "Funcao Dobro(n Inteiro) Inteiro\nVar d Inteiro\nd = n * 2\nRetorne d\nFimFuncao\n"
      "Funcao Sete() Inteiro\nRetorne 1\nRetorne 7\nFimFuncao\n"
      "Funcao Nome(n Inteiro) String\nRetorne \"ab\"\nFimFuncao";
  const auto output = [&](std::string_view source) { return OutputWithRoutines(source, kRoutines); };
  EXPECT_EQ(output("Var x Inteiro;x = Soma(1, 2);Escreva x"), "3\n");
  EXPECT_EQ(output("Var x Inteiro;x = 4 + Dobro(4);Escreva x"), "12\n");
  EXPECT_EQ(output("Var x Inteiro;x = Sete();Escreva x"), "7\n");
  EXPECT_EQ(output("Var x Inteiro;x = Soma(Dobro(3), 1);Escreva x"), "7\n");
  EXPECT_EQ(output("Var s;s = Nome(1);Escreva s"), "ab\n");
  EXPECT_EQ(output("Se Dobro(2) = 4;Escreva \"sim\";FimSe"), "sim\n");
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

TEST(Functions, ThePrefixFoundFirstIsRun) {
  EXPECT_EQ(OutputWithRoutines("Var x Inteiro;x = Som(1);Escreva x",
                               "Funcao Soma(a Inteiro) Inteiro\nRetorne 1\nFimFuncao\n"
                               "Funcao Som(a Inteiro) Inteiro\nRetorne 2\nFimFuncao"),
            "1\n");
}

TEST(Functions, ACallWithinItsOwnArgumentsLosesItsNames) {
  CoreProgram program;
  program.Run("Escreva Dobro(Dobro(3))", {"Funcao Dobro(n Inteiro) Inteiro\nRetorne n * 2\nFimFuncao"});
  EXPECT_EQ(program.Boxes().size(), 1u);
}

TEST(Functions, FaultsShowTheGuardsBox) {
  constexpr std::string_view kGuard =
      "Editor: 0 Linha: 1|Erro ao executar a função, certifique-se de ter definido os tipos de argumentos e "
      "o tipo de "
      "retorno da função!";
  for (const std::string_view call : {"F(1, 2)", "G(1)"}) {
    CoreProgram program;
    program.Run("Var x;x = " + std::string(call) + ";Escreva 1",
                {"Funcao F(a Inteiro) Inteiro\nFimFuncao\nFuncao G(a) Inteiro\nFimFuncao"});
    EXPECT_EQ(program.Boxes(), (Texts{std::string(kGuard)})) << call;
    EXPECT_EQ(program.dialogs.boxes[0].buttons, BoxButtons::OkCancel);
  }
}

TEST(Functions, RunawayRecursionEndsInTheGuardsBox) {
  CoreProgram program;
  EXPECT_EQ(program.Run("Var x;x = F(1);Escreva \"vivo\"",
                        {"Funcao F(a Inteiro) Inteiro\nRetorne F(1)\nFimFuncao"}),
            "vivo\n");
  EXPECT_EQ(program.Boxes().size(), 1u);
}

TEST(Functions, ALocalMayBeCalledAsTheWordThatDeclaresIt) {
  EXPECT_EQ(OutputWithRoutines(
                "Var i Inteiro, x Inteiro\nEnquanto i < 3\ni++\nx = Um(1)\nEscreva x\nRepita\nFimPrograma\n",
                "Funcao Um(a Inteiro) Numero\nVar Var Inteiro\nRetorne a + 6\nFimFuncao\n"),
            "7\n7\n7\n");
}

TEST(Subs, RunAndEndSilentlyOnAFailure) {
  EXPECT_EQ(
      OutputWithRoutines("A();Escreva 3", "Sub A()\nEscreva 1\nVar x Inteiro\nx = abc\nEscreva 2\nFimSub"),
      "1\n3\n");
  EXPECT_EQ(OutputWithRoutines("A();Escreva \"vivo\"", "Sub A()\nA()\nFimSub"), "vivo\n");
  CoreProgram program;
  program.Run("A ();Escreva 1", {"Sub A()\nFimSub"});
  EXPECT_EQ(program.Boxes(), (Texts{"Editor: 0 Linha: 1|Erro: variável não declarada: A"}));
}

TEST(RenameInBody, OnlyWholeWordsBetweenBlanksAndParenthesesAreRenamed) {
  std::string body = "(a) a, b a + 1 a+1 \"o a b\" ab\ra\r";
  RenameInBody(body, "a", "F0a");
  EXPECT_EQ(body, "(F0a) F0a, b F0a + 1 a+1 \"o F0a b\" ab\rF0a\r");
}

TEST(TickTimer, CallsTheSubsWhoseIntervalDividesTheTick) {
  CoreProgram program;
  program.Run("Var a Inteiro;Var b Inteiro",
              {"Sub Temporizador_A(2)\na++\nFimSub\nSub Temporizador_B(3)\nb++\nFimSub\nSub "
               "Temporizador_C()\na = 99\nFimSub"});
  for (int i = 0; i < 12; ++i) program.engine.OnTickTimer();
  EXPECT_EQ(program.run.variables.VarRead("a").ToText(), "6");
  EXPECT_EQ(program.run.variables.VarRead("b").ToText(), "4");
}

TEST(StatementCost, ALiteralThatSpellsATagIsFoundLikeAHead) {
  EXPECT_EQ(Output("Escreva \"&#00001§#00000$#00 Escreva 9\"\nEscreva 2"),
            "&#00001§#00000$#00 Escreva 9\n9\n");
}

// Each read and each write of an element shows its own box for an index that is not declared.
TEST(Assignment, JoiningShowsEachBoxOnce) {
  struct Case {
    std::string_view statement;
    std::size_t boxes;
  };
  for (const Case& c : {Case{"v(k) = v(k) & \"2\"", 2}, Case{"n = n & v(q)", 1}, Case{"t = t & v(q)", 1},
                        Case{"t = t & \"a\"", 0}, Case{"v(k) = v(1) & v(q) & t", 2}}) {
    test::CoreProgram program;
    program.Run("Var v(3) String, n Inteiro, t String\n" + std::string(c.statement));
    EXPECT_EQ(program.Boxes().size(), c.boxes) << c.statement;
  }
}

// A line may hold a Se and a CasoContrario of two depths; each looks for its own FimSe.
TEST(Blocks, TwoDepthsInOneLineHaveTheirOwnEnds) {
  EXPECT_EQ(
      test::Output("Var i Inteiro\nEnquanto i < 2\ni++\nSe 1 = 2 & \"CasoContrario[7]\"\nEscreva \"a\"\n"
                   "Escreva \"FimSe[7]\"\nEscreva \"b\"\nRepita"),
      "b\nb\n");
}

// Calls whose replacing never ends are a failure of the statement's guard.
TEST(Calls, ReplacingThatNeverEndsIsAFailure) {
  for (const std::string_view statement :
       {"Escreva 1 + Sete()", "Se 1 + Sete() = 8\nFimSe", "x = 1 + Sete()"}) {
    EXPECT_EQ(test::OutputWithRoutines("Var x\n" + std::string(statement),
                                       "Funcao Sete() Numero\nRetorne 7\nFimFuncao"),
              statement.starts_with("x") ? "" : "falha 28\n")
        << statement;
  }
}

}  // namespace
}  // namespace tessera
