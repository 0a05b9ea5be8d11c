// The checker against programs with one mistake each, and against programs with none: in tests/checker, in
// the manual, and all that the project itself has. Each mistake is found at its line, by its rule, and told
// once.
#include "checker/check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>

#include "checker/rules.h"
#include "tool/program_files.h"
#include "tool/source_text.h"

namespace tessera::check {
namespace {

namespace fs = std::filesystem;

const fs::path kSources = TESSERA_SOURCE_DIR;

std::string ReadText(const fs::path& file) {
  std::ifstream in(file);
  EXPECT_TRUE(in) << file;
  return {std::istreambuf_iterator<char>(in), {}};
}

EditorTexts Editors(std::string_view source) {
  EditorTexts editors;
  editors[0] = std::get<std::string>(SourceTextFromBytes(source));
  return editors;
}

std::string Listed(const std::vector<Finding>& findings) {
  std::string list;
  for (const Finding& finding : findings) {
    list += std::to_string(finding.span.editor) + ":" + std::to_string(finding.span.line) + " " +
            std::string(finding.rule->code) + " " + finding.message + "\n";
  }
  return list;
}

struct Case {
  std::vector<std::string> heads;
  std::string program;
};

// The programs of a file, each behind lines "# head".
std::vector<Case> CasesOf(const fs::path& file) {
  std::vector<Case> cases;
  std::istringstream lines(ReadText(file));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("# ")) {
      if (cases.empty() || !cases.back().program.empty()) cases.emplace_back();
      cases.back().heads.push_back(line.substr(2));
    } else {
      cases.back().program += line + "\n";
    }
  }
  return cases;
}

// "line code column+size message | advice", and then its notes with their lines.
std::string Told(const Finding& finding) {
  std::ostringstream told;
  told << finding.span.line << " " << finding.rule->code << " " << finding.span.column << "+"
       << finding.span.size << " " << finding.message << " | " << finding.advice;
  for (const Note& note : finding.notes) told << " | " << note.span.line << ": " << note.text;
  return told.str();
}

// Each head of a mistake says how a finding begins, in their order: its line and code at least.
TEST(Check, EachMistakeIsToldOnceAtItsPlaceWithItsWords) {
  const std::vector<Case> cases = CasesOf(kSources / "tests/checker/mistakes.txt");
  EXPECT_GT(cases.size(), 130u);
  for (const Case& wrong : cases) {
    const std::vector<Finding> findings = Check(Editors(wrong.program));
    ASSERT_EQ(findings.size(), wrong.heads.size()) << wrong.program << Listed(findings);
    for (std::size_t i = 0; i < findings.size(); ++i) {
      EXPECT_TRUE(Told(findings[i]).starts_with(wrong.heads[i]))
          << wrong.program << "told:   " << Told(findings[i]) << "\nwanted: " << wrong.heads[i];
      EXPECT_FALSE(findings[i].advice.empty()) << wrong.program;
    }
  }
}

TEST(Check, RightProgramsHaveNoFinding) {
  for (const Case& right : CasesOf(kSources / "tests/checker/right.txt")) {
    EXPECT_EQ(Listed(Check(Editors(right.program))), "") << right.heads[0];
  }
}

TEST(Check, TheProgramsOfTheProjectAreFreeOfFindings) {
  std::size_t count = 0;
  for (const char* folder : {"examples", "bench", "bench/records", "bench/sql", "tests/programs"}) {
    for (const auto& entry : fs::directory_iterator(kSources / folder)) {
      const auto loaded = LoadProgram(entry.path().string());
      if (const auto* program = std::get_if<LoadedProgram>(&loaded)) {
        EXPECT_EQ(Listed(Check(program->program.EditorText)), "") << entry.path();
        ++count;
      }
    }
  }
  EXPECT_GT(count, 60u);
}

// Each rule has a section, whose first example it finds and whose second it lets pass.
TEST(Manual, ShowsEachRuleWithAWrongAndARightExample) {
  const std::string page = ReadText(kSources / "docs/manual/avisos.md");
  for (const Rule* rule : Rules()) {
    const std::string title = "## " + std::string(rule->code) + ": " + std::string(rule->title) + "\n";
    const std::size_t begin = page.find(title);
    ASSERT_NE(begin, std::string::npos) << title;
    const std::string section = page.substr(begin, page.find("\n## ", begin + 1) - begin);
    std::vector<std::string> examples;
    for (std::size_t at = section.find("```\n"); at != std::string::npos; at = section.find("```\n", at)) {
      const std::size_t end = section.find("```", at + 4);
      examples.push_back(section.substr(at + 4, end - at - 4));
      at = end + 3;
    }
    ASSERT_EQ(examples.size(), 2u) << title;
    const std::vector<Finding> wrong = Check(Editors(examples[0]));
    ASSERT_EQ(wrong.size(), 1u) << title << Listed(wrong);
    EXPECT_EQ(wrong[0].rule->code, rule->code) << title;
    EXPECT_EQ(Listed(Check(Editors(examples[1]))), "") << title;
  }
}

TEST(Silence, HoldsForALineForTheNextOrForTheProgram) {
  const std::string wrong = "Var sobra Inteiro";
  const std::string plain = "Escreva nada\n";
  EXPECT_EQ(Check(Editors(wrong + "\n")).size(), 1u);
  EXPECT_EQ(Check(Editors(wrong + " ' tessera: permite T0306\n")).size(), 0u);
  EXPECT_EQ(Check(Editors("' Tessera: permite t0306, porque sim\n" + wrong + "\n")).size(), 0u);
  EXPECT_EQ(Check(Editors("' tessera: permite T0306\n\n" + plain + wrong + "\n")).size(), 2u);
  EXPECT_EQ(Check(Editors(wrong + "\n" + plain + "' tessera: permite no programa T0306, T0301\n")).size(),
            0u);
  EXPECT_EQ(Check(Editors(wrong + " ' tessera: permite T0301\n")).size(), 1u);
}

TEST(Program, ReadsAChangedEditorAgainAndKnowsTheOthers) {
  Program program;
  program.SetEditor(0, "Var n Inteiro\r\nn = Dobro(2)\r\nEscreva n\r\n");
  program.SetEditor(1, "Funcao Dobro(a Inteiro) Numero\r\nRetorne a * 2\r\nFimFuncao\r\n");
  EXPECT_EQ(Listed(program.Findings()), "");
  program.SetEditor(1, "Funcao Triplo(a Inteiro) Numero\r\nRetorne a*3\r\nFimFuncao\r\n");
  EXPECT_EQ(program.FindingsOf(0).size(), 1u) << Listed(program.FindingsOf(0));
  EXPECT_EQ(program.FindingsOf(1).size(), 1u) << Listed(program.FindingsOf(1));
  EXPECT_EQ(program.FindingsOf(1)[0].span.line, 2u);
  program.SetEditor(1, "Funcao Dobro(a Inteiro) Numero\r\nRetorne a * 2\r\nFimFuncao\r\n");
  EXPECT_EQ(Listed(program.Findings()), "");
}

// Bytes of any kind are read without harm.
TEST(Check, CutAndJumbledProgramsAreReadToTheirEnd) {
  const std::string whole = ReadText(kSources / "tests/checker/right.txt");
  for (std::size_t size = 0; size < whole.size(); size += 97) Check(Editors(whole.substr(0, size)));
  std::string jumbled = whole;
  for (std::size_t i = 0; i + 7 < jumbled.size(); i += 7) std::swap(jumbled[i], jumbled[i + 5]);
  EXPECT_FALSE(Check(Editors(jumbled)).empty());
}

// A large program: its seven editors have some 20,000 lines of every kind.
EditorTexts LargeProgram() {
  constexpr std::size_t kLines = 20000;
  EditorTexts editors;
  std::size_t lines = 0;
  for (std::size_t editor = 0; editor < kEditors; ++editor) {
    std::string text =
        editor == 0 ? "Var n Inteiro, x Decimal, t String\r\nEscreva n, x, t\r\nFimPrograma\r\n" : "";
    for (std::size_t row = 0; lines < kLines * (editor + 1) / kEditors; ++row, lines += 22) {
      const std::string name = std::to_string(editor) + "x" + std::to_string(row);
      text +=
          "Sub Rotina" + name +
          "()\r\n' Um coment\xE1rio\r\nn = 0\r\nEnquanto n < 100\r\n  Se x > 10 E n <> 5\r\n"
          "    t = \"Item \" & n & \" de \" & x\r\n    Escreva t, \": \", Formata(x, \"PADRAO\"), x * 2\r\n"
          "    x = (x + n) / 2\r\n  CasoContrario\r\n    x = Media" +
          name +
          "(n, x) + 1\r\n"
          "    n = Comprimento(t) + 1\r\n  FimSe\r\n  n++\r\nRepita\r\nFimSub\r\n\r\n"
          "Funcao Media" +
          name +
          "(a Decimal, b Decimal) Numero\r\n  Var soma Decimal\r\n  soma = a + b\r\n"
          "  soma = soma / 2\r\n  Retorne soma\r\nFimFuncao\r\n";
    }
    editors[editor] = text;
  }
  return editors;
}

TEST(Speed, ALargeProgramAndAChangedEditorAreReadWhileAPersonTypes) {
  using Clock = std::chrono::steady_clock;
  const auto since = [](Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
  };
  const EditorTexts editors = LargeProgram();
  double whole = 1e9;
  double changed = 1e9;
  for (int round = 0; round < 5; ++round) {
    const Clock::time_point start = Clock::now();
    Program program;
    for (std::size_t i = 0; i < kEditors; ++i) program.SetEditor(i, editors[i]);
    EXPECT_EQ(Listed(program.Findings()), "");
    whole = std::min(whole, since(start));
    const Clock::time_point typed = Clock::now();
    program.SetEditor(3, editors[3] + "Escrva 1\r\n");
    EXPECT_FALSE(program.FindingsOf(3).empty());
    changed = std::min(changed, since(typed));
  }
  std::cout << "20.000 linhas: " << whole << " ms; um editor: " << changed << " ms\n";
#ifdef NDEBUG
  // Twice what it takes at most on a machine of its own, for one that others share.
  EXPECT_LT(whole, 300);
  EXPECT_LT(changed, 40);
#endif
}

}  // namespace
}  // namespace tessera::check
