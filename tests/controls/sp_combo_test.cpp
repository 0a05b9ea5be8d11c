#include "controls/sp_combo.h"

#include <gtest/gtest.h>

#include "text/literal.h"

namespace tessera {
namespace {

struct SpComboTest : testing::Test {
  SpComboTest() {
    for (const auto& entry : {"Bahia"_w, "Pará"_w, "Paraná"_w, "Paraíba"_w, "Ébano"_w}) combo.AddItem(entry);
  }
  // The text with what is selected in brackets.
  std::string Typed(std::string_view keys) {
    for (const char key : keys) combo.KeyPress(key);
    const TextField& field = combo.TxtAux();
    std::string text = field.Text();
    text.insert(field.SelStart() + field.SelLength(), "]");
    text.insert(field.SelStart(), "[");
    return text;
  }
  SpCombo combo;
};

TEST_F(SpComboTest, TheFirstEntryThatBeginsWithWhatIsTypedWins) {
  EXPECT_EQ(Typed("p"), "P[ará]"_w);
  EXPECT_EQ(Typed("ara"), "Para[ná]"_w);
  EXPECT_EQ(combo.ListIndex(), 2);
}

TEST_F(SpComboTest, WhatNothingBeginsWithIsPlainInput) {
  EXPECT_EQ(Typed("bx"), "Bx[]");
  EXPECT_EQ(combo.ListIndex(), SpCombo::kNoEntry);
  EXPECT_EQ(Typed("y"), "Bxy[]");
}

TEST_F(SpComboTest, CompletesForPlainLettersAndDigitsAlone) {
  EXPECT_EQ(Typed("É"_w), "É[]"_w);
  EXPECT_EQ(Typed("b"), "Éb[ano]"_w);
  EXPECT_EQ(Typed("\t\r"), "Éb[ano]"_w);
  for (const std::string_view whole :
       {"aa", "zz", "AA", "ZZ", "00", "99", "@@", "[[", "``", "{{", "//", "::"}) {
    SpCombo fresh;
    fresh.AddItem(std::string(whole));
    fresh.KeyPress(whole[0]);
    EXPECT_EQ(fresh.Text() == whole, std::isalnum(whole[0]) != 0) << whole;
  }
}

TEST_F(SpComboTest, AWholeEntryIsNotCompletedFurther) {
  combo.AddItem("Bahiana");
  EXPECT_EQ(Typed("bahian"), "Bahian[]");
  EXPECT_EQ(Typed("a"), "Bahiana[]");
}

TEST_F(SpComboTest, BackspaceTakesTheCompletionAway) {
  Typed("ba");
  EXPECT_TRUE(combo.KeyDown(8, false));
  EXPECT_EQ(combo.Text(), "Ba");
}

TEST_F(SpComboTest, ArrowsMoveThroughTheClosedList) {
  EXPECT_FALSE(combo.KeyDown(38, false));
  EXPECT_TRUE(combo.KeyDown(40, false));
  EXPECT_TRUE(combo.KeyDown(40, false));
  EXPECT_EQ(combo.Text(), "Pará"_w);
  EXPECT_TRUE(combo.KeyDown(38, false));
  EXPECT_EQ(combo.Text(), "Bahia");
  EXPECT_FALSE(combo.KeyDown(38, false));
  EXPECT_FALSE(combo.ListIsOpen());
}

TEST_F(SpComboTest, TheListOpensChoosesAndCloses) {
  combo.ArrowClick();
  EXPECT_TRUE(combo.ListIsOpen());
  EXPECT_FALSE(combo.ListClick(5));
  EXPECT_TRUE(combo.ListClick(4));
  EXPECT_EQ(combo.Text(), "Ébano"_w);
  EXPECT_FALSE(combo.ListIsOpen());
  combo.ArrowClick();
  combo.PerdeuFoco();
  EXPECT_FALSE(combo.ListIsOpen());
  combo.SetEnabled(false);
  combo.ArrowClick();
  EXPECT_FALSE(combo.ListIsOpen());
  EXPECT_FALSE(combo.KeyPress('p'));
}

TEST_F(SpComboTest, KeysMoveTheHighlightOfTheOpenList) {
  combo.SetListHeight(2);
  combo.SetText("Paraná"_w);
  combo.ArrowClick();
  struct {
    int code;
    std::ptrdiff_t highlighted;
    std::ptrdiff_t first;
  } constexpr kSteps[] = {{40, 3, 2}, {40, 4, 3}, {40, 4, 3}, {38, 3, 3}, {38, 2, 2},
                          {33, 0, 0}, {38, 0, 0}, {34, 2, 1}, {34, 4, 3}, {65, 4, 3}};
  EXPECT_EQ(combo.FirstVisible(), 1) << "the chosen entry shows, as the last row";
  for (const auto& step : kSteps) {
    EXPECT_FALSE(combo.KeyDown(step.code, false));
    EXPECT_EQ(combo.Highlighted(), step.highlighted) << step.code;
    EXPECT_EQ(combo.FirstVisible(), step.first) << step.code;
  }
  EXPECT_EQ(combo.Text(), "Paraná"_w);
  EXPECT_TRUE(combo.KeyDown(13, false));
  EXPECT_EQ(combo.Text(), "Ébano"_w);
  EXPECT_FALSE(combo.ListIsOpen());
  combo.ArrowClick();
  combo.KeyDown(38, false);
  EXPECT_FALSE(combo.KeyDown(27, false));
  EXPECT_FALSE(combo.ListIsOpen());
  EXPECT_EQ(combo.ListIndex(), 4);
  combo.ArrowClick();
  EXPECT_EQ(combo.Highlighted(), 4) << "what was not chosen is forgotten";
}

TEST_F(SpComboTest, TheOpenListFollowsWheelPointerAndTyping) {
  combo.SetListHeight(2);
  combo.Wheel(1);
  EXPECT_EQ(combo.FirstVisible(), 0) << "a closed list";
  combo.ArrowClick();
  combo.Wheel(2);
  EXPECT_EQ(combo.FirstVisible(), 2);
  combo.ListHover(1);
  EXPECT_EQ(combo.Highlighted(), SpCombo::kNoEntry) << "an entry that does not show";
  combo.ListHover(3);
  EXPECT_EQ(combo.Highlighted(), 3);
  combo.Wheel(PTRDIFF_MAX);
  EXPECT_EQ(combo.FirstVisible(), 3);
  combo.Wheel(PTRDIFF_MIN);
  EXPECT_EQ(combo.FirstVisible(), 0);
  Typed("parai"_w);
  EXPECT_EQ(combo.Text(), "Parai");
  EXPECT_EQ(combo.Highlighted(), SpCombo::kNoEntry);
  combo.SetText("");
  Typed("bah");
  EXPECT_EQ(combo.Highlighted(), 0);
}

TEST_F(SpComboTest, AShortOrEmptyListShowsWhatItHas) {
  EXPECT_EQ(combo.ListRows(), 5);
  combo.SetListHeight(-3);
  EXPECT_EQ(combo.ListRows(), 1);
  combo.SelLista(4);
  combo.ArrowClick();
  combo.Clear();
  EXPECT_EQ(combo.ListRows() + combo.FirstVisible(), 0);
  for (const int code : {40, 34, 33, 38, 13}) EXPECT_FALSE(combo.KeyDown(code, false));
  EXPECT_EQ(combo.Text(), "Ébano"_w);
  EXPECT_FALSE(combo.SelLista(0));
}

}  // namespace
}  // namespace tessera
