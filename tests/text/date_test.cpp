#include "text/date.h"

#include <gtest/gtest.h>

#include "support/table.h"

namespace tessera {
namespace {

std::string Read(std::string_view text) {
  const auto date = ReadDate(text);
  return date ? DateText(*date) : "nada";
}

TEST(ReadDate, ReadsWhatTheTableHas) {
  for (const test::Table& table : test::TablesOf("text/dates.txt")) {
    for (const auto& [given, result] : table.cases)
      EXPECT_EQ(Read(given.substr(1, given.size() - 2)) + "\n", result) << given;
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
