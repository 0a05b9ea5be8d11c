// The pattern language of `Formata`. A pattern with a digit place formats numbers, else one with a date
// letter formats dates. What it knows:
//   0 #      a digit place; "0" shows a zero where the number has no digit
//   .        the decimal place, printed as ","
//   ,        in the integer part: groups of three, printed with "."
//   %        the number times 100, and the sign
//   ;        ends a section: numbers above zero (and all that have no section of their own); below; zero
//   "..." \  text as it stands
//   d dd ddd dddd m mm mmm mmmm yy yyyy h hh n nn s ss AM/PM   in any case; "m" behind an hour is the minute
// Everything else is printed as it stands.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessera {

// A value's text (a number, a date or anything else) in a pattern. A number meets a date pattern as a serial
// date and the other way round; any other text stays as it is. Nothing for a number outside the calendar.
std::optional<std::string> FormatText(std::string_view value, std::string_view pattern);

}  // namespace tessera
