#include <gtest/gtest.h>

#include <random>

#include "prepare/block_report.h"
#include "prepare/linking.h"
#include "prepare/plain_search.h"
#include "prepare/prepare.h"
#include "prepare/tagging.h"
#include "support/core_program.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {
namespace {

// The prepared text of editor 0, in UTF-8 with LF.
std::string Prepared(std::string_view source, std::vector<std::string_view> further = {}) {
  EditorTexts editors;
  editors[0] = test::FromSource(source);
  for (std::size_t i = 0; i < further.size(); ++i) editors[i + 1] = test::FromSource(further[i]);
  std::string text = ToUtf8(PrepareProgram(editors, [](std::string_view) {}).ProgramText->text());
  std::erase(text, '\r');
  return text;
}

// The statements of the prepared text without their heads.
std::string Statements(std::string_view source) {
  std::string out;
  const std::string text = Prepared(source);
  for (std::size_t begin = 0, end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1) {
    out += text.substr(begin + 20, end - begin - 20) + "\n";
  }
  return out.substr(0, out.size() - std::string_view("FimPrograma\n").size());
}

TEST(Tagging, EveryStatementHasAHeadOf19Characters) {
  EXPECT_EQ(Prepared(""), "&#00000§#00001$#00 FimPrograma\n");
  EXPECT_EQ(Prepared("\n\n  Escreva \"oi\"\n' nada\nx = 1"),
            "&#00000§#00002$#00 Escreva \"oi\"\n&#00001§#00004$#00 x = 1\n&#00002§#00005$#00 FimPrograma\n");
  EXPECT_EQ(Prepared("a", {"b", "", "c"}),
            "&#00000§#00000$#00 a\n&#00001§#00001$#00 FimPrograma\n"
            "&#00002§#00000$#01 b\n&#00003§#00000$#03 c\n");
}

TEST(Tagging, SemicolonsSplitOutsideLiterals) {
  EXPECT_EQ(Statements("a = \"x;y\" ; b = 2;c;\nd;;e; ;"), "a = \"x;y\"\nb = 2\nc\nd\ne\n");
  EXPECT_EQ(Statements("a; =b"), "a\n= b\n");
  EXPECT_EQ(Prepared("a;b").substr(0, 44), "&#00000§#00000$#00 a\n&#00001§#00000$#00 b\n");
}

TEST(Tagging, CommentsGoOutsideLiterals) {
  EXPECT_EQ(Statements("x = 1 ' um\ny = \"d'água\" ' fim"), "x = 1\ny = \"d'água\"\n");
}

TEST(Tagging, AnUnclosedStringHidesTheCommentsBelow) {
  EXPECT_EQ(Statements("a = \"x\nb ' c\n\"d ' e"), "a = \"x\nb ' c\n\"d\n");
}

TEST(Tagging, ComparisonOperatorsAreSpaced) {
  EXPECT_EQ(Statements("a=1"), "a = 1\n");
  EXPECT_EQ(Statements("a =1"), "a =1\n");
  EXPECT_EQ(Statements("a <> b"), "a  <>  b\n");
  EXPECT_EQ(Statements("a>=1;a=<1"), "a >= 1\na =  < 1\n");
  EXPECT_EQ(Statements("x+=1"), "x+ = 1\n");
  EXPECT_EQ(Statements("a = \"b<c\""), "a = \"b<c\"\n");
}

TEST(Tagging, OnlyBlanksAreTrimmed) {
  EXPECT_EQ(Statements(" \tEscreva 1 "), "\tEscreva 1\n");
}

TEST(Linking, WordsGetTheirDepths) {
  EXPECT_EQ(Statements("Se a=1;Se b=1;CasoContrario;FimSe;FimSe;Enquanto c=1;Se d=1;FimSe;Repita"),
            "Se[0] a = 1\nSe[1] b = 1\nCasoContrario[1]\nFimSe[1]\nFimSe[0]\nEnquanto[0] c = 1\n"
            "Se[0] d = 1\nFimSe[0]\nRepita[0]\n");
}

TEST(Linking, OnlyTheStartOfAStatementAndExactCaseCount) {
  EXPECT_EQ(Statements("se a=1;Se(a=1);\tSe a=1;x = \"Se a\";Repitas=1"),
            "se a = 1\nSe(a = 1)\n\tSe a = 1\nx = \"Se a\"\nRepita[-1]s = 1\n");
  EXPECT_EQ(Statements("FimSe"), "FimSe[-1]\n");
}

TEST(Linking, TheCheckCountsNamesAndLiterals) {
  const auto check = [](std::string_view source) {
    EditorTexts editors;
    editors[0] = test::FromSource(source);
    return ToUtf8(CheckBlocks(PrepareProgram(editors, [](std::string_view) {}).ProgramText->text()));
  };
  EXPECT_EQ(check("Se a=1;FimSe;Enquanto b=1;Repita"), "");
  EXPECT_EQ(check("Se a=1"), "Comando Se sem o respectivo FimSe!");
  EXPECT_EQ(check("FimSe"), "Comando Se sem o respectivo FimSe!");
  EXPECT_EQ(check("x = base[1]"), "Comando Se sem o respectivo FimSe!");
  EXPECT_EQ(check("Se a=1;Repita"), "Comando Enquanto sem o respectivo Repita!");
  EXPECT_EQ(check("FimSe;Se a=1"), "");
}

// What the check counts is told at its line: the block that was opened last is the one that an end closes.
TEST(Linking, TheReportFindsThePlacesOfWhatIsWrong) {
  struct {
    std::string_view source;
    std::string_view lines;  // of its editor, each with its message's last word
  } constexpr kCases[] = {
      {"Se a=1\nEnquanto b=1\nRepita\nFimSe", ""},
      {"Se a=1\nSe b=1\nFimSe", "1 fechado."},
      {"Se a=1\nEnquanto b=1\nFimSe\nEnquanto c=1\nRepita", "2 fechado."},
      {"Se a=1\nFimSe\nFimSe", "3 FimSe."},
      {"Enquanto a=1\nSe b=1\nRepita\nSe c=1\nFimSe", "2 fechado."},
      {"x = base[1]\ny = \"Se[\"\nSe a=1", "1 comando.2 comando.3 fechado."},
      {"Se a=1\nFimPrograma\nSub S()\nFimSe\nRepita\nFimSub", "5 Repita."},
      {"Se a=1\nFimPrograma\nSub S()\nFimSub", "1 fechado."},
  };
  constexpr std::string_view kFurther = "Sub T()\nSe a=1\nFimSe\nEnquanto a=1\nRepita\nFimSub";
  for (std::size_t i = 0; i < 2 * std::size(kCases); ++i) {
    const auto& c = kCases[i / 2];
    EditorTexts editors;
    editors[i % 2] = test::FromSource(c.source);
    if (i % 2 == 0) editors[1] = test::FromSource(kFurther);
    const auto prepared = PrepareProgram(editors, [](std::string_view) {});
    std::string lines;
    for (const PlacedProblem& problem : ReportBlocks(prepared.ProgramText->text())) {
      lines += std::to_string(problem.place.line) + problem.message.substr(problem.message.rfind(' '));
    }
    EXPECT_EQ(lines, c.lines) << c.source;
  }
}

struct Listed {
  RoutineTables tables;
  std::vector<std::string> boxes;
};

Listed Routines(std::string_view source) {
  Listed listed;
  EditorTexts editors;
  editors[1] = test::FromSource(source);
  listed.tables =
      PrepareProgram(editors, [&](std::string_view text) { listed.boxes.push_back(ToUtf8(text)); }).routines;
  return listed;
}

using Names = std::vector<std::string>;

TEST(Routines, AreListedWithTheirTypes) {
  const Listed listed = Routines(
      "Funcao Soma(a Inteiro, b Inteiro) Inteiro\nRetorne a + b\nFimFuncao\n"
      "funcao Sem(x)\nFimFuncao\nSub Um()\nFimSub\nSub Temporizador_T(20)\nFimSub\nSub\nTemporizador_U()");
  EXPECT_EQ(listed.tables.FunctionNames, (Names{"Soma", "Sem"}));
  EXPECT_EQ(listed.tables.FunctionTypes, (Names{"Inteiro", ""}));
  EXPECT_EQ(listed.tables.SubNames, (Names{"Um()", "Temporizador_T(20)"}));
  EXPECT_EQ(listed.tables.TimerNames, (Names{"Temporizador_T(20)", "Temporizador_U()"}));
  EXPECT_EQ(listed.tables.TimerIntervals, (std::vector<std::int16_t>{20, 0}));
  EXPECT_TRUE(listed.tables.HasTimersFlag);
  EXPECT_TRUE(listed.boxes.empty());
}

TEST(Routines, AMentionInALiteralEndsThePass) {
  const Listed listed = Routines("Escreva \"nova funcao teste\"\nFuncao A()\nFimFuncao\nSub B()\nFimSub");
  EXPECT_TRUE(listed.tables.FunctionNames.empty());
  EXPECT_EQ(listed.tables.SubNames, (Names{"B()"}));
  EXPECT_TRUE(listed.boxes.empty());
}

TEST(Routines, EveryMentionOfATimerIsListed) {
  const Listed listed = Routines("Sub Temporizador_T(5)\nFimSub\nx = \"Temporizador_T(7)\"");
  EXPECT_EQ(listed.tables.TimerIntervals, (std::vector<std::int16_t>{5, 7}));
}

// A timer that can't be listed ends the pass with its box, and no table knows a part of it.
TEST(Routines, ATimerThatFailsIsNotListedAtAll) {
  for (const std::string_view bad :
       {"Sub Temporizador_A(40000)\nFimSub", "Temporizador_ :)\nx = (1)", "Sub Temporizador_A)(\nFimSub"}) {
    const Listed listed = Routines(std::string("Sub Temporizador_B(3)\nFimSub\n").append(bad));
    EXPECT_EQ(listed.boxes.size(), 1u) << bad;
    EXPECT_EQ(listed.tables.TimerNames, (Names{"Temporizador_B(3)"})) << bad;
    EXPECT_EQ(listed.tables.TimerIntervals, (std::vector<std::int16_t>{3})) << bad;
  }
}

TEST(Routines, UnclosedOnesAreNamedAndTheFollowingTablesBuilt) {
  const Listed nested = Routines("Funcao A()\nFuncao B()\nFimFuncao\nSub X()\nSub Y()\nFimSub");
  EXPECT_EQ(nested.boxes, (Names{"Funcao sem o respectivo comando FimFuncao: A",
                                 "Sub sem o respectivo comando FimSub: X()"}));
  EXPECT_EQ(nested.tables.SubNames, (Names{"X()"}));
  EXPECT_EQ(Routines("Sub A()").boxes, (Names{"Sub sem o respectivo comando FimSub: A()"}));
}

TEST(Routines, AFunctionWithoutParenthesesEndsThePassWithOneBox) {
  const Listed listed = Routines("Sub B()\nFimSub\nFuncao A\nFimFuncao");
  ASSERT_EQ(listed.boxes.size(), 1u);
  EXPECT_TRUE(listed.tables.SubNames.empty());
  EXPECT_TRUE(listed.boxes[0].starts_with("Erro na criação de função ou sub-rotina!\r\r-Você"));
}

// Pieces of which hostile prepared texts are made: heads, bracket words and labels in and out of literals.
std::string RandomText(std::mt19937& random) {
  static constexpr std::array kPieces = {
      "&#0000",         "1", "2",    "&#00002",   "Enquanto[", "Repita[", "FimSe[", "0]", "1]",
      "CasoContrario[", "]", "fim:", "outrofim:", ":",         "\r\n",    " x ",    "&#", "&#0a001"};
  std::string text;
  for (int i = 0; i < 60; ++i) text += kPieces[random() % kPieces.size()];
  return text;
}

TEST(PreparedText, TheIndexAnswersAsTheSearchesDo) {
  std::mt19937 random(5);
  for (int round = 0; round < 400; ++round) {
    const std::string text = RandomText(random);
    const PreparedText prepared(text);
    for (Position from = 1; from <= text.size() + 1; from += 3) {
      ASSERT_EQ(prepared.FindTagBack(from), plain::FindTagBack(text, from));
      for (const std::int32_t number : {0, 1, 2, 12, 100001, -1}) {
        ASSERT_EQ(prepared.FindStatement(number, from), plain::FindStatement(text, number, from)) << text;
      }
      for (const std::string_view word : {"Enquanto", "Repita", "FimSe", "CasoContrario"}) {
        for (const std::string_view depth : {"0", "1", ""}) {
          ASSERT_EQ(prepared.FindBracket(word, depth, from), plain::FindBracket(text, word, depth, from));
          ASSERT_EQ(prepared.FindBracketBack(word, depth, from),
                    plain::FindBracketBack(text, word, depth, from));
        }
      }
    }
    for (const std::string_view label : {"fim:", "outrofim:", "m:", ":", "::", "x fim:", "nada:"}) {
      ASSERT_EQ(prepared.FindLabel(label), plain::FindLabel(text, label)) << text << label;
    }
  }
}

}  // namespace
}  // namespace tessera
