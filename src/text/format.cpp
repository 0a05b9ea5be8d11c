#include "text/format.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <vector>

#include "text/date.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

struct Token {
  enum Kind { Literal, Zero, Digit, Point, Group, Percent, SectionEnd, DateRun, AmPm };
  Kind kind;
  std::string_view text;
};
using Tokens = std::span<const Token>;

bool IsDateLetter(char c) {
  constexpr std::string_view kDateLetters = "dmyhns";
  return Contains(kDateLetters, std::string_view(&c, 1));
}

Token::Kind KindOfSign(char c) {
  switch (c) {
    case '0':
      return Token::Zero;
    case '#':
      return Token::Digit;
    case '.':
      return Token::Point;
    case ',':
      return Token::Group;
    case '%':
      return Token::Percent;
    case ';':
      return Token::SectionEnd;
    default:
      return Token::Literal;
  }
}

// The token at the pattern's start, and how many characters it takes.
std::pair<Token, std::size_t> FirstToken(std::string_view pattern) {
  constexpr std::string_view kAmPm = "AM/PM";
  if (pattern.front() == '"') {
    const std::size_t close = std::min(pattern.find('"', 1), pattern.size());
    return {{Token::Literal, pattern.substr(1, close - 1)}, std::min(close + 1, pattern.size())};
  }
  if (pattern.front() == '\\' && pattern.size() > 1) return {{Token::Literal, pattern.substr(1, 1)}, 2};
  if (EqualsIgnoringCase(Left(pattern, kAmPm.size()), kAmPm)) {
    return {{Token::AmPm, Left(pattern, kAmPm.size())}, kAmPm.size()};
  }
  std::size_t length = 1;
  const char letter = Lower(pattern.front());
  if (!IsDateLetter(letter)) return {{KindOfSign(letter), Left(pattern, 1)}, 1};
  while (length < pattern.size() && Lower(pattern[length]) == letter) ++length;
  return {{Token::DateRun, Left(pattern, length)}, length};
}

std::vector<Token> TokensOf(std::string_view pattern) {
  std::vector<Token> tokens;
  while (!pattern.empty()) {
    const auto [token, length] = FirstToken(pattern);
    tokens.push_back(token);
    pattern.remove_prefix(length);
  }
  return tokens;
}

bool IsDigitPlace(const Token& token) {
  return token.kind == Token::Zero || token.kind == Token::Digit;
}

bool IsDateToken(const Token& token) {
  return token.kind == Token::DateRun || token.kind == Token::AmPm;
}

// ---- Numbers -----------------------------------------------------------------------------------------

// A number as its decimal digits; the integer part has no leading zero.
struct Decimal {
  bool negative = false;
  std::string integer;
  std::string fraction;

  bool IsZero() const { return integer.empty() && fraction.find_first_not_of('0') == std::string::npos; }
  void DropLeadingZeros() { integer.erase(0, std::min(integer.find_first_not_of('0'), integer.size())); }

  // Times a power of ten.
  void Shift(int places) {
    for (; places > 0; --places) {
      integer.push_back(fraction.empty() ? '0' : fraction.front());
      if (!fraction.empty()) fraction.erase(0, 1);
    }
    if (places < 0) {
      const auto moved = static_cast<std::size_t>(-places);
      if (integer.size() < moved) integer.insert(0, moved - integer.size(), '0');
      fraction.insert(0, integer.substr(integer.size() - moved));
      integer.resize(integer.size() - moved);
    }
    DropLeadingZeros();
  }

  // OPEN: a half goes away from zero, as people round on paper; the digits that count are those that the
  // number shows, so 0,125 is 0,13 in two places. `Arredonda` is there for ties to even.
  void RoundTo(std::size_t places) {
    if (fraction.size() <= places) return;
    const bool up = fraction[places] >= '5';
    fraction.resize(places);
    if (!up) return;
    std::string digits = "0" + integer + fraction;
    std::size_t last = digits.size() - 1;
    for (; digits[last] == '9'; --last) digits[last] = '0';
    ++digits[last];
    integer = digits.substr(0, digits.size() - places);
    fraction = digits.substr(digits.size() - places);
    DropLeadingZeros();
  }
};

// A text that reads as a number.
Decimal DecimalOf(std::string_view text) {
  Decimal number;
  text = Trim(text);
  number.negative = text.starts_with('-');
  const std::size_t exponentMark = std::min(text.find_first_of("Ee"), text.size());
  bool behindComma = false;
  for (const char c : text.substr(0, exponentMark)) {
    behindComma = behindComma || c == ',';
    if (c >= '0' && c <= '9') (behindComma ? number.fraction : number.integer).push_back(c);
  }
  number.DropLeadingZeros();
  // A number too small for a float is zero, however many places its digits have.
  if (WholeNumber(text) == 0.0) return {};
  if (exponentMark < text.size()) {
    number.Shift(std::atoi(std::string(text.substr(exponentMark + 1)).c_str()));
  }
  return number;
}

// The integer part, built from the right: surplus digits go to the leftmost place.
std::string IntegerPart(Tokens tokens, std::string_view digits) {
  const auto first = std::find_if(tokens.begin(), tokens.end(), IsDigitPlace);
  const auto firstZero =
      std::find_if(tokens.begin(), tokens.end(), [](const Token& t) { return t.kind == Token::Zero; });
  const bool grouped =
      std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.kind == Token::Group; });
  std::string reversed;
  std::size_t written = 0;
  const auto put = [&](char digit) {
    if (grouped && written != 0 && written % 3 == 0) reversed.push_back('.');
    reversed.push_back(digit);
    ++written;
  };
  const auto putAll = [&] {
    for (; !digits.empty(); digits.remove_suffix(1)) put(digits.back());
  };
  if (first == tokens.end()) putAll();
  for (auto token = tokens.end(); token != tokens.begin();) {
    --token;
    if (token->kind == Token::Group) continue;
    if (!IsDigitPlace(*token)) {
      reversed.append(token->text.rbegin(), token->text.rend());
      continue;
    }
    if (!digits.empty()) {
      put(digits.back());
      digits.remove_suffix(1);
    } else if (token >= firstZero) {
      put('0');
    }
    if (token == first) putAll();
  }
  return {reversed.rbegin(), reversed.rend()};
}

// What stands behind the decimal place; the digits fit the places.
std::string FractionPart(Tokens tokens, std::string_view digits) {
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  const auto zerosFrom = [&](Tokens::iterator token) {
    return std::any_of(token, tokens.end(), [](const Token& t) { return t.kind == Token::Zero; });
  };
  std::string out;
  for (auto token = tokens.begin(); token != tokens.end(); ++token) {
    if (token->kind == Token::Group || token->kind == Token::Point) continue;
    if (!IsDigitPlace(*token)) {
      out += token->text;
    } else if (!digits.empty()) {
      out.push_back(digits.front());
      digits.remove_prefix(1);
    } else if (zerosFrom(token)) {
      out.push_back('0');
    }
  }
  return out;
}

// One section; the sign of a negative number stands before everything else.
std::string FormatSection(Tokens section, Decimal number) {
  for (const Token& token : section) {
    if (token.kind == Token::Percent) number.Shift(2);
  }
  const auto point =
      std::find_if(section.begin(), section.end(), [](const Token& t) { return t.kind == Token::Point; });
  const Tokens before(section.begin(), point);
  const Tokens behind = point == section.end() ? Tokens() : Tokens(point + 1, section.end());
  number.RoundTo(static_cast<std::size_t>(std::count_if(behind.begin(), behind.end(), IsDigitPlace)));
  std::string out = number.negative && !number.IsZero() ? "-" : "";
  if (!std::any_of(section.begin(), section.end(), IsDigitPlace)) number.integer.clear();
  out += IntegerPart(before, number.integer);
  if (point != section.end()) out += "," + FractionPart(behind, number.fraction);
  return out;
}

std::string FormatNumber(Decimal number, Tokens tokens) {
  std::vector<Tokens> sections;
  for (auto begin = tokens.begin();;) {
    const auto end =
        std::find_if(begin, tokens.end(), [](const Token& t) { return t.kind == Token::SectionEnd; });
    sections.emplace_back(begin, end);
    if (end == tokens.end()) break;
    begin = end + 1;
  }
  // A section that is missing or empty is served by the first one.
  const std::size_t own = number.IsZero() ? 2 : number.negative ? 1 : 0;
  if (own == 0 || own >= sections.size() || sections[own].empty()) {
    return FormatSection(sections[0], std::move(number));
  }
  number.negative = false;
  return FormatSection(sections[own], std::move(number));
}

// ---- Dates -------------------------------------------------------------------------------------------

constexpr std::array kMonthNames = {"janeiro"_w,  "fevereiro"_w, "março"_w,    "abril"_w,
                                    "maio"_w,     "junho"_w,     "julho"_w,    "agosto"_w,
                                    "setembro"_w, "outubro"_w,   "novembro"_w, "dezembro"_w};
constexpr std::array kWeekdayNames = {"domingo"_w,      "segunda-feira"_w, "terça-feira"_w, "quarta-feira"_w,
                                      "quinta-feira"_w, "sexta-feira"_w,   "sábado"_w};
constexpr std::size_t kShortName = 3;

// A number in one or two digits, by the length of its run; longer runs of a number have two.
std::string NumberRun(long long number, std::size_t length) {
  return ZeroFilled(number, length == 1 ? 1 : 2);
}

std::string NameRun(long long number, std::size_t length, std::string_view name) {
  if (length <= 2) return NumberRun(number, length);
  return std::string(length == kShortName ? Left(name, kShortName) : name);
}

std::string YearRun(const std::chrono::year_month_day& calendar, std::size_t length) {
  const auto year = static_cast<int>(calendar.year());
  if (length > 2) return ZeroFilled(year, 4);
  if (length == 2) return ZeroFilled(year % 100, 2);
  const auto firstDay = std::chrono::local_days{calendar.year() / 1 / 1};
  return std::to_string((std::chrono::local_days{calendar} - firstDay).count() + 1);
}

std::string FormatDate(DateTime date, Tokens tokens) {
  const auto calendar = CalendarDay(date);
  const auto time = TimeOfDay(date);
  const std::chrono::weekday weekday{std::chrono::floor<std::chrono::days>(date)};
  const bool halfDays =
      std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.kind == Token::AmPm; });
  bool behindHour = false;  // the last run was an hour, so that an "m" is its minute
  const auto run = [&](std::string_view letters) -> std::string {
    char letter = Lower(letters.front());
    if (letter == 'm' && behindHour && letters.size() <= 2) letter = 'n';
    behindHour = letter == 'h';
    switch (letter) {
      case 'd':
        return NameRun(static_cast<unsigned>(calendar.day()), letters.size(),
                       kWeekdayNames[weekday.c_encoding()]);
      case 'm':
        return NameRun(static_cast<unsigned>(calendar.month()), letters.size(),
                       kMonthNames[static_cast<unsigned>(calendar.month()) - 1]);
      case 'y':
        return YearRun(calendar, letters.size());
      case 'h':
        return NumberRun(halfDays ? std::chrono::make12(time.hours()).count() : time.hours().count(),
                         letters.size());
      case 'n':
        return NumberRun(time.minutes().count(), letters.size());
      default:
        return NumberRun(time.seconds().count(), letters.size());
    }
  };
  std::string out;
  for (const Token& token : tokens) {
    if (token.kind == Token::DateRun) {
      out += run(token.text);
    } else if (token.kind == Token::AmPm) {
      out += std::chrono::is_am(time.hours()) ? Left(token.text, 2) : Right(token.text, 2);
    } else {
      out += token.text;
    }
  }
  return out;
}

}  // namespace

std::optional<std::string> FormatText(std::string_view value, std::string_view pattern) {
  if (pattern.empty()) return std::string(value);
  const std::vector<Token> tokens = TokensOf(pattern);
  const std::optional<double> number = WholeNumber(value);
  const std::optional<DateTime> date = number ? std::nullopt : ReadDate(value);
  if (!number && !date) return std::string(value);

  const bool forNumbers = std::any_of(tokens.begin(), tokens.end(), IsDigitPlace) ||
                          std::none_of(tokens.begin(), tokens.end(), IsDateToken);
  if (forNumbers) {
    return FormatNumber(DecimalOf(number ? value : NumberText(SerialOfDate(*date))), tokens);
  }
  const std::optional<DateTime> shown = number ? DateOfSerial(*number) : date;
  if (!shown) return std::nullopt;
  return FormatDate(*shown, tokens);
}

}  // namespace tessera
