// Reading a name in an expression: is it declared, does the language find it there, and is its index one that
// the language can take?
#pragma once

#include "checker/expression.h"

namespace tessera::check {

// `name` at `at` of `tokens`, behind which no "(" stands. `behind` tells whether something stands behind it
// in the same expression.
Type ReadName(Context& context, const Token& name, const Sought& sought, bool isAlone, bool inSum);

// Whether a variable with a blank or a parenthesis behind it is taken for a function, which is told. Joined
// terms are variables first.
bool TellEnding(Context& context, const Token& name, const Sought& sought);

// The index of an array's element, between its parentheses.
Type ReadElement(Context& context, const Token& name, Tokens index);

// True if the language knows the word in that argument, though nobody declared it.
bool IsSpokenWord(const Sought& sought, std::string_view upper);

// Tells a parameter or local that the language doesn't recognise as it is written here.
void CheckLocalName(Context& context, const Token& name);

// What does the same as "k++" or "k--", which the language doesn't know for a function's own variable.
std::string StepAdvice(const Token& name, char sign);

// "; você quis dizer ...?" with the nearest name that can be read, or nothing.
std::string NearVariable(const Context& context, std::string_view written);

}  // namespace tessera::check
