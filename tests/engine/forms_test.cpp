// The fast forms beside the text, held against the plain rules: programs out of chance, run both ways.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "engine/function_body.h"
#include "engine/made_program.h"
#include "platform/failure.h"
#include "support/core_program.h"
#include "support/made_from.h"
#include "text/number.h"
#include "values/calls_in_arithmetic.h"
#include "values/eval.h"
#include "values/term_form.h"

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

// An answer is text that is searched again with the list.
TEST(Forms, LookThroughTheAnswersInAList) {
  constexpr std::string_view kLists[] = {"ConvStr(s), Separe(\"abc\", 2, 1), n",
                                         "Unir(ConvStr(s), n), Separe(s, 1, 3), n",
                                         "n, ConvStr(s), Apara(\" b \"), Separe(\"abc\", n, 1), n",
                                         "Comprimento(s), Separe(s, 1, 2), n",
                                         "Separe(s, 1, 9)",
                                         "Separe(s, 1, 9), Sequencia(2, \"x\"), n"};
  for (const std::string_view value :
       {"abc", "Apara a", "Apara", "Data x", "Sequencia", "(y", "x)", "x) ) y", "a,b", "a[1]", "5"}) {
    for (const std::string_view list : kLists) {
      const std::string text = "Var s String, t String, n Inteiro\ns = \"" + std::string(value) +
                               "\"\nEnquanto n < 4\n  n++\n  Escreve()\n  Junta()\nRepita\nFimPrograma\n"
                               "Sub Escreve()\n  Escreva " +
                               std::string(list) + "\nFimSub\nSub Junta()\n  t = Unir(" + std::string(list) +
                               ")\n  Escreva t\nFimSub\n";
      EXPECT_TRUE(RunMade(text, false) == RunMade(text, true)) << text;
    }
  }
}

// The same behind calls that go before the one around them, in each place of the language.
TEST(Forms, LookThroughTheAnswersOfInnerCalls) {
  constexpr std::string_view kCalls[] = {"Asc(Separe(s, n, 1))",
                                         "Apara(Separe(s, n, 3))",
                                         "ValStr(Separe(s, n, 2)) + n",
                                         "Car(Asc(Separe(s, n, 1)))",
                                         "Asc(Apara(s)) + n",
                                         "PosIni(Separe(s, 1, 4), \",\")",
                                         "Soma(Comprimento(s), n)",
                                         "Soma(Separe(s, n, 2), n)",
                                         "Soma(Asc(Separe(s, n, 1)), n)",
                                         "Um(Apara(Separe(s, n, 2)))",
                                         "Comprimento(Apara(Separe(s, n, 3)))",
                                         "Seno(RaizQuadrada(n)) + 0.5",
                                         "ValStr(Separe(s, n, 1) + 1)",
                                         "Soma(Um(s), Comprimento(s))"};
  for (const std::string_view value :
       {"abc d", "a\"b,c", "(5),7)", "12,5;-3", "Um(2)", "Apara x", "[1]+2", "  "}) {
    for (const std::string_view call : kCalls) {
      const std::string c(call);
      const std::string text =
          "Var s String, t String, c Inteiro, d Decimal, n Inteiro\ns = \"" + std::string(value) +
          "\"\nEnquanto n < 5\n  n++\n  Numero()\n  Texto()\n  Condicao()\n  Lista()\nRepita\nFimPrograma\n" +
          "Sub Numero()\n  d = " + c + "\n  Escreva d\nFimSub\nSub Texto()\n  t = " + c +
          "\n  Escreva t\nFimSub\nSub Condicao()\n  Se " + c +
          " > 9\n    c = c + 1\n  FimSe\n  Escreva c\nFimSub\n" + "Sub Lista()\n  Escreva " + c +
          "\nFimSub\nFuncao Soma(a Inteiro, b Inteiro) Inteiro\n  Retorne a + b\n" +
          "FimFuncao\nFuncao Um(a String) String\n  Retorne a\nFimFuncao\n";
      EXPECT_TRUE(RunMade(text, false) == RunMade(text, true)) << text;
    }
  }
}

struct TermRow {
  std::string_view text;
  std::string_view ready;
};

constexpr TermRow kTerms[] = {
    {"1 + 2", "whole 3"},
    {"i + 1", "whole 4"},
    {"i * 2 + 1", "whole 7"},
    {"i*2+1", "whole 7"},
    {"1 - i", "whole -2"},
    {"i % 2", "whole 1"},
    {"m % 2", "whole 1"},
    {"2147483648 % 2", "-"},
    {"7 % m", "whole 7"},
    {"n % 3", "whole -1"},
    {"w % 3", "-"},
    {"w + 1", "whole -2147483647"},
    {"7 % 2147483648", "-"},
    {"i % z", "-"},
    {"z % i", "whole 0"},
    {"i / 2", "float 1,5"},
    {"i / z", "-"},
    {"2 ^ i", "float 8"},
    {"z ^ 0", "float 1"},
    {"d + 1", "float 3,5"},
    {"d * 2", "float 5"},
    {"d % 2", "float 0"},
    {"d - d", "float 0"},
    {"1,5 + 1", "float 2,5"},
    {"1.5 + 1.5", "float 3"},
    {"1.5.5 + 1", "-"},
    {"n + 1", "whole -3"},
    {" n + 1", "whole -3"},
    {"1 + n", "whole -3"},
    {"1 +n", "whole -3"},
    {"1 - n", "whole -3"},
    {"2 * n", "whole -4"},
    {"n * 2", "whole -8"},
    {"n - 1", "whole -5"},
    {"n % 3", "whole -1"},
    {"n ^ 2", "float -16"},
    {"n + 2 ^ 2", "float 0"},
    {"1 + n ^ 2", "float -15"},
    {"e + 1", "float 0,5"},
    {"1 + e * 3", "float -0,5"},
    {"e * 3", "float -1,5"},
    {"1 - e", "float 0,5"},
    {"(n) + 1", "whole -3"},
    {"(i) + 1", "whole 4"},
    {"2 * (i + 1)", "whole 8"},
    {"(i + 1) * 2", "whole 8"},
    {"(1) i + 1", "-"},
    {"5 (3) + 1", "-"},
    {"i (3) + 1", "-"},
    {"(2 + 1) 3 + 1", "-"},
    {"1 + (2 * (3 + i))", "whole 13"},
    {"1+(1+(1+(1+(1+(1+(1+(1)))))))", "whole 8"},
    {"1+(1+(1+(1+(1+(1+(1+(1+1)))))))", "whole 9"},
    {"1+(1+(1+(1+(1+(1+(1+(1+(1+1))))))))", "-"},
    {"1+(1+(1+(1+(1+(1+(1+(1+(1+(1+1)))))))))", "-"},
    {"1 & 2", "text 1 & 2"},
    {"1 @ 2", "text 1 @ 2"},
    {"i i + 1", "-"},
    {"2i + 1", "-"},
    {"i 2 + 1", "-"},
    {"1 2 + 1", "whole 13"},
    {"1 +", "-"},
    {"1 + a b", "-"},
    {"1 + nada", "-"},
    {"1 + t", "-"},
    {"t + 1", "-"},
    {"v(2) + 1", "whole 9"},
    {"v(i) + 1", "whole 1"},
    {"v(9) + 1", "-"},
    {"999999999999999 + 0", "whole 999999999999999"},
    {"999999999999999 + 1", "whole 1000000000000000"},
    {"1000000000000000 + 1", "-"},
    {"0 - 999999999999999 - 1", "whole -1000000000000000"},
    {"0 - 999999999999999 - 2", "-"},
    {"m * m", "-"},
    {"m * m * m", "-"},
    {"999999999999999 * 999999999999999 * 999999", "-"},
    {"0.00000001 * 1", "float 0,00000001"},
    {"0.000000009 * 1", "-"},
    {"999999999999999.4 * 1", "float 999999999999999"},
    {"999999999999999.9 * 1", "-"},
    {"10 ^ 400", "-"},
    {"k + 0", "float 0,0001"},
    {"l + 0", "-"},
    {"g + 0", "-"},
    {"g - g", "-"},
    {"\"abc\"", "text abc"},
    {"\"1 + 2\"", "text 1 + 2"},
    {"abc", "text abc"},
    {"t", "text abc"},
    {"i", "whole 3"},
    {"n", "whole -4"},
    {"d", "float 2,5"},
    {"g", "float 1E+15"},
    {"v(2)", "whole 8"},
    {"v(i)", "whole 0"},
    {"7", "whole 7"},
    {"-7", "whole -7"},
    {"2.5", "float 2,5"},
    {"1,5", "whole 1"},
    {"999999999999999", "whole 999999999999999"},
    {"1000000000000000", "float 1E+15"},
    {"-999999999999999", "whole -999999999999999"},
    {"-1000000000000000", "float -1E+15"},
    {"[1]", "-"},
    {"Comprimento(t)", "call"},
    {"Comprimento(t) + 1", "calls inside"},
    {"1 + Comprimento(t)", "calls inside"},
    {"Comprimento", "text Comprimento"},
    {"Apara(t)", "call"},
    {"Seno(Comprimento(t))", "calls nested"},
    {"Asc(Separe(t, 1, 1))", "calls nested"},
    {"Car(Asc(Separe(t, 1, 1)))", "calls nested"},
    {"Dia(Car(Asc(Apara(Separe(t, 1, 1)))))", "-"},
    {"Arredonda(Separe(t, 1, 1), 2)", "calls nested"},
    {"Asc(Separe(t, 1, 1)) + 1", "calls inside"},
    {"Asc(Apara(t)) + 1", "calls inside"},
    {"Comprimento(t) * 2 + Comprimento(t)", "calls inside"},
    {"Comprimento(t) + i", "calls inside"},
    {"i - Comprimento(t)", "calls inside"},
    {"Comprimento(t) + t", "calls inside"},
    {"Comprimento(t) + 1,5", "-"},
    {"Comprimento(t)1 + 1", "-"},
    {"RaizQuadrada(i) + 1", "calls inside"},
    {"RaizQuadrada(4)+1", "-"},
};

// What a form has read of a text, and its value; "-" is left to the text.
std::string Ready(Run& run, std::string_view text) {
  const TermForm form(run, text);
  if (form.call() != nullptr) return "call";
  if (form.nested() != nullptr) return "calls nested";
  if (!form.IsWithoutCalls()) return CallsInArithmetic::Of(run, text) ? "calls inside" : "-";
  const Reading reading = form.Read(run);
  Value whole;
  const bool isWhole = form.EvaluateWhole(run.variables, whole);
  if (reading.kind == Reading::Kind::Nothing) return "-";
  const std::string value = " " + form.Evaluate(run).ToText();
  switch (reading.kind) {
    case Reading::Kind::Whole:
      return (isWhole ? "whole" : "whole, not at once:") + value;
    case Reading::Kind::Float:
      return (isWhole ? "float and whole" : "float") + value;
    case Reading::Kind::Text:
      return "text" + value;
    default:
      return "-";
  }
}

// A form that is not ready costs time alone, so that no program tells: these are, and these are not.
TEST(Forms, AreReadyForWhatTheyAreMadeFor) {
  CoreProgram program;
  VariableStore& store = program.run.variables;
  for (const auto& [name, type, value] :
       std::initializer_list<std::tuple<std::string_view, std::string_view, Value>>{
           {"i", kTypeInteiro, 3},
           {"n", kTypeInteiro, -4},
           {"z", kTypeInteiro, 0},
           {"m", kTypeInteiro, 2147483647},
           {"w", kTypeInteiro, std::numeric_limits<std::int32_t>::min()},
           {"d", kTypeDecimal, 2.5},
           {"e", kTypeDecimal, -0.5},
           {"k", kTypeDecimal, 0.0001},
           {"l", kTypeDecimal, 0.00009},
           {"g", kTypeDecimal, 1e15},
           {"t", kTypeString, std::string("abc")}}) {
    store.VarCreateScalar(name, type);
    store.VarWrite(name, value, true);
  }
  store.VarCreateArray("v(3)", kTypeInteiro);
  store.VarWrite("v(2)", 8, true);
  for (const TermRow& row : kTerms) {
    EXPECT_EQ(Ready(program.run, row.text), row.ready) << row.text;
    if (row.ready.find(' ') == std::string_view::npos || row.ready.starts_with("call")) continue;
    EXPECT_EQ(EvalNumber(program.run, row.text).ToText(), row.ready.substr(row.ready.find(' ') + 1))
        << row.text;
  }
}

// A value's sign is an operator to the parser. More choices of signs than a form has rows for, and back
// again.
TEST(Forms, ReadEachChoiceOfSigns) {
  CoreProgram program;
  VariableStore& store = program.run.variables;
  constexpr std::string_view kTexts[] = {"a - b * c + e",     "(a + b) * (c - e)",   "a * b - c % 5 + (e)",
                                         "(e + b) * 2 ^ c",   "e / 2 - a * (b + c)", "a*(b-(c*(e)))-a*a+b",
                                         "a + b + c % a * e", "((a) + b) / c ^ 2",   "a ^ b * c - 3,5 * e"};
  constexpr std::string_view kNames[] = {"a", "b", "c", "e"};
  for (const std::string_view name : kNames)
    store.VarCreateScalar(name, name == "e" ? kTypeDecimal : kTypeInteiro);
  for (const std::string_view text : kTexts) {
    const TermForm form(program.run, text);
    for (unsigned turn = 0; turn < 40; ++turn) {
      for (unsigned i = 0; i < 4; ++i) {
        const double size = i + 2 + (i == 3 ? 0.25 : 0);
        store.VarWrite(kNames[i], (turn >> i & 1) != 0 ? -size : size, true);
      }
      std::string fast, plain;
      const auto failedFast = Guard([&] { fast = form.Evaluate(program.run).ToText(); });
      const auto failedPlain = Guard([&] { plain = EvalNumber(program.run, text).ToText(); });
      EXPECT_EQ(failedFast.has_value(), failedPlain.has_value()) << text << " at turn " << turn;
      EXPECT_EQ(fast, plain) << text << " at turn " << turn;
    }
  }
}

// The functions that stand ready for their next call, and those whose names the plain way alone can follow.
TEST(Forms, FunctionsStandReadyWhereTheirListsArePlain) {
  const std::string most =
      "p1 Inteiro, p2 Inteiro, p3 Inteiro, p4 Inteiro, p5 Inteiro, p6 Inteiro, p7 Inteiro, "
      "p8 Inteiro, p9 Inteiro, q0 Inteiro, q1 Inteiro, q2 Inteiro, q3 Inteiro, q4 Inteiro, "
      "q5 Inteiro, q6 Inteiro, q7 Inteiro, q8 Inteiro, q9 Inteiro, r0 Inteiro";
  const std::string forty(40, 'n');
  for (const auto& [list, body, ready] : std::initializer_list<std::tuple<std::string, std::string, int>>{
           {"", "Retorne 1", 0},
           {"a Inteiro", "Retorne a", 1},
           {"a Inteiro, b String", "Retorne a", 2},
           {"a Inteiro", "Var b Decimal\nb = a\nRetorne b", 1},
           {"a Inteiro", "Var b Decimal, c String\nb = a\nRetorne b", 1},
           {"a9_Z Inteiro", "Retorne a9_Z", 1},
           {"_a Inteiro", "Retorne _a", 1},
           {"a", "Retorne a", -1},
           {"a Texto", "Retorne a", -1},
           {"9a Inteiro", "Retorne 9a", -1},
           {"0a Inteiro", "Retorne 0a", -1},
           {"a.b Inteiro", "Retorne a.b", -1},
           {"a Inteiro, A Inteiro", "Retorne a", -1},
           {"a Inteiro", "Var a Decimal\nRetorne a", -1},
           {"a Inteiro", "Var v(3) Inteiro\nRetorne a", -1},
           {"a Inteiro", "Var b\nRetorne a", -1},
           {"a Inteiro", "a + = 1 + = 2\nRetorne a", -1},
           {most, "Retorne p1", 20},
           {most + ", r1 Inteiro", "Retorne p1", -1},
           {forty + "12345678 Inteiro", "Retorne 1", 1},
           {forty + "123456789 Inteiro", "Retorne 1", -1}}) {
    CoreProgram program;
    program.Run("FimPrograma\nFuncao F(" + list + ") Inteiro\n" + body + "\nFimFuncao\n");
    const std::string_view text = program.run.program.ProgramText->text();
    const std::string_view found = text.substr(text.find("Funcao F("));
    const auto made = FunctionBody::Make(program.run, "F", found.substr(0, found.find("FimFuncao") + 11), 1);
    EXPECT_EQ(made ? static_cast<int>(made->parameters()) : -1, ready) << list << "\n" << body;
  }
}

}  // namespace
}  // namespace tessera::test
