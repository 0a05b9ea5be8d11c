// FAST: an expression text that never changes, with what the general evaluator finds out about it each time
// found out once: that it holds no call, that it is a number, a name, arithmetic or a mere text. Evaluating
// the form gives what evaluating the text gives. What a form can't settle is left to the text: nothing has
// happened until then, so that the text's own way begins at its beginning.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "values/arithmetic_form.h"
#include "values/name_form.h"
#include "values/value.h"

namespace tessera {

struct Run;

// A number or a text that a form reads without any effect.
struct Reading {
  enum class Kind : std::uint8_t { Nothing, Whole, Float, Text };

  Kind kind = Kind::Nothing;  // nothing: the text has to tell
  std::int64_t whole = 0;
  double number = 0;
  std::string_view text;  // until a variable is written
};

class CallChain;
class CallForm;
class CallsInArithmetic;
struct ReplacedCalls;

class TermForm {
 public:
  TermForm();
  ~TermForm();
  TermForm(TermForm&&) noexcept;
  TermForm& operator=(TermForm&&) noexcept;
  // `text` is an expression as the evaluator takes it, and outlives the form.
  TermForm(Run& run, std::string_view text);

  std::string_view text() const { return text_; }

  // True if evaluating runs no command and no function, as far as the form knows.
  bool IsWithoutCalls() const {
    return kind_ != Kind::Plain && kind_ != Kind::Call && kind_ != Kind::NestedCall &&
           kind_ != Kind::CallInside;
  }

  // The call that the text consists of; null for any other text.
  const CallForm* call() const { return call_.get(); }

  // The same where calls in its list go first, which end with it.
  const CallChain* nested() const { return nested_.get(); }

  // What `EvalNumber` gives, and what `EvalText` does.
  Value Evaluate(Run& run) const;
  Value EvaluateText(Run& run) const;

  // The same, where it is a number or a text that lies ready.
  Reading Read(Run& run) const;

  // What `Evaluate` gives, where it is a whole number: else nothing, and false.
  bool EvaluateWhole(VariableStore& store, Value& result) const {
    std::int64_t whole = 0;
    if (!ReadWhole(store, whole)) return false;
    if (kind_ == Kind::Arithmetic) {
      result = ExactDecimal::FromInteger(whole);
    } else if (kind_ == Kind::Name) {
      result = static_cast<std::int32_t>(whole);
    } else {
      result = number_;
    }
    return true;
  }

  // What `EvaluateText` gives, where it is a text that lies ready: else nothing, and false. The text is good
  // until a variable is written.
  bool ReadText(VariableStore& store, std::string_view& text) const {
    if (!store.SymbolsTellAll()) return false;
    if (kind_ == Kind::Literal) {
      text = literal_;
      return true;
    }
    const std::string* variable = kind_ == Kind::Name ? name_.Text(store) : nullptr;
    if (variable != nullptr) text = *variable;
    return variable != nullptr;
  }

  // The same as `Read`, where it is a whole number.
  bool ReadWhole(VariableStore& store, std::int64_t& whole) const {
    switch (kind_) {
      case Kind::Whole:
        whole = whole_;
        return true;
      case Kind::Name:
        if (const std::int32_t* integer = name_.Integer(store)) {
          whole = *integer;
          return true;
        }
        return false;
      case Kind::Arithmetic:
        return arithmetic_->IsWhole() && arithmetic_->EvaluateWhole(store, whole);
      default:
        return false;
    }
  }

 private:
  Value EvaluateCall(Run& run) const;
  Value EvaluateCallText(Run& run) const;
  Value EvaluateNested(Run& run) const;
  Value EvaluateAround(Run& run) const;
  static Value EvaluateRest(Run& run, ReplacedCalls rest);

  enum class Kind : std::uint8_t {
    Plain,
    Whole,
    Float,
    Literal,
    Name,
    Arithmetic,
    Call,
    NestedCall,
    CallInside
  };

  Kind kind_ = Kind::Plain;
  std::int64_t whole_ = 0;
  double number_ = 0;  // of a whole number as well
  NameForm name_;
  std::string_view text_;     // as it was given
  std::string_view trimmed_;  // of a text without calls
  std::string_view literal_;  // without its quotes
  std::unique_ptr<const ArithmeticForm> arithmetic_;
  std::unique_ptr<const CallForm> call_;
  std::unique_ptr<const CallChain> nested_;
  std::unique_ptr<const CallsInArithmetic> inside_;
};

}  // namespace tessera
