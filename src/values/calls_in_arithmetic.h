// FAST: arithmetic with calls in it, in a text that never changes. The calls are run as ever, their answers
// take part as numbers, and only where one can't they are written into the text.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "values/arithmetic_form.h"
#include "values/call_form.h"
#include "values/calls.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

class CallsInArithmetic {
 public:
  // `text` is trimmed, without marks, and outlives the form. Nothing for a text that is anything else, or
  // whose rest hangs on more than the answers; for one with too many calls, or with calls of the language and
  // of the program. Of functions of the language that are not numeric, the target is.
  static std::optional<CallsInArithmetic> Of(Run& run, std::string_view text);

  // All of them are functions of the program, or none.
  bool areOwn() const { return calls_.front()->isOwn(); }
  bool areNumericFunctions() const {
    return std::ranges::all_of(calls_, [](const auto& call) { return call->isNumericFunction(); });
  }

  // The text with the answers of those calls that were run, in which no other has been looked for yet.
  struct Rest {
    std::string text;
    int replaced = 0;
  };

  // Runs the calls. Then the result of the arithmetic; or nothing, and in `rest` what is left to the text.
  std::optional<double> Evaluate(Run& run, Rest& rest) const;

 private:
  CallsInArithmetic(const Run& run, std::string_view text, std::vector<WholeCall> found,
                    ArithmeticForm arithmetic);
  bool SettleNumber(Run& run, const CallForm& call, const Value& answer, double& number) const;
  Rest Written(const Run& run, std::span<const Value> answers) const;

  std::string_view text_;
  std::vector<std::unique_ptr<const CallForm>> calls_;
  ArithmeticForm arithmetic_;
};

}  // namespace tessera
