// Dates as the system reads and prints them: day first, two-digit years from 1930 to 2029, an optional time.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

using DateTime = std::chrono::local_seconds;

// Day 0 of a date written as a number; a time of day alone lies on it.
inline constexpr std::chrono::local_days kDayZero =
    std::chrono::local_days{std::chrono::year{1899} / std::chrono::December / 30};

// "d/m/a" with "/" or "-", a time "h:m" or "h:m:s" behind a blank, or a time alone. Nothing for every other
// text and for a day that the calendar lacks. Years run from 100 to 9999.
std::optional<DateTime> ReadDate(std::string_view text);

// "dd/mm/yyyy"; behind it, after a blank, "hh:mm:ss" unless that is midnight. On day 0 the time alone.
std::string DateText(DateTime date);

// "hh:mm:ss"
std::string TimeText(DateTime date);

// Days since day 0, the fraction being the time of day, also before day 0. Nothing outside the calendar.
std::optional<DateTime> DateOfSerial(double serial);
double SerialOfDate(DateTime date);

// The date that many months later, its day clipped to the month's end. Nothing outside the calendar.
std::optional<DateTime> AddMonths(DateTime date, std::int64_t months);
// The date that many seconds later. Nothing outside the calendar.
std::optional<DateTime> AddSeconds(DateTime date, std::int64_t seconds);

// The parts of a date.
std::chrono::year_month_day CalendarDay(DateTime date);
std::chrono::hh_mm_ss<std::chrono::seconds> TimeOfDay(DateTime date);

}  // namespace tessera
