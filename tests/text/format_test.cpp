#include "text/format.h"

#include <gtest/gtest.h>

#include "support/table.h"
#include "text/code_page.h"
#include "text/format_standard.h"
#include "text/literal.h"

namespace tessera {
namespace {

// A value and its pattern, with "|" between them.
class Formats : public testing::TestWithParam<test::Table> {};

TEST_P(Formats, AreThoseOfTheTable) {
  for (const auto& [given, result] : GetParam().cases) {
    const std::size_t mark = given.find('|');
    const auto shown =
        FormatText(std::string_view(given).substr(0, mark), std::string_view(given).substr(mark + 1));
    ASSERT_TRUE(shown.has_value()) << given;
    EXPECT_EQ(ToUtf8(*shown) + "\n", result) << given;
  }
}

INSTANTIATE_TEST_SUITE_P(FormatText, Formats, testing::ValuesIn(test::TablesOf("text/formats.txt")),
                         test::NameOfTable);

TEST(FormatText, ADateBeyondTheCalendarHasNone) {
  EXPECT_FALSE(FormatText("99999999", "dd/mm/yyyy").has_value());
}

TEST(FormatStandard, FitsDigitsIntoTheTemplateWithoutRounding) {
  struct {
    std::string_view number;
    std::size_t places;
    std::string_view shown;
  } constexpr kCases[] = {{"1234.5", 2, "1.234,50"},
                          {"0.125", 2, "0,125"},
                          {"-7", 2, "-7,00"},
                          {"+7", 2, "7,00"},
                          {"", 2, "0,00"},
                          {"7", 0, "7"},
                          {"7.5", 0, "7,5"},
                          {"1.100", 2, "1,10"},
                          {"0.999999", 2, "0,999999"},
                          {"0.9999999", 2, "0,999999"},
                          {"- 12", 2, "-12,00"},
                          {"1000", 2, "1.000,00"},
                          {"999999999999", 2, "999.999.999.999,00"}};
  for (const auto& c : kCases) EXPECT_EQ(FormatStandard(c.number, c.places), c.shown) << c.number;
  EXPECT_FALSE(FormatStandard("1000000000000", 2).has_value());
}

}  // namespace
}  // namespace tessera
