// Calls inside expressions: a call's text is found, run, and replaced by its result in the text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "values/run.h"

namespace tessera {

// A call found in a text: the name, and the text between its parentheses with parenthesis marks.
struct Call {
  std::string name;
  std::string arguments;
  std::string resultType;  // of a function of the program: the word behind its parameter list
};

// Ends the replacing of calls that would never end, as where a result stands in front of a rest that calls
// again.
class ReplacementLimit {
 public:
  explicit ReplacementLimit(const Run& run) : most_(run.mostReplacements) {}

  // One more call of `text` is about to be replaced. Failure 28 beyond the run's limit, or 16 MB of text.
  void Count(std::string_view text);

 private:
  int most_;
  int count_ = 0;
};

// The next call of a word of the language in the text. A name without its parentheses is failure 5.
std::optional<Call> FindFunction(const Run& run, std::string_view text);

// Runs the call and replaces it in `text`. `numericTarget` decides how commas and the rest of the text fare.
void ApplyFunction(Run& run, std::string& text, const Call& call, bool& numericTarget);

// The same for functions of the program.
std::optional<Call> FindUserFunction(const Run& run, std::string_view text);
void ApplyUserFunction(Run& run, std::string& text, const Call& call);

// Replaces all calls of the language's words; each of the eleven numeric functions sets `numericTarget`.
void ReplaceFunctions(Run& run, std::string& text, bool& numericTarget);

// Replaces all calls of the program's functions.
void ReplaceUserFunctions(Run& run, std::string& text);

}  // namespace tessera
