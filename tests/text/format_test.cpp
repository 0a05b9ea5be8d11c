#include "text/format.h"

#include <gtest/gtest.h>

#include "text/code_page.h"
#include "text/format_standard.h"
#include "text/literal.h"

namespace tessera {
namespace {

struct Case {
  std::string_view value;
  std::string_view pattern;
  std::string_view shown;
};

void ExpectFormats(std::initializer_list<Case> cases) {
  for (const Case& c : cases) {
    const auto shown = FormatText(c.value, c.pattern);
    ASSERT_TRUE(shown.has_value()) << c.value << " " << c.pattern;
    EXPECT_EQ(ToUtf8(*shown), c.shown) << c.value << " in " << c.pattern;
  }
}

TEST(FormatText, DigitPlacesTakeDigitsAndRoundAHalfUp) {
  ExpectFormats({{"5", "000", "005"},
                 {"5", "###", "5"},
                 {"0", "#", ""},
                 {"0", "0", "0"},
                 {"1234", "0", "1234"},
                 {"2,5", "0", "3"},
                 {"0,125", "0.00", "0,13"},
                 {"0,124", "0.00", "0,12"},
                 {"999,995", "0.00", "1000,00"},
                 {"9,99", "0.0", "10,0"},
                 {"0,5", "#.##", ",5"},
                 {"5", "0.##", "5,"},
                 {"1,5", "0.0##", "1,5"},
                 {"1,505", "0.0#0", "1,505"},
                 {"5", "0##", "005"},
                 {"1E+15", "0", "1000000000000000"},
                 {"1,5E-05", "0.000000", "0,000015"},
                 {"123456789012345678,25", "0.0", "123456789012345678,3"}});
}

TEST(FormatText, GroupsPercentAndLiteralText) {
  ExpectFormats({{"1234567,891", "#,##0.00", "1.234.567,89"},
                 {"12", "#,##0.00", "12,00"},
                 {"1234", "0000,000", "0.001.234"},
                 {"0,256", "0%", "26%"},
                 {"0,5", "0.0%", "50,0%"},
                 {"1,2345", "0.00%", "123,45%"},
                 {"12345678", "00000-000", "12345-678"},
                 {"11144477735", "000\\.000\\.000-00", "111.444.777-35"},
                 {"5", "\"dias: \"0", "dias: 5"},
                 {"5", "0 \\d", "5 d"},
                 {"1234,5", "R$ #,##0.00", "R$ 1.234,50"},
                 {"5", "0 \"aberto", "5 aberto"},
                 {"5", "x\\", "x\\"}});
}

TEST(FormatText, SectionsAreChosenBySign) {
  ExpectFormats({{"-5", "0", "-5"},
                 {"-5", "0;(0)", "(5)"},
                 {"0", "0;(0);\"nada\"", "nada"},
                 {"3", "0;(0);\"nada\"", "3"},
                 {"-5", "0;;\"nada\"", "-5"},
                 {"-0,001", "0.00", "0,00"},
                 {"-1234,5", "R$ #,##0.00", "-R$ 1.234,50"}});
}

TEST(FormatText, DatesShowTheirParts) {
  ExpectFormats({{"05/03/2009", "dd/mm/yyyy", "05/03/2009"},
                 {"05/03/2009", "d/m/yy", "5/3/09"},
                 {"05/03/2009", "DDDD, d \\d\\e mmmm \\d\\e yyyy", "quinta-feira, 5 de março de 2009"},
                 {"05/03/2009", "ddd mmm", "qui mar"},
                 {"05/03/2009 14:07:09", "hh:mm:ss", "14:07:09"},
                 {"05/03/2009 14:07:09", "h:n:s", "14:7:9"},
                 {"05/03/2009 14:07:09", "hh:nn AM/PM", "02:07 PM"},
                 {"05/03/2009 00:07:00", "h:mm am/pm", "12:07 am"},
                 {"05/03/2009 00:07:00", "AM/PM", "AM"},
                 {"05/03/2009 14:07:09", "dd/mm hh:mm mm", "05/03 14:07 03"},
                 {"31/12/2024", "y", "366"},
                 {"39877", "dd/mm/yyyy", "05/03/2009"},
                 {"39877,5", "dd/mm/yyyy hh:nn", "05/03/2009 12:00"},
                 {"05/03/2009", "0", "39877"}});
}

TEST(FormatText, OtherTextsStayAsTheyAre) {
  ExpectFormats(
      {{"abc", "0.00", "abc"}, {"", "dd/mm/yyyy", ""}, {"12", "", "12"}, {"31/02/2009", "dd", "31/02/2009"}});
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
