// FAST: a text that is nothing but one call, and never changes: who is called, and with what. The call is run
// as ever; its answer, which the rules write into the text and read again, mostly needs no text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "values/argument_text.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

struct WholeCall;

class CallForm {
 public:
  explicit CallForm(WholeCall whole);

  bool isOwn() const { return isOwn_; }
  bool isNumericFunction() const { return isNumericFunction_; }

  // The handler's or the function's answer.
  Value Run(tessera::Run& run) const;

  // What the answer reads as when it stands where a number or a text may stand: a number, or a text without
  // its quotes. Nothing where only its text can tell. With `numericTarget` commas become points. `isList`
  // tells that the text will be cut at commas before it is read.
  std::optional<Value> Settle(tessera::Run& run, const Value& answer, bool numericTarget, bool isList) const;

  // The text that the answer makes of the call.
  std::string TextOf(const Value& answer, bool numericTarget) const;

 private:
  std::optional<Value> SettleNumber(tessera::Run& run, const Value& answer, bool numericTarget) const;

  std::string name_;
  std::string arguments_;  // with marks
  std::string resultType_;
  bool isOwn_;
  bool isNumericFunction_;
  std::unique_ptr<ArgumentForms> forms_;
};

}  // namespace tessera
