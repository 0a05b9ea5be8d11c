// Evaluation of expression text: numbers, texts, and the cutting of argument lists.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "values/run.h"
#include "values/value.h"

namespace tessera {

// The general evaluator. `numericTarget` tells that a number is wanted, and is set when a numeric function
// was met. A term that is no number, no arithmetic and no variable comes back as its own unquoted text.
Value EvalNumber(Run& run, std::string_view text, bool& numericTarget);
Value EvalNumber(Run& run, std::string_view text);

// The general evaluator of a text in which no call is left to replace.
Value EvalReplaced(Run& run, std::string_view text);

// True for a text that is computed, if it is no number: one with an operator, and no literal.
bool IsArithmeticText(std::string_view text);

// Where the name ends that begins at `begin` (from 0), its index included; `begin` if no name does.
std::size_t EndOfName(std::string_view text, std::size_t begin);

// The evaluator of arguments that must stay text: calls and variables, no arithmetic.
Value EvalText(Run& run, std::string_view text, bool& numericTarget);
Value EvalText(Run& run, std::string_view text);

// The text without its outermost double quotes; the form "(abc)" in quotes loses its parentheses as well.
std::string_view Unquote(std::string_view text);

// The text in double quotes, as commands give texts back to expressions.
std::string Quote(std::string_view text);

// A list of at most `places` arguments, cut at commas; with `splitAtEqual` at "=" too, which then is an
// argument of its own. More pieces than places is failure 9. The result always has `places` entries; the
// list ends at its first empty one.
std::vector<std::string> SplitArguments(Run& run, std::string_view text, std::size_t places,
                                        bool splitAtEqual, bool numericTarget);
std::vector<std::string> SplitArguments(Run& run, std::string_view text, std::size_t places);
// The same for a list, trimmed, in which no call is to be replaced before.
std::vector<std::string> CutList(std::string_view text, std::size_t places, bool splitAtEqual);

// Declares every variable of a prepared line that opens with `keyword` ("Var" or "Variavel").
void VarDeclare(Run& run, std::string_view line, std::string_view keyword);

}  // namespace tessera
