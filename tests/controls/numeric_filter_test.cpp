#include "controls/numeric_filter.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(NumericFilter, TellsEachCharacterByTheMark) {
  struct {
    std::string_view text;
    std::size_t selStart;
    std::string_view passing;  // of the characters below
  } constexpr kCases[] = {
      {"", 0, "09\b,,"},
      {"12", 1, "09\b,,"},
      {"12,", 3, "09\b\x1B\r"},
      {"12,5", 4, "09\b\x1B\r"},
      {"12,50", 5, "\b\x1B\r"},
      {"12,50", 3, "\b\x1B\r"},    // the decimals are full wherever the caret stands among them
      {"12,50", 2, "09\b\x1B\r"},  // before the mark
      {"12.50", 4, "\b\x1B\r"},    // a mark of either sign
      {"12,5078", 7, "\b\x1B\r"},  // a text that was full already
      {"1,2", 99, "09\b\x1B\r"},
  };
  for (const auto& c : kCases) {
    std::string passed;
    for (const char typed : std::string_view("09\b\x1B\r.,-+ ax\x7F\xE7")) {
      if (const auto character = NumericFilter(c.text, c.selStart, typed)) passed += *character;
    }
    EXPECT_EQ(passed, c.passing) << c.text << " " << c.selStart;
  }
}

TEST(NumericFilter, TheDecimalsAreTheCallersToTell) {
  EXPECT_EQ(NumericFilter("1,", 2, '5', 0), std::nullopt);
  EXPECT_EQ(NumericFilter("1,234", 5, '5', 4), '5');
  EXPECT_EQ(NumericFilter("1,2345", 6, '5', 4), std::nullopt);
}

}  // namespace
}  // namespace tessera
