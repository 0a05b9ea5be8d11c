// FAST: arithmetic with one call in it, in a text that never changes. The call is run as ever, its answer
// takes part as a number, and only where it can't the answer is written into the text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "values/arithmetic_form.h"
#include "values/call_form.h"
#include "values/calls.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

class CallInArithmetic {
 public:
  // `text` is trimmed, without marks, and outlives the form. Nothing for a text that is anything else, or
  // whose rest hangs on more than the answer. Of a function of the language that is not numeric, the target
  // is.
  static std::optional<CallInArithmetic> Of(Run& run, std::string_view text);

  bool isOwn() const { return call_->isOwn(); }
  bool isNumericFunction() const { return call_->isNumericFunction(); }

  // Runs the call. Then the result of the arithmetic; or nothing, and in `text` the text with the answer, in
  // which no call has been looked for yet.
  std::optional<double> Evaluate(Run& run, std::string& text) const;

 private:
  CallInArithmetic(std::string_view text, WholeCall whole, ArithmeticForm arithmetic)
      : text_(text),
        found_(whole.call),
        call_(std::make_unique<const CallForm>(std::move(whole))),
        arithmetic_(std::move(arithmetic)) {}

  std::string_view text_;
  Call found_;
  std::unique_ptr<const CallForm> call_;
  ArithmeticForm arithmetic_;
};

}  // namespace tessera
