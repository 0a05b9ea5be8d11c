#include "sql/sql_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "sql/sql_error.h"
#include "text/code_page.h"
#include "text/date.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::sql {

namespace {

// The first integer whose neighbours the language's 15 digits can't tell apart.
constexpr std::int64_t kBeyondDigits = 1'000'000'000'000'000;
constexpr std::size_t kDigits = 15;
constexpr std::size_t kIsoDate = 10;  // characters of yyyy-mm-dd
constexpr std::size_t kIsoTime = 8;   // of hh:mm:ss

// OPEN: beyond that an integer is a text, and no digit is lost.
Value IntegerValue(std::int64_t number) {
  if (number >= std::numeric_limits<std::int32_t>::min() &&
      number <= std::numeric_limits<std::int32_t>::max())
    return static_cast<std::int32_t>(number);
  if (number > -kBeyondDigits && number < kBeyondDigits) return static_cast<double>(number);
  return std::to_string(number);
}

Value DecimalValue(const std::string& text) {
  const std::string digits = [&] {
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char c) { return c >= '0' && c <= '9'; });
    return kept.substr(std::min(kept.find_first_not_of('0'), kept.size()));
  }();
  if (digits.size() <= kDigits && text.find_first_of("eE") == std::string::npos) {
    double number = 0;
    const char* begin = text.data();
    const char* end = begin + text.size();
    if (std::from_chars(begin, end, number).ptr == end) return number;
  }
  return Replace(text, '.', ',');
}

// "2024-02-01" as "01/02/2024"; any other text stays.
std::string DayFirst(std::string_view iso) {
  if (iso.size() != kIsoDate || iso[4] != '-' || iso[7] != '-') return std::string(iso);
  return std::string(iso.substr(8, 2))
      .append("/")
      .append(iso.substr(5, 2))
      .append("/")
      .append(iso.substr(0, 4));
}

std::string StampText(const std::string& iso) {
  std::string day = DayFirst(std::string_view(iso).substr(0, kIsoDate));
  if (iso.size() <= kIsoDate) return day;
  const std::string time = iso.substr(kIsoDate + 1, kIsoTime);
  return time == "00:00:00" ? day : day + " " + time;
}

[[noreturn]] void Refuse(std::string_view column, std::string_view text) {
  throw SqlError(
      std::string("O valor '"_w).append(text).append("' não serve ao campo "_w).append(column).append("."));
}

std::optional<std::int64_t> WholeInteger(std::string_view text) {
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

// A number by the rule for whole texts: exact where it has no fraction.
std::optional<SqlValue> NumberOf(std::string_view text) {
  if (const auto integer = WholeInteger(Trim(text))) return SqlValue::Of(Kind::Integer, *integer);
  const auto number = WholeNumber(text);
  if (!number) return std::nullopt;
  if (*number == std::trunc(*number) && std::abs(*number) < static_cast<double>(kBeyondDigits))
    return SqlValue::Of(Kind::Integer, static_cast<std::int64_t>(*number));
  return SqlValue::Of(*number);
}

// The digits of a whole text, its group marks gone and "." as mark, so that no digit is lost on the way.
std::optional<SqlValue> DecimalOf(std::string_view text) {
  if (!IsNumeric(text)) return std::nullopt;
  std::string digits(Trim(text));
  std::erase(digits, '.');
  return SqlValue::Of(Kind::Decimal, Replace(digits, ',', '.'));
}

std::optional<SqlValue> TruthOf(std::string_view text) {
  const std::string word = Upper(Trim(text));
  if (word == "VERDADEIRO" || word == "SIM" || word == "1" || word == "-1")
    return SqlValue::Of(Kind::Truth, 1);
  if (word == "FALSO" || word == "NAO" || word == "0") return SqlValue::Of(Kind::Truth, 0);
  return std::nullopt;
}

std::optional<SqlValue> MomentOf(std::string_view text, Kind kind) {
  const auto date = ReadDate(text);
  if (!date) return std::nullopt;
  const std::string time = TimeText(*date);
  if (kind == Kind::Time) return SqlValue::Of(kind, time);
  const auto day = CalendarDay(*date);
  std::string iso = ZeroFilled(static_cast<int>(day.year()), 4) + "-" +
                    ZeroFilled(static_cast<unsigned>(day.month()), 2) + "-" +
                    ZeroFilled(static_cast<unsigned>(day.day()), 2);
  if (kind == Kind::Stamp) iso += "T" + time;
  return SqlValue::Of(kind, std::move(iso));
}

std::optional<SqlValue> Converted(const std::string& text, ColumnKind kind) {
  switch (kind) {
    case ColumnKind::Text:
    case ColumnKind::Any:
      return SqlValue::Of(Kind::Text, ToUtf8(text));
    case ColumnKind::Integer:
    case ColumnKind::Real:
      return NumberOf(text);
    case ColumnKind::Decimal:
      return DecimalOf(text);
    case ColumnKind::Numeric:
      if (auto number = NumberOf(text)) return number;
      return SqlValue::Of(Kind::Text, ToUtf8(text));
    case ColumnKind::Truth:
      if (auto truth = TruthOf(text)) return truth;
      return NumberOf(text);
    case ColumnKind::Date:
      return MomentOf(text, Kind::Date);
    case ColumnKind::Time:
      return MomentOf(text, Kind::Time);
    case ColumnKind::Stamp:
      return MomentOf(text, Kind::Stamp);
    case ColumnKind::Bytes:
      return SqlValue::Of(Kind::Bytes, text);
  }
  return std::nullopt;
}

}  // namespace

Value FieldValue(const SqlValue& value) {
  switch (value.kind) {
    case Kind::Null:
      return {};
    case Kind::Integer:
      return IntegerValue(value.integer);
    case Kind::Real:
      return value.real;
    case Kind::Decimal:
      return DecimalValue(value.text);
    case Kind::Truth:
      return value.integer != 0 ? "VERDADEIRO"_w : "FALSO"_w;
    case Kind::Date:
      return DayFirst(value.text);
    case Kind::Time:
      return value.text.substr(0, kIsoTime);
    case Kind::Stamp:
      return StampText(value.text);
    case Kind::Bytes:
      return value.text;
    case Kind::Text:
      return FromUtf8Lossy(value.text);
  }
  return {};
}

SqlValue ColumnValue(const Value& value, ColumnKind kind, std::string_view column) {
  const std::string text = value.ToText();
  if (text.empty() && kind != ColumnKind::Text && kind != ColumnKind::Any) return {};
  // A float keeps more digits than its text shows.
  if (const double* number = value.AsDouble(); number != nullptr && kind == ColumnKind::Real)
    return SqlValue::Of(*number);
  auto converted = Converted(text, kind);
  if (!converted) Refuse(column, text);
  return *std::move(converted);
}

}  // namespace tessera::sql
