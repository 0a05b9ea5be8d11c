#include "controls/mask_field.h"

#include <gtest/gtest.h>

#include <random>

#include "controls/key_code.h"
#include "text/literal.h"

namespace tessera {
namespace {

struct Typing {
  std::string_view mask;
  std::string_view keys;
  std::string_view text;
};

std::string Typed(MaskField& field, std::string_view keys) {
  for (const char key : keys) field.KeyPress(key);
  return field.Text();
}

TEST(MaskField, OnlyTheDigitSignShowsAsAnOpenPlace) {
  MaskField field;
  field.SetMask("(##) A?&-\\#\\A\\");
  EXPECT_EQ(field.Text(), "(__) A?&-#A\\");
  field.SetText("#7/x");
  EXPECT_EQ(field.Text(), "_7/x");
  EXPECT_EQ(field.Mask(), "(##) A?&-\\#\\A\\");
  field.SetMask("#-");
  EXPECT_EQ(Typed(field, "12"), "1-");
}

TEST(MaskField, EachPlaceTakesItsOwnKind) {
  const Typing cases[] = {
      {"##/##", "1a -+2x3", "12/3_"},
      {"(##) ####-####", "1234567890123", "(12) 3456-7890"},
      {"AAA-####", "b!c31234"_w, "bc3-1234"},
      {"??&", "1\xE7\xDF\x7F 9", "\xE7\xDF "},
      {"\\##", "45", "#4"},
      {"--", "1-", "--"},
      {"", "ol\xE1\r", "ol\xE1"},
  };
  for (const Typing& c : cases) {
    MaskField field;
    field.SetMask(c.mask);
    EXPECT_EQ(Typed(field, c.keys), c.text) << c.mask;
  }
}

TEST(MaskField, TheCaretJumpsOverLiterals) {
  MaskField field;
  field.SetMask("(##)-#");
  EXPECT_TRUE(field.KeyPress('1'));
  EXPECT_EQ(field.Field().Caret(), 2U);
  EXPECT_TRUE(field.KeyPress('2'));
  EXPECT_EQ(field.Field().Caret(), 5U);
  field.PlaceCaret(1);
  EXPECT_FALSE(field.KeyPress('1')) << "the same digit changes nothing";
  EXPECT_EQ(field.Field().Caret(), 2U);
}

TEST(MaskField, RemovingOpensPlacesAndLeavesLiterals) {
  MaskField field;
  field.SetMask("##/##");
  Typed(field, "1234");
  EXPECT_TRUE(field.KeyDown(key::kBackspace, false));
  EXPECT_EQ(field.Text(), "12/3_");
  field.PlaceCaret(3);
  EXPECT_TRUE(field.KeyDown(key::kBackspace, false));
  EXPECT_EQ(field.Text(), "1_/3_");
  EXPECT_EQ(field.Field().Caret(), 1U);
  EXPECT_FALSE(field.KeyDown(key::kDelete, false)) << "open already";
  field.PlaceCaret(2);
  EXPECT_FALSE(field.KeyDown(key::kDelete, false)) << "a literal";
  field.PlaceCaret(0);
  EXPECT_FALSE(field.KeyDown(key::kBackspace, false));
  EXPECT_TRUE(field.KeyDown(key::kDelete, false));
  EXPECT_EQ(field.Field().Caret(), 0U);
  field.SelectAll();
  EXPECT_TRUE(field.KeyDown(key::kDelete, false));
  EXPECT_EQ(field.Text(), "__/__");
  EXPECT_EQ(field.Field().SelLength(), 0U);
}

TEST(MaskField, ATypedCharacterTakesTheSelectionsPlace) {
  MaskField field;
  field.SetMask("##/##");
  Typed(field, "1234");
  field.Select(1, 4);
  EXPECT_FALSE(field.KeyPress('x'));
  EXPECT_EQ(field.Field().SelLength(), 3U);
  EXPECT_TRUE(field.KeyPress('9'));
  EXPECT_EQ(field.Text(), "19/_4");
  field.KeyDown(key::kHome, false);
  field.KeyDown(key::kEnd, true);
  EXPECT_EQ(field.Field().SelLength(), 5U);
}

TEST(MaskField, AnEditFitsAnotherTextToTheMask) {
  MaskField field;
  field.SetMask("##/##");
  field.SetText("9");
  EXPECT_EQ(Typed(field, "8"), "8_/__");
  field.SetText("9");
  field.PlaceCaret(1);
  EXPECT_TRUE(field.KeyDown(key::kBackspace, false));
  EXPECT_EQ(field.Text(), "__/__");
  field.SetText("12/34/56");
  field.PlaceCaret(8);
  EXPECT_FALSE(field.KeyPress('1'));
  EXPECT_TRUE(field.KeyDown(key::kBackspace, false));
  EXPECT_EQ(field.Text(), "12/3_");
}

TEST(MaskField, WithoutAMaskKeysRemoveAsInAnyText) {
  MaskField field;
  Typed(field, "abcd");
  field.PlaceCaret(2);
  EXPECT_TRUE(field.KeyDown(key::kBackspace, false));
  EXPECT_EQ(field.Text(), "acd");
  EXPECT_TRUE(field.KeyDown(key::kDelete, false));
  EXPECT_EQ(field.Text(), "ad");
  EXPECT_EQ(field.Field().Caret(), 1U);
  EXPECT_FALSE(field.KeyDown('X', false));
}

TEST(MaskField, ADisabledFieldTakesNothing) {
  MaskField field;
  field.SetMask("#");
  field.SetEnabled(false);
  EXPECT_FALSE(field.KeyPress('1'));
  EXPECT_FALSE(field.KeyDown(key::kDelete, false));
  EXPECT_EQ(field.Text(), "_");
}

// Whatever is typed, the literals of the mask stay where they are; and no text that a program sets is too
// short or too long for an edit.
TEST(MaskField, HoldsItsMaskUnderAnyKeys) {
  std::mt19937 random(5);
  constexpr int kCodes[] = {key::kLeft, key::kRight, key::kHome, key::kEnd, key::kBackspace, key::kDelete};
  for (int round = 0; round < 200; ++round) {
    std::string mask;
    for (auto n = random() % 8; n > 0; --n) mask += "#A?&\\-/ "[random() % 8];
    MaskField field;
    field.SetMask(mask);
    const std::string blank = field.Text();
    const bool programWrites = round % 2 != 0;
    for (int key = 0; key < 60; ++key) {
      if (programWrites && random() % 10 == 0) field.SetText(std::string(random() % 12, 'z'));
      if (random() % 5 == 0) field.Select(random() % 12, random() % 12);
      if (random() % 2 == 0) {
        field.KeyDown(kCodes[random() % 6], random() % 2 == 0);
      } else {
        field.KeyPress(static_cast<char>(random() % 256));
      }
      ASSERT_LE(field.Field().Caret(), field.Text().size());
    }
    if (programWrites || mask.empty()) continue;
    ASSERT_EQ(field.Text().size(), blank.size()) << mask;
    for (std::size_t i = blank.find_first_of("-/ "); i < blank.size();
         i = blank.find_first_of("-/ ", i + 1)) {
      EXPECT_EQ(field.Text()[i], blank[i]) << mask;
    }
  }
}

}  // namespace
}  // namespace tessera
