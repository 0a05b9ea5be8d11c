// FAST: arithmetic with calls in it, in a text that never changes. The calls are run as ever, their answers
// take part as numbers, and only where one can't they are written into the text.
#pragma once

#include <optional>
#include <string_view>

#include "values/arithmetic_form.h"
#include "values/call_chain.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

class CallsInArithmetic {
 public:
  // `text` is trimmed, without marks, and outlives the form. Nothing for a text that is anything else, or
  // whose rest hangs on more than the answers.
  static std::optional<CallsInArithmetic> Of(Run& run, std::string_view text);

  // All of them are functions of the program, or none.
  bool areOwn() const { return chain_.areOwn(); }

  // Whether the form may be evaluated for this target. Of functions of the language that are not numeric, it
  // has to be.
  bool Serves(bool numericTarget) const;

  // Runs the calls. Then the result of the arithmetic; or nothing, and in `rest` what is left to the text:
  // all of it where the calls leave `isText` set.
  std::optional<double> Evaluate(Run& run, bool numericTarget, const bool& isText, ReplacedCalls& rest) const;

 private:
  CallsInArithmetic(CallChain chain, ArithmeticForm arithmetic)
      : chain_(std::move(chain)), arithmetic_(std::move(arithmetic)) {}
  bool SettleNumber(Run& run, const CallForm& call, const Value& answer, double& number) const;

  CallChain chain_;
  ArithmeticForm arithmetic_;
};

}  // namespace tessera
