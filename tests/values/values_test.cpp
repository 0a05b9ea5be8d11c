#include <gtest/gtest.h>

#include <random>

#include "language/words.h"
#include "platform/failure.h"
#include "support/core_program.h"
#include "support/table.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/conditions.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera {
namespace {

long FailureOf(const std::function<void()>& body) {
  const auto failure = Guard(body);
  return failure ? failure->number() : 0;
}

std::string Computed(std::string_view text) {
  const StackLimit stack;
  return ArithmeticEval(text, stack).ToText();
}

struct Case {
  std::string_view text;
  std::string_view result;
};

TEST(Arithmetic, GivesWhatTheTableHas) {
  for (const test::Table& table : test::TablesOf("values/arithmetic.txt")) {
    for (const auto& [given, result] : table.cases) EXPECT_EQ(Computed(given) + "\n", result) << given;
  }
  EXPECT_EQ(Computed(" 1 + 1 "), "2");
}

TEST(Arithmetic, BadTextIsZeroAndSomeFaultsAreFailures) {
  for (const std::string_view text : {"1+a", "1.2.3", "1/0", "5/0+3", "1E+15+1", ""}) {
    EXPECT_EQ(Computed(text), "0") << text;
  }
  EXPECT_EQ(FailureOf([] { Computed("5%0"); }), 11);
  EXPECT_EQ(FailureOf([] { Computed("3000000000%7"); }), 6);
  EXPECT_EQ(FailureOf([] { Computed("3000000000&7"); }), 6);
  EXPECT_EQ(FailureOf([] { Computed("10^29"); }), 6);
  EXPECT_EQ(FailureOf([] { Computed("(0-8)^0.5"); }), 5);
  EXPECT_EQ(FailureOf([] { Computed(std::string(10'000'000, '(')); }), 28);
}

TEST(Parens, MarksTellTheLevel) {
  EXPECT_EQ(MarkParens("Seno(a(1))"), "Seno(1]a(2]1[2)[1)");
  EXPECT_EQ(StripParens(MarkParens("f(a(1),b(2)) + (c)")), "f(a(1),b(2)) + (c)");
}

TEST(Parens, MarksOfTwoDigitsStay) {
  const std::string deep = "((((((((((1))))))))))";
  EXPECT_EQ(StripParens(MarkParens(deep)), "((((((((((10]1[10))))))))))");
}

TEST(Unquote, OnlyTheOutermostPairGoes) {
  for (const Case& c : std::initializer_list<Case>{{"\"abc\"", "abc"},
                                                   {"abc", "abc"},
                                                   {"\"(abc)\"", "abc"},
                                                   {"\"", ""},
                                                   {"\"\"", ""},
                                                   {"\"a\"b\"", "a\"b"},
                                                   {"", ""}}) {
    EXPECT_EQ(Unquote(c.text), c.result) << c.text;
  }
}

std::vector<std::string> Parts(std::string_view text, bool splitAtEqual = false) {
  test::CoreProgram program;
  auto parts = SplitArguments(program.run, text, 6, splitAtEqual, false);
  while (!parts.empty() && parts.back().empty()) parts.pop_back();
  return parts;
}

TEST(SplitArguments, CutsAtCommasOutsideLiterals) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(Parts(" \"a,b\" , c "), (Texts{"\"a,b\"", "c"}));
  EXPECT_EQ(Parts("a,,c"), (Texts{"a", "", "c"}));
  EXPECT_EQ(Parts("\"a, b"), (Texts{"\"a, b"}));
  EXPECT_EQ(Parts("\"a\"\"b,c\",d"), (Texts{"\"a\"\"b", "c\",d"}));
  EXPECT_EQ(Parts("Tamanho = 1,2", true), (Texts{"Tamanho", "=", "1", "2"}));
  EXPECT_EQ(Parts("f(1]a(2]1[2)[1)"), (Texts{"f(a(1))"}));
  EXPECT_EQ(FailureOf([] { Parts("1,2,3,4,5,6,7"); }), 9);
}

TEST(Conditions, AreCutIntoTermsAndMarks) {
  const Condition two = SplitCondition(" a = 1 E b <> \"E OU\" OU c>=2 ");
  EXPECT_EQ(two.terms, (std::vector<std::string_view>{"a", "1", "b", "\"E OU\"", "c", "2"}));
  EXPECT_EQ(two.operators, (std::vector<std::string_view>{"=", "<>", ">="}));
  EXPECT_EQ(two.connectives, (std::vector<std::string_view>{"E", "OU"}));
  EXPECT_EQ(SplitCondition("a").terms, (std::vector<std::string_view>{"a"}));
}

TEST(Conditions, OuCutsAName) {
  EXPECT_EQ(SplitCondition("TOTOU = 1").terms, (std::vector<std::string_view>{"TOT", "", "1"}));
  EXPECT_EQ(SplitCondition("a = 1 e b = 2").terms, (std::vector<std::string_view>{"a", "1 e b", "2"}));
}

// An empty text on the right is a term of its own; an empty left one ends the list.
TEST(Conditions, AnEmptyRightTermIsCompared) {
  struct Compared {
    std::string_view condition;
    std::string_view holds;
  };
  for (const Compared& c :
       {Compared{"s = E b = 1", "1"}, Compared{"s = E b = 2", "0"}, Compared{"b = 2 OU s = ", "1"},
        Compared{"s <> OU b = 1", "1"}, Compared{"= 1 OU b = 1", "0"}, Compared{"b = 1 E = 2", "1"},
        Compared{"s = \"\" E b = 1", "1"}}) {
    EXPECT_EQ(test::Output("Var s String, b Inteiro\nb = 1\nSe " + std::string(c.condition) +
                           "\nEscreva 1\nCasoContrario\nEscreva 0\nFimSe"),
              std::string(c.holds) + "\n")
        << c.condition;
  }
}

TEST(Conditions, OnlyANumberOnTheLeftConverts) {
  EXPECT_EQ(CompareTerms("=", 5, "5"_w), kTrue);
  EXPECT_EQ(CompareTerms("=", "5"_w, 5), kFalse);
  EXPECT_EQ(CompareTerms(">", "5"_w, 5), kTrue);
  EXPECT_EQ(CompareTerms("<", 5, "abc"_w), kTrue);
  EXPECT_EQ(CompareTerms("=", 1.5, "1,5"_w), kTrue);
  EXPECT_EQ(CompareTerms(">", "10"_w, "9"_w), kFalse);
  EXPECT_EQ(CompareTerms("=<", 1, 1), "");
}

TEST(Conditions, JoinFromTheLeftWithoutPrecedence) {
  using Words = std::vector<std::string_view>;
  EXPECT_EQ(CombineConditions({"OU", "E"}, Words{kTrue, kTrue, kFalse}), kFalse);
  EXPECT_EQ(CombineConditions({"E", "OU"}, Words{kFalse, kFalse, kTrue}), kTrue);
  EXPECT_EQ(CombineConditions({}, Words{kTrue}), kTrue);
  EXPECT_EQ(CombineConditions({}, Words{}), "");
}

TEST(Conditions, ThePlacesAreCounted) {
  const auto chain = [](int comparisons) {
    std::string text = "1 = 1";
    for (int i = 1; i < comparisons; ++i) text += " E 1 = 1";
    return text;
  };
  test::CoreProgram program;
  EXPECT_EQ(EvaluateCondition(program.run, SplitCondition(chain(21))), kTrue);
  EXPECT_EQ(FailureOf([&] { EvaluateCondition(program.run, SplitCondition(chain(22))); }), 9);
  EXPECT_EQ(FailureOf([&] { SplitCondition(chain(26)); }), 9);
}

class VariableStoreTest : public testing::Test {
 protected:
  std::vector<std::string> boxes;
  VariableStore store{[this](std::string_view text) { boxes.push_back(ToUtf8(text)); }};
};

TEST_F(VariableStoreTest, KeepsTheFirstDeclaration) {
  store.VarCreateScalar("a", "Inteiro");
  store.VarWrite("A", 7, true);
  store.VarCreateScalar("a", "String");
  store.VarCreateScalar("b", "inteiro");
  EXPECT_EQ(*store.VarRead("a").AsInteger(), 7);
  EXPECT_EQ(store.VarFind("b"), -1);
}

TEST_F(VariableStoreTest, ArraysAreConsecutiveSlotsWithoutACheck) {
  store.VarCreateArray("v(3)", "String");
  store.VarCreateScalar("w", "String");
  store.VarWrite("v(3)", "vizinho"_w, true);
  EXPECT_EQ(store.VarRead("w").ToText(), "vizinho");
  store.VarWrite("v", "zero"_w, true);
  EXPECT_EQ(store.VarRead("v(0)").ToText(), "zero");
  EXPECT_EQ(store.VarRead("v(4)").ToText(), "");  // the slot beyond the last one
  EXPECT_EQ(FailureOf([&] { store.VarRead("v(5)"); }), 9);
  EXPECT_EQ(FailureOf([&] { store.VarRead("v(0-1)"); }), 0);
  EXPECT_EQ(boxes.back(), "Não pode ler 0-1: variável não declarada!");
}

TEST_F(VariableStoreTest, AnIndexIsReadFromTheIntegerTable) {
  store.VarCreateArray("v(5)", "String");
  store.VarCreateScalar("i", "Inteiro");
  store.VarCreateScalar("d", "Decimal");
  store.VarWrite("i", 2, true);
  store.VarWrite("v(2)", "dois"_w, true);
  EXPECT_EQ(store.VarRead("v(i)").ToText(), "dois");
  EXPECT_EQ(store.VarRead("v(d)").ToText(), "dois");  // slot 0 of the integers
  EXPECT_EQ(store.VarRead("v(1,5)").ToText(), "dois");
}

TEST_F(VariableStoreTest, LongNamesAreCutAndThenNeverFound) {
  const std::string name(51, 'n');
  store.VarCreateScalar(name, "Inteiro");
  store.VarCreateScalar(name, "Inteiro");
  EXPECT_EQ(store.VarFind(name), -1);
  EXPECT_EQ(store.NameRecord("Inteiro", 1), std::string(50, 'N') + "1         1         ");
  EXPECT_EQ(store.VarFind(std::string(50, 'n')), 0);
  EXPECT_EQ(store.LastVarType(), "Inteiro");
  // Behind the first one of the name stands the next.
  store.VarRemove(std::string(50, 'n'), false);
  EXPECT_EQ(store.VarFind(std::string(50, 'n')), 0);
  store.VarRemove(std::string(50, 'n'), false);
  EXPECT_EQ(store.VarFind(std::string(50, 'n')), -1);
}

TEST_F(VariableStoreTest, RemovalShiftsTheLaterOnes) {
  store.VarCreateArray("a(2)", "Inteiro");
  store.VarCreateScalar("b", "Inteiro");
  store.VarCreateScalar("c", "Inteiro");
  store.VarWrite("b", 5, true);
  store.VarWrite("c", 6, true);
  store.VarRemove("A", false);
  EXPECT_EQ(store.VarFind("b"), 0);
  EXPECT_EQ(*store.VarRead("c").AsInteger(), 6);
  store.VarRemove("a", false);
  EXPECT_EQ(boxes, (std::vector<std::string>{"RemoveVariável - variável não declarada: a"}));
  store.VarCreateScalar("d", "Inteiro");
  EXPECT_EQ(*store.VarRead("d").AsInteger(), 0);
}

TEST_F(VariableStoreTest, ValuesAreConvertedToTheVariablesType) {
  store.VarCreateScalar("i", "Inteiro");
  store.VarCreateScalar("d", "Decimal");
  store.VarCreateScalar("s", "String");
  store.VarWrite("i", "2,5"_w, true);
  EXPECT_EQ(*store.VarRead("i").AsInteger(), 2);
  store.VarWrite("d", "1.234,5"_w, true);
  EXPECT_EQ(*store.VarRead("d").AsDouble(), 1234.5);
  store.VarWrite("s", 0.5, true);
  EXPECT_EQ(store.VarRead("s").ToText(), "0,5");
  EXPECT_EQ(FailureOf([&] { store.VarWrite("i", "abc"_w, true); }), 13);
  EXPECT_EQ(FailureOf([&] { store.VarWrite("i", 3e9, true); }), 6);
  EXPECT_EQ(FailureOf([&] { store.VarWrite("nada", 1, true); }), static_cast<long>(0x80040001));
  store.VarWrite("nada", 1, false);
  EXPECT_EQ(FailureOf([&] { store.VarCreateArray("v(2000000000)", "String"); }), 7);
}

TEST_F(VariableStoreTest, TheMapFindsWhatTheScanFinds) {
  std::mt19937 random(3);
  const auto name = [&] { return std::string(1 + random() % 3, static_cast<char>('a' + random() % 4)); };
  constexpr std::array kTypes = {"String", "Inteiro", "Decimal"};
  for (int i = 0; i < 5000; ++i) {
    if (random() % 3 == 0) {
      store.VarRemove(name(), true);
    } else if (random() % 2 == 0) {
      store.VarCreateScalar(std::string(random() % 8 == 0 ? 49 : 0, 'x') + name(), kTypes[random() % 3]);
    } else {
      store.VarCreateArray(name() + "(" + std::to_string(random() % 4) + ")", kTypes[random() % 3]);
    }
    for (const std::string_view probe : {"a", "BB", "ccc", "d(1)", "aa", "zz"}) {
      ASSERT_EQ(store.VarFind(probe), store.VarFindByScan(probe));
    }
  }
}

TEST(FunctionTable, TheIndexAnswersAsTheScanDoes) {
  FunctionTable table;
  std::vector<std::string> words = WordNames();
  words.emplace_back("");
  table.Fill(words);
  std::mt19937 random(9);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (int pieces = 0; pieces < 4; ++pieces) {
      text += random() % 2 == 0 ? words[random() % words.size()] : "x";
      text += std::array{"(", " ", "", ")", "Data"}[random() % 5];
    }
    ASSERT_EQ(table.FirstCalledIn(text), table.FirstCalledInByScan(text)) << text;
  }
}

TEST(AddValues, JoinsTextsAndAddsTheRest) {
  EXPECT_EQ(AddValues("a"_w, "b"_w).ToText(), "ab");
  EXPECT_EQ(AddValues(1, "2"_w).ToText(), "3");
  EXPECT_EQ(AddValues(2147483647, 1).ToText(), "2147483648");
  EXPECT_EQ(AddValues(0.5, *ExactDecimal::FromDouble(0.25)).ToText(), "0,75");
  EXPECT_EQ(SubtractValues("5"_w, "3"_w).ToText(), "2");
  EXPECT_EQ(FailureOf([] { AddValues(1, "x"_w); }), 13);
}

}  // namespace
}  // namespace tessera
