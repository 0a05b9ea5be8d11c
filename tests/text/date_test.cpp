#include "text/date.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

std::string Read(std::string_view text) {
  const auto date = ReadDate(text);
  return date ? DateText(*date) : "nada";
}

TEST(ReadDate, TakesTheDayFirst) {
  struct {
    std::string_view text;
    std::string_view date;
  } constexpr kCases[] = {{"05/03/2009", "05/03/2009"},
                          {"5-3-09", "05/03/2009"},
                          {" 1/1/29 ", "01/01/2029"},
                          {"1/1/30", "01/01/1930"},
                          {"29/02/2024", "29/02/2024"},
                          {"1/1/100", "01/01/0100"},
                          {"05/03/2009 14:07", "05/03/2009 14:07:00"},
                          {"05/03/2009  1:02:03", "05/03/2009 01:02:03"},
                          {"05/03/2009 00:00:00", "05/03/2009"},
                          {"23:59:58", "23:59:58"},
                          {"30/12/1899", "30/12/1899"}};
  for (const auto& c : kCases) EXPECT_EQ(Read(c.text), c.date) << c.text;
}

TEST(ReadDate, RefusesWhatTheCalendarLacks) {
  for (const std::string_view text : {"",
                                      "abc",
                                      "5",
                                      "5/",
                                      "5/3",
                                      "5/3/",
                                      "31/02/2009",
                                      "29/02/2023",
                                      "0/1/2000",
                                      "1/13/2000",
                                      "1/1/99999",
                                      "1/1/0099",
                                      "5/3-2009",
                                      "5/3/2009x",
                                      "5/3/2009 25:00",
                                      "5/3/2009 10:60",
                                      "5/3/2009 10",
                                      "10:",
                                      "001/1/2000",
                                      "5/3/2009 1:2:3:4"}) {
    EXPECT_EQ(Read(text), "nada") << text;
  }
}

TEST(SerialDates, CountFromDayZero) {
  EXPECT_EQ(DateText(*DateOfSerial(39877)), "05/03/2009");
  EXPECT_EQ(DateText(*DateOfSerial(1)), "31/12/1899");
  EXPECT_EQ(DateText(*DateOfSerial(0.5)), "12:00:00");
  EXPECT_EQ(DateText(*DateOfSerial(-1.25)), "29/12/1899 06:00:00");
  EXPECT_EQ(SerialOfDate(*ReadDate("29/12/1899 06:00")), -1.25);
  EXPECT_FALSE(DateOfSerial(1e18).has_value());
  EXPECT_FALSE(DateOfSerial(-700000).has_value());
}

TEST(AddMonths, ClipsToTheMonthsEnd) {
  const auto added = [](std::string_view date, std::int64_t months) {
    const auto result = AddMonths(*ReadDate(date), months);
    return result ? DateText(*result) : "nada";
  };
  EXPECT_EQ(added("31/01/2025", 1), "28/02/2025");
  EXPECT_EQ(added("31/01/2024", 1), "29/02/2024");
  EXPECT_EQ(added("15/02/0100", -1), "15/01/0100");
  EXPECT_EQ(added("15/01/0100", -1), "nada");
  EXPECT_EQ(added("15/11/9999", 1), "15/12/9999");
  EXPECT_EQ(added("15/12/9999", 1), "nada");
  EXPECT_EQ(added("31/01/2025", -2), "30/11/2024");
  EXPECT_EQ(added("29/02/2024 10:00", 12), "28/02/2025 10:00:00");
  EXPECT_EQ(added("01/12/9999", 1), "nada");
  EXPECT_EQ(added("01/12/2000", 99999999999), "nada");
}

}  // namespace
}  // namespace tessera
