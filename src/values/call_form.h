// FAST: a text that is nothing but one call, and never changes: who is called, and with what. The call is run
// as ever; its answer, which the rules write into the text and read again, mostly needs no text.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "values/argument_text.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

struct WholeCall;

class CallForm {
 public:
  // The call stands in a text in which the store finds the numbers of running calls. Names of answers may
  // stand in its arguments.
  CallForm(const Run& run, WholeCall whole);
  CallForm(const CallForm&) = delete;
  CallForm& operator=(const CallForm&) = delete;

  bool isOwn() const { return isOwn_; }
  // As they were passed last, with marks.
  std::string_view arguments() const { return arguments_; }
  bool isNumericFunction() const { return isNumericFunction_; }

  const std::string& resultType() const { return resultType_; }

  // The handler's or the function's answer. `pieces` are what stands in its arguments for the names of
  // answers.
  Value Run(tessera::Run& run, std::span<const std::string> pieces = {}) const;

  // What the answer reads as when it stands where a number or a text may stand: a number, or a text without
  // its quotes. Nothing where only its text can tell; else the answer is used up. With `numericTarget` commas
  // become points. `isList` tells that the text will be cut at commas before it is read.
  std::optional<Value> Settle(tessera::Run& run, Value& answer, bool numericTarget, bool isList) const;

  // The same where it reads as a whole number; else false.
  bool SettleWhole(const Value& answer, std::int64_t& whole) const;

  // The same where it reads as a number; else false.
  bool SettleNumber(tessera::Run& run, const Value& answer, bool numericTarget, double& number) const;

  // The text that the answer makes of the call.
  std::string TextOf(const Value& answer, bool numericTarget) const;

 private:
  // A byte of `arguments_` at which the name of an answer begins, and which one.
  struct AnswerPlace {
    std::size_t at;
    std::size_t answer;
  };

  Value Dispatch(tessera::Run& run, const ArgumentText& arguments) const;
  std::string ArgumentsWith(std::span<const std::string> pieces) const;
  std::optional<Value> SettleText(Value& answer, bool numericTarget, bool isList) const;

  std::string name_;
  mutable std::string arguments_;  // with marks; of a body, with the number of its running call
  VariableStore::NumberPlaces numbers_;
  std::string resultType_;
  bool isText_;    // its result's type is that of texts
  bool isNumber_;  // its result's type is the word for any number
  bool isOwn_;
  bool isNumericFunction_;
  std::vector<AnswerPlace> answers_;
  std::unique_ptr<ArgumentForms> forms_;
};

}  // namespace tessera
