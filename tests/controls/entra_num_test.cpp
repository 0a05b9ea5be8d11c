#include "controls/entra_num.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tessera {
namespace {

std::string Typed(EntraNum& entry, std::string_view keys) {
  for (const char key : keys) entry.KeyPress(key);
  return entry.TxtAux().Text();
}

TEST(EntraNum, ShowsValuesInGroups) {
  struct {
    double value;
    int casas;
    std::string_view shown;
  } constexpr kCases[] = {{1234567.5, 2, "1.234.567,50"},
                          {0, 2, "0,00"},
                          {0, 0, "0"},
                          {0.5, 2, "0,50"},
                          {-1234.567, 2, "-1.234,56"},
                          {1e6, 0, "1.000.000"},
                          {100, 3, "100,000"},
                          {1.5, 6, "1,500000"},
                          {1.5, 7, "1,500000"},
                          {1.5, -1, "1"},
                          {123456789012345, 0, "123.456.789.012.345"}};
  for (const auto& c : kCases) {
    EntraNum entry;
    entry.SetCasas(c.casas);
    entry.SetValue(c.value);
    EXPECT_EQ(entry.TxtAux().Text(), c.shown);
    EXPECT_EQ(entry.Value(), c.value);
  }
}

TEST(EntraNum, FormatsWhatWasTyped) {
  struct {
    std::string_view text;
    std::string_view shown;
  } constexpr kCases[] = {
      {"", "0,00"},      {"-", "0,00"},           {"  12 ", "12,00"}, {"1.5", "1,50"},
      {"1,5", "1,50"},   {"1.234,5", "1.234,50"}, {"+7", "+7,00"},    {"1.234.567", "1.234.567,00"},
      {"0.129", "0,12"}, {"007", "7,00"}};
  for (const auto& c : kCases) EXPECT_EQ(EntraNum::Formata(c.text, 2), c.shown) << c.text;
}

TEST(EntraNum, LosesDigitsBeyondItsTemplate) {
  EXPECT_EQ(EntraNum::Formata("91234567890123456", 0), "234.567.890.123.456");
  EXPECT_EQ(EntraNum::Formata("1,12345678", 6), "1,123456");
}

TEST(EntraNum, TheFirstKeyStartsANewEntry) {
  EntraNum entry;
  entry.SetValue(1234.5);
  EXPECT_EQ(Typed(entry, "98,765x-,"), "98,765");
  EXPECT_EQ(entry.Value(), 98.765);
  entry.PerdeuFoco();
  EXPECT_EQ(entry.TxtAux().Text(), "98,76");
  EXPECT_EQ(Typed(entry, "4"), "4") << "whoever comes back begins anew";
  entry.SetCasas(3);
  EXPECT_EQ(entry.TxtAux().Text(), "4,000");
  EXPECT_EQ(Typed(entry, "5"), "5");
  entry.GanhouFoco();
  EXPECT_EQ(Typed(entry, "-3"), "-3");
  EXPECT_EQ(entry.Value(), -3);
  entry.GanhouFoco();
  entry.KeyDown(35, false);
  EXPECT_EQ(Typed(entry, "7"), "7");
}

TEST(EntraNum, APointStartsTheFraction) {
  EntraNum entry;
  EXPECT_TRUE(entry.KeyPress('.')) << "the text is another";
  EXPECT_EQ(Typed(entry, "25"), "0.25");
  EXPECT_EQ(entry.Value(), 0.25);
  entry.SetCasas(0);
  entry.SetValue(1234);
  EXPECT_EQ(Typed(entry, ".5"), "1234.5");
  EXPECT_EQ(entry.Value(), 1234.5);
}

TEST(EntraNum, ALoneSignLeavesTheValue0) {
  EntraNum entry;
  entry.SetValue(5);
  EXPECT_EQ(Typed(entry, "-"), "-");
  EXPECT_EQ(entry.Value(), 0);
  entry.PerdeuFoco();
  EXPECT_EQ(entry.TxtAux().Text(), "0,00");
}

TEST(EntraNum, DeleteIsABackspace) {
  EntraNum entry;
  Typed(entry, "123");
  EXPECT_TRUE(entry.KeyDown(46, false));
  EXPECT_EQ(entry.TxtAux().Text(), "12");
  entry.SetValue(1234.5);
  EXPECT_TRUE(entry.KeyDown(8, false));
  EXPECT_EQ(entry.TxtAux().Text(), "1234,5");
  EXPECT_EQ(entry.Value(), 1234.5);
  entry.KeyPress('7');
  EXPECT_EQ(entry.TxtAux().Text(), "1234,57") << "what is typed goes on";
}

TEST(EntraNum, LockedOrFullItTakesNoKey) {
  EntraNum entry;
  entry.SetMaxLength(3);
  EXPECT_EQ(Typed(entry, "12345"), "123");
  entry.SetLocked(true);
  EXPECT_FALSE(entry.KeyPress('9'));
  EXPECT_FALSE(entry.KeyDown(8, false));
  EXPECT_EQ(entry.Value(), 123);
}

TEST(EntraNum, KeysMoveTheCaretAndSelect) {
  constexpr int kEnd = 35, kHome = 36, kLeft = 37, kRight = 39;
  struct {
    std::vector<int> keys;
    std::vector<int> withShift;
    std::string_view typed;
  } const kCases[] = {{{kHome}, {}, "91234"},
                      {{kHome, kRight}, {}, "19234"},
                      {{kRight}, {}, "12349"},
                      {{kLeft, kLeft}, {}, "12934"},
                      {{kHome, kLeft, kEnd}, {}, "12349"},
                      {{kHome}, {kRight, kRight}, "934"},
                      {{}, {kLeft}, "1239"},
                      {{kRight}, {kHome}, "9"}};
  for (const auto& c : kCases) {
    EntraNum entry;
    Typed(entry, "1234");
    for (const int key : c.keys) entry.KeyDown(key, false);
    for (const int key : c.withShift) entry.KeyDown(key, true);
    EXPECT_EQ(Typed(entry, "9"), c.typed);
  }
  for (const auto& [key, typed] : {std::pair(kLeft, "19234"), std::pair(kRight, "12394")}) {
    EntraNum entry;
    Typed(entry, "1234");
    entry.PlaceCaret(1, 3);
    entry.KeyDown(key, false);
    EXPECT_EQ(Typed(entry, "9"), typed) << "the selection ends on the key's side";
  }
}

TEST(EntraNum, TheSelectionGivesWayToWhatIsTyped) {
  EntraNum entry;
  entry.SetCasas(0);
  entry.SetValue(1234567);
  entry.PlaceCaret(3, 3);
  entry.KeyDown(8, false);
  EXPECT_EQ(entry.TxtAux().Text(), "134567")
      << "the digit in front of the caret goes, with all marks of groups";
  EXPECT_EQ(Typed(entry, "9"), "1934567");
  entry.SelectAll();
  Typed(entry, "1234");
  entry.PlaceCaret(1, 3);
  EXPECT_EQ(Typed(entry, "9"), "194");
  EXPECT_EQ(entry.Value(), 194);
  entry.SelectAll();
  EXPECT_EQ(Typed(entry, "-"), "-");
  EXPECT_EQ(entry.Value(), 0);
}

TEST(EntraNum, TheLighterBorderIsHalfWayToWhite) {
  struct {
    std::int32_t color, lighter;
  } constexpr kCases[] = {{0, 0x7F7F7F},
                          {0xFFFFFF, 0xFFFFFF},
                          {0x804001, 0xBF9F80},
                          {0xFF0000, 0xFF7F7F},
                          {-2147483640, -2147483640}};
  for (const auto& c : kCases) EXPECT_EQ(EntraNum::Clareia(c.color), c.lighter) << c.color;
}

TEST(EntraNum, TakesAShownNumberThatIsPasted) {
  struct Case {
    int casas;
    std::string_view pasted;
    double value;
  };
  for (const Case& c :
       {Case{2, "1.234.567,50", 1234567.5}, Case{2, " -1.234,5 ", -1234.5}, Case{2, "1.234", 1.234},
        Case{2, "1.234.567", 1234567}, Case{0, "1.234", 1234}, Case{0, " 1.234 ", 1234},
        Case{0, "12.5", 12.5}, Case{3, "0,125", 0.125}, Case{2, "R$ 12,00", 12}}) {
    EntraNum field;
    field.SetCasas(c.casas);
    field.SetValue(99);
    field.GanhouFoco();
    EXPECT_TRUE(field.Paste(c.pasted));
    EXPECT_EQ(field.Value(), c.value) << c.pasted;
  }
}

}  // namespace
}  // namespace tessera
