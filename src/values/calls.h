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
  explicit ReplacementLimit(const Run& run, int replacedBefore = 0)
      : most_(run.mostReplacements), count_(replacedBefore) {}

  // One more call of `text` is about to be replaced. Failure 28 beyond the run's limit, or 16 MB of text.
  void Count(std::string_view text);

 private:
  int most_;
  int count_;
};

// The next call of a word of the language in the text. A name without its parentheses is failure 5.
std::optional<Call> FindFunction(const Run& run, std::string_view text);

// The text with the answer in the call's place. `restIsLost` tells that nothing behind the call remains.
std::string WithAnswer(std::string_view text, const Call& call, std::string_view answer, bool numericTarget,
                       bool restIsLost);
std::string WithUserAnswer(std::string_view text, const Call& call, std::string_view answer);

// Runs the call and replaces it in `text`. `numericTarget` decides how commas and the rest of the text fare.
void ApplyFunction(Run& run, std::string& text, const Call& call, bool numericTarget);

// The same for functions of the program.
std::optional<Call> FindUserFunction(const Run& run, std::string_view text);
void ApplyUserFunction(Run& run, std::string& text, const Call& call);

// A text into which the answers of calls were written, and in which no other has been looked for yet.
struct ReplacedCalls {
  std::string text;
  int replaced = 0;    // of the kind that was replaced last
  bool isOwn = false;  // these are functions of the program, so that none of the language is looked for
  bool numericTarget = false;  // commas become points from now on
};

// True if evaluating a text, trimmed, may run a command or a function of the program.
bool MayCall(const Run& run, std::string_view text);

// The same for a function of the program alone.
bool MayCallFunction(const Run& run, std::string_view text);

// A text that is nothing but one call.
struct WholeCall {
  Call call;
  bool isOwn = false;  // of a function of the program
};

// The call that a text, trimmed and without marks, consists of. A function of the program counts only with
// arguments, and where no word of the language is called in them, which would be replaced before.
std::optional<WholeCall> FindWholeCall(const Run& run, std::string_view text);

// The same where functions of the program are replaced first.
std::optional<WholeCall> FindWholeFunction(const Run& run, std::string_view text);

// What the result of a function of the program becomes in the text that it was called in, by its type.
void FinishUserResult(std::string& built, std::string_view resultType);

// Replaces all calls of the language's words; each of the eleven numeric functions sets `numericTarget`.
// Calls that were replaced before count against the limit.
void ReplaceFunctions(Run& run, std::string& text, bool& numericTarget, int replacedBefore = 0);

// The same in a list, whose commas part its places: a numeric function leaves the target as it is.
void ReplaceListFunctions(Run& run, std::string& text, bool numericTarget, int replacedBefore = 0);

// Replaces all calls of the program's functions.
void ReplaceUserFunctions(Run& run, std::string& text, int replacedBefore = 0);

}  // namespace tessera
