#include "text/one_based.h"

#include <gtest/gtest.h>

#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {
namespace {

TEST(OneBased, FindCountsFromOneAndAnswersZeroForNothing) {
  EXPECT_EQ(Find("abcabc", "c"), 3u);
  EXPECT_EQ(Find("abcabc", "c", 4), 6u);
  EXPECT_EQ(Find("abc", "x"), 0u);
  EXPECT_EQ(Find("abc", "", 2), 2u);
  EXPECT_EQ(Find("abc", "a", 9), 0u);
  EXPECT_EQ(FindBack("abcabc", "c", 5), 3u);
  EXPECT_EQ(FindBack("abcabc", "c", 6), 6u);
  EXPECT_EQ(FindBack("abc", "a", 0), 0u);
}

TEST(OneBased, OnlyTheBlankIsTrimmed) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim(" \ta "), "\ta");
  EXPECT_EQ(Trim("   "), "");
}

TEST(OneBased, CaseMappingIsThatOfTheCodePage) {
  EXPECT_EQ(Upper("aéçãÿšœž÷ß"_w), "AÉÇÃŸŠŒŽ÷ß"_w);
  EXPECT_EQ(Lower("AÉÇÃŸŠŒŽ×"_w), "aéçãÿšœž×"_w);
  EXPECT_TRUE(EqualsIgnoringCase("Ação"_w, "AÇÃO"_w));
}

TEST(OneBased, TextOrderIsThatOfThe16BitCodes) {
  EXPECT_LT(CompareText("abc", "abd"), 0);
  EXPECT_GT(CompareText("b", "B"), 0);
  EXPECT_GT(CompareText("€"_w, "ÿ"_w), 0);  // U+20AC, though its byte is 0x80
  EXPECT_EQ(CompareText("a", "a"), 0);
  EXPECT_LT(CompareText("a", "aa"), 0);
}

TEST(CodePage, EveryByteSurvivesTheRoundTrip) {
  std::string all;
  for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
  EXPECT_EQ(std::get<std::string>(FromUtf8(ToUtf8(all))), all);
}

TEST(CodePage, NamesTheFirstCharacterThatItLacks) {
  const auto lacking = FromUtf8("ab\xCE\xB1");
  EXPECT_EQ(std::get<Utf8Problem>(lacking).offset, 2u);
  EXPECT_FALSE(std::get<Utf8Problem>(lacking).malformed);
  for (const char* malformed : {"a\xE7", "a\xC0\x80", "a\xED\xA0\x80", "a\xF5\x80\x80\x80"}) {
    EXPECT_TRUE(std::get<Utf8Problem>(FromUtf8(malformed)).malformed) << malformed;
  }
  EXPECT_EQ(FromUtf8Lossy("\xCE\xB1\xC3\xA7"), "?ç"_w);
  EXPECT_EQ(FromUtf8Lossy({"a\0", 2}), std::string("a\0", 2));
}

}  // namespace
}  // namespace tessera
