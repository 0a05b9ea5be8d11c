#include "text/date.h"

#include <cmath>

#include "text/one_based.h"

namespace tessera {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::local_days;
using std::chrono::month;
using std::chrono::seconds;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr DateTime kFirstDate = local_days{year{kFirstYear} / 1 / 1};
constexpr DateTime kBehindLastDate = local_days{year{kLastYear + 1} / 1 / 1};
constexpr int kSecondsOfDay = 86400;

// Reads a text from the left, piece by piece.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  bool Take(char c) {
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  // The number of one to `maxDigits` digits, and how many there were.
  struct Number {
    int value;
    std::size_t digits;
  };
  std::optional<Number> TakeNumber(std::size_t maxDigits) {
    Number number{0, 0};
    while (number.digits < rest_.size() && rest_[number.digits] >= '0' && rest_[number.digits] <= '9') {
      if (number.digits == maxDigits) return std::nullopt;
      number.value = number.value * 10 + (rest_[number.digits++] - '0');
    }
    if (number.digits == 0) return std::nullopt;
    rest_.remove_prefix(number.digits);
    return number;
  }

 private:
  std::string_view rest_;
};

int FullYear(int value, std::size_t digits) {
  constexpr int kLastOfThisCentury = 29;
  if (digits > 2) return value;
  return value + (value <= kLastOfThisCentury ? 2000 : 1900);
}

std::optional<local_days> ReadDay(std::string_view text) {
  Reader reader(text);
  const auto dayNumber = reader.TakeNumber(2);
  if (!dayNumber) return std::nullopt;
  const char separator = CharAt(text, dayNumber->digits + 1);
  if ((separator != '/' && separator != '-') || !reader.Take(separator)) return std::nullopt;
  const auto monthNumber = reader.TakeNumber(2);
  if (!monthNumber || !reader.Take(separator)) return std::nullopt;
  const auto yearNumber = reader.TakeNumber(4);
  if (!yearNumber || !reader.AtEnd()) return std::nullopt;
  const year_month_day date = year{FullYear(yearNumber->value, yearNumber->digits)} /
                              month{static_cast<unsigned>(monthNumber->value)} /
                              day{static_cast<unsigned>(dayNumber->value)};
  if (!date.ok() || static_cast<int>(date.year()) < kFirstYear) return std::nullopt;
  return local_days{date};
}

std::optional<seconds> ReadTime(std::string_view text) {
  Reader reader(text);
  const auto hour = reader.TakeNumber(2);
  if (!hour || !reader.Take(':')) return std::nullopt;
  const auto minute = reader.TakeNumber(2);
  if (!minute) return std::nullopt;
  auto second = std::optional(Reader::Number{0, 0});
  if (reader.Take(':')) second = reader.TakeNumber(2);
  if (!second || !reader.AtEnd()) return std::nullopt;
  if (hour->value > 23 || minute->value > 59 || second->value > 59) return std::nullopt;
  return std::chrono::hours{hour->value} + std::chrono::minutes{minute->value} + seconds{second->value};
}

bool IsInCalendar(DateTime date) {
  return date >= kFirstDate && date < kBehindLastDate;
}

}  // namespace

year_month_day CalendarDay(DateTime date) {
  return year_month_day{std::chrono::floor<days>(date)};
}

std::chrono::hh_mm_ss<seconds> TimeOfDay(DateTime date) {
  return std::chrono::hh_mm_ss(date - std::chrono::floor<days>(date));
}

std::optional<DateTime> ReadDate(std::string_view text) {
  text = Trim(text);
  const Position blank = Find(text, " ");
  const auto dayPart = ReadDay(blank == 0 ? text : Left(text, blank - 1));
  if (!dayPart) {
    const auto time = ReadTime(text);
    return time ? std::optional(kDayZero + *time) : std::nullopt;
  }
  if (blank == 0) return *dayPart;
  const auto time = ReadTime(TrimLeft(Mid(text, blank)));
  return time ? std::optional(*dayPart + *time) : std::nullopt;
}

std::string TimeText(DateTime date) {
  const auto time = TimeOfDay(date);
  return ZeroFilled(time.hours().count(), 2) + ":" + ZeroFilled(time.minutes().count(), 2) + ":" +
         ZeroFilled(time.seconds().count(), 2);
}

std::string DateText(DateTime date) {
  const auto dayPart = std::chrono::floor<days>(date);
  if (dayPart == kDayZero && date != dayPart) return TimeText(date);
  const year_month_day calendar{dayPart};
  std::string text = ZeroFilled(static_cast<unsigned>(calendar.day()), 2) + "/" +
                     ZeroFilled(static_cast<unsigned>(calendar.month()), 2) + "/" +
                     ZeroFilled(static_cast<int>(calendar.year()), 4);
  if (date != dayPart) text += " " + TimeText(date);
  return text;
}

std::optional<DateTime> DateOfSerial(double serial) {
  constexpr double kFarthest = 4e6;  // days; beyond every year of the calendar
  if (!(std::fabs(serial) < kFarthest)) return std::nullopt;
  // The fraction counts forward from midnight even where the days count backward.
  const double wholeDays = std::trunc(serial);
  const auto time = static_cast<std::int64_t>(std::llround(std::fabs(serial - wholeDays) * kSecondsOfDay));
  const DateTime date = kDayZero + days{static_cast<int>(wholeDays)} + seconds{time};
  return IsInCalendar(date) ? std::optional(date) : std::nullopt;
}

double SerialOfDate(DateTime date) {
  const auto dayPart = std::chrono::floor<days>(date);
  const auto wholeDays = static_cast<double>((dayPart - kDayZero).count());
  const double time = static_cast<double>((date - dayPart).count()) / kSecondsOfDay;
  return wholeDays < 0 ? wholeDays - time : wholeDays + time;
}

std::optional<DateTime> AddMonths(DateTime date, std::int64_t months) {
  constexpr std::int64_t kFarthest = std::int64_t{12} * kLastYear;
  if (months > kFarthest || months < -kFarthest) return std::nullopt;
  const auto dayPart = std::chrono::floor<days>(date);
  const year_month_day calendar{dayPart};
  const auto target = calendar.year() / calendar.month() + std::chrono::months{static_cast<int>(months)};
  const auto year = static_cast<int>(target.year());
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  const auto monthEnd = year_month_day{target / std::chrono::last}.day();
  const year_month_day clipped = target / std::min(calendar.day(), monthEnd);
  return local_days{clipped} + (date - dayPart);
}

std::optional<DateTime> AddSeconds(DateTime date, std::int64_t count) {
  constexpr std::int64_t kFarthest = std::int64_t{kSecondsOfDay} * 366 * kLastYear;
  if (count > kFarthest || count < -kFarthest) return std::nullopt;
  const DateTime moved = date + seconds{count};
  return IsInCalendar(moved) ? std::optional(moved) : std::nullopt;
}

}  // namespace tessera
