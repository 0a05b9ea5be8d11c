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

}  // namespace
}  // namespace tessera
