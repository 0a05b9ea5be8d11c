// An expression computed as people compute: brackets first, then "^", then "* / %", then "+ -". Variables and
// calls have made-up values, which the rehearsal gives the language as well.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checker/expression.h"

namespace tessera::check {

// A number, or a text that is none.
struct Reckoned {
  std::optional<double> number;
  std::string text;

  // As a call's made-up result depends on it: numbers in one form, however they were written.
  std::string Form() const;
};

Reckoned ReckonedNumber(double number);
Reckoned ReckonedText(std::string_view text);

// The made-up value of a variable: a small whole number that depends on its name alone.
int ValueOfVariable(std::string_view name);

// The made-up value of a call, of a name and the forms of its arguments.
Reckoned ValueOfCall(std::string_view name, const std::vector<std::string>& arguments, bool isText);

// True if a number that the call by that name gives may have a fraction.
bool GivesFraction(std::string_view name);

// True if the call by that name gives a text.
bool GivesText(const Names& names, std::string_view name);

// Nothing where the expression can't be computed, as with a division by zero.
std::optional<Reckoned> Reckon(const Context& context, Tokens tokens);

}  // namespace tessera::check
