#include "commands/date_commands.h"

#include <array>
#include <limits>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "text/date.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

using std::chrono::days;
using std::chrono::floor;

constexpr std::array kWeekdayNames = {"Domingo"_w,      "Segunda-Feira"_w, "Terça-Feira"_w, "Quarta-Feira"_w,
                                      "Quinta-Feira"_w, "Sexta-Feira"_w,   "Sábado"_w};

DateTime Now(Run& run) {
  return floor<std::chrono::seconds>(run.host.clock.Now());
}

// A date's text, or a number of days. Failure 13 for any other text, 6 for a number outside the calendar.
DateTime DateOf(const Value& value) {
  if (const std::string* text = value.AsText()) {
    if (const auto date = ReadDate(*text)) return *date;
  }
  const auto date = DateOfSerial(value.ToDouble());
  if (!date) FailOverflow();
  return *date;
}

Value Data(const WordCall& call) {
  return Quote(DateText(floor<days>(Now(call.run))));
}

Value Hora(const WordCall& call) {
  return Quote(TimeText(Now(call.run)));
}

// Part of a date, or of today's. A text that is no date answers with the failure's description.
template <typename PartOf>
Value PartOfDate(const WordCall& call, PartOf partOf) {
  std::string part;
  const auto failure = Guard([&] {
    const std::string date = Arguments(call).Text("data");
    part = std::to_string(partOf(CalendarDay(date.empty() ? Now(call.run) : DateOf(date))));
  });
  return failure ? Quote(failure->description()) : part;
}

Value Dia(const WordCall& call) {
  return PartOfDate(call, [](const auto& date) { return static_cast<unsigned>(date.day()); });
}

Value Mes(const WordCall& call) {
  return PartOfDate(call, [](const auto& date) { return static_cast<unsigned>(date.month()); });
}

Value Ano(const WordCall& call) {
  return PartOfDate(call, [](const auto& date) { return static_cast<int>(date.year()); });
}

Value DiaSemana(const WordCall& call) {
  const DateTime date = DateOf(Arguments(call).Number("data"));
  return Quote(kWeekdayNames[std::chrono::weekday{floor<days>(date)}.c_encoding()]);
}

// ---- Date arithmetic -----------------------------------------------------------------------------------

enum class Unit { Second, Minute, Hour, CalendarWeek, Weekday, Day, DayOfYear, Month, Year };

struct UnitWord {
  std::string_view word;
  Unit unit;
};

constexpr UnitWord kUnitWords[] = {
    {"SEGUNDO", Unit::Second},      {"MINUTO", Unit::Minute},     {"HORA", Unit::Hour},
    {"SEMANA", Unit::CalendarWeek}, {"DIASEMANA", Unit::Weekday}, {"DIA", Unit::Day},
    {"DIAANO", Unit::DayOfYear},    {"MES", Unit::Month},         {"ANO", Unit::Year},
};

// Failure 5 for an unknown word.
Unit UnitOf(const Value& value) {
  const std::string word = Upper(value.ToText());
  for (const UnitWord& row : kUnitWords) {
    if (row.word == word) return row.unit;
  }
  FailArgument();
}

constexpr std::int64_t kMinute = 60;  // in seconds
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::int64_t kWeek = 7 * kDay;
constexpr std::int64_t kMonthsOfYear = 12;

// OPEN: a weekday is added as a day: the amount counts days of the week, not working days.
std::optional<DateTime> AddUnits(DateTime date, Unit unit, std::int64_t amount) {
  switch (unit) {
    case Unit::Second:
      return AddSeconds(date, amount);
    case Unit::Minute:
      return AddSeconds(date, amount * kMinute);
    case Unit::Hour:
      return AddSeconds(date, amount * kHour);
    case Unit::CalendarWeek:
      return AddSeconds(date, amount * kWeek);
    case Unit::Month:
      return AddMonths(date, amount);
    case Unit::Year:
      return AddMonths(date, amount * kMonthsOfYear);
    default:
      return AddSeconds(date, amount * kDay);
  }
}

std::int64_t MonthNumber(DateTime date) {
  const auto calendar = CalendarDay(date);
  return static_cast<int>(calendar.year()) * kMonthsOfYear + static_cast<unsigned>(calendar.month());
}

// The number of a week that begins on Sunday, counted from some week of the past.
std::int64_t WeekNumber(DateTime date) {
  const auto day = floor<days>(date);
  const auto sunday = day - (std::chrono::weekday{day} - std::chrono::Sunday);
  return floor<std::chrono::weeks>(sunday - std::chrono::local_days{}).count();
}

// How many borders of the unit lie between the dates. OPEN: "SEMANA" counts the Sundays that are passed, as
// calendar weeks do, and "DIASEMANA" counts how often the first date's weekday comes again, which is whole
// weeks; the amount of both is negative where the second date is the earlier one.
std::int64_t UnitsBetween(DateTime from, DateTime to, Unit unit) {
  switch (unit) {
    case Unit::Second:
      return (to - from).count();
    case Unit::Minute:
      return (floor<std::chrono::minutes>(to) - floor<std::chrono::minutes>(from)).count();
    case Unit::Hour:
      return (floor<std::chrono::hours>(to) - floor<std::chrono::hours>(from)).count();
    case Unit::CalendarWeek:
      return WeekNumber(to) - WeekNumber(from);
    case Unit::Weekday:
      return (floor<days>(to) - floor<days>(from)).count() / 7;
    case Unit::Month:
      return MonthNumber(to) - MonthNumber(from);
    case Unit::Year:
      return static_cast<int>(CalendarDay(to).year()) - static_cast<int>(CalendarDay(from).year());
    default:
      return (floor<days>(to) - floor<days>(from)).count();
  }
}

Value DataAdiciona(const WordCall& call) {
  const Arguments arguments(call);
  const Value unit = arguments.Number("unidade");
  const std::int32_t amount = arguments.Number("quantidade").ToInteger();
  const DateTime from = DateOf(arguments.Number("data"));
  const auto date = AddUnits(from, UnitOf(unit), amount);
  if (!date) FailArgument();
  return Quote(DateText(*date));
}

Value DataDif(const WordCall& call) {
  const Arguments arguments(call);
  const Value unit = arguments.Number("unidade");
  const DateTime first = DateOf(arguments.Number("primeira"));
  const DateTime second = DateOf(arguments.Number("segunda"));
  const std::int64_t difference = UnitsBetween(first, second, UnitOf(unit));
  return Quote(NumberText(RoundToInteger(static_cast<double>(difference))));
}

// ---- Date texts ----------------------------------------------------------------------------------------

std::string Inverted(std::string_view date) {
  if (date.empty()) return {};
  std::string out;
  if (CharAt(date, 3) == '/') {
    return out.append(Mid(date, 7, 4)).append(Mid(date, 4, 2)).append(Mid(date, 1, 2));
  }
  return out.append(Mid(date, 7, 2)).append("/").append(Mid(date, 5, 2)).append("/").append(Mid(date, 1, 4));
}

Value InverteData(const WordCall& call) {
  return Quote(Inverted(Arguments(call).Text("data")));
}

// Day and month: "D/" takes as many digits as the number has, "DD" two.
// KEPT: one letter counts in front of "/" alone, and stays as it is before any other separator
// (Answers.ConverteDataKnowsASingleLetterInFrontOfASlashAlone).
void PutDayOrMonth(std::string& format, char letter, std::int32_t number) {
  const std::size_t at = format.find(letter);
  if (at == std::string::npos) return;
  const char next = format[at + 1];  // the final "/" stands behind every letter
  if (next == '/') {
    format.replace(at, 1, ZeroFilled(number, 1));
  } else if (next == letter) {
    format.replace(at, 2, ZeroFilled(number, 2));
  }
}

// KEPT: a year below 1000 gets a "2" and three digits
// (Answers.ConverteDataWritesShortYearsAsTwoThousand).
void PutYear(std::string& format, std::int32_t year) {
  const std::size_t at = format.find('A');
  if (at == std::string::npos) return;
  const std::string_view mask = std::string_view(format).substr(at);
  if (mask.starts_with("AA/")) {
    format.replace(at, 2, Right(ZeroFilled(year, 2), 2));
  } else if (mask.starts_with("AAAA")) {
    format.replace(at, 4, year >= 1000 ? ZeroFilled(year, 4) : "2" + ZeroFilled(year, 3));
  }
}

// A number of a date's text; failure 13 for anything but a number of 0 or more.
std::int32_t DatePart(std::string_view text) {
  const std::int32_t number = Value(text).ToInteger();
  if (number < 0) FailType();
  return number;
}

Value ConverteData(const WordCall& call) {
  const Arguments arguments(call);
  const std::string date = arguments.Text("data");
  std::string format = Upper(arguments.Text("formato")) + "/";
  const Position first = Find(date, "/");
  const Position second = Find(date, "/", first + 1);
  if (first == 0 || second == 0) FailType();
  PutDayOrMonth(format, 'D', DatePart(Left(date, first - 1)));
  PutDayOrMonth(format, 'M', DatePart(Mid(date, first + 1, second - first - 1)));
  PutYear(format, DatePart(Mid(date, second + 1)));
  format.pop_back();
  return Quote(format);
}

constexpr PlainRow kRows[] = {
    {"Data", Data},
    {"Hora", Hora},
    {"Dia", Dia},
    {"Mes", Mes},
    {"Ano", Ano},
    {"DiaSemana", DiaSemana},
    {"DataAdiciona", DataAdiciona},
    {"DataDif", DataDif},
    {"ConverteData", ConverteData},
    {"InverteData", InverteData},
};

}  // namespace

void BindDateCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
