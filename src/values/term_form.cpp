#include "values/term_form.h"

#include "text/one_based.h"
#include "values/call_form.h"
#include "values/calls.h"
#include "values/calls_in_arithmetic.h"
#include "values/eval.h"
#include "values/run.h"

namespace tessera {

TermForm::TermForm() = default;
TermForm::~TermForm() = default;
TermForm::TermForm(TermForm&&) noexcept = default;
TermForm& TermForm::operator=(TermForm&&) noexcept = default;

TermForm::TermForm(Run& run, std::string_view text) : text_(text) {
  // Marks of parentheses would have to be taken off.
  if (text.find_first_of("[]") != std::string_view::npos) return;
  trimmed_ = Trim(text);
  if (MayCall(run, trimmed_)) {
    if (!run.variables.FindNumbers(trimmed_)) return;
    if (auto whole = FindWholeCall(run, trimmed_)) {
      call_ = std::make_unique<const CallForm>(run, *std::move(whole));
      kind_ = Kind::Call;
    } else if (auto nested = CallChain::OfOneCall(run, trimmed_)) {
      nested_ = std::make_unique<const CallChain>(*std::move(nested));
      kind_ = Kind::NestedCall;
    } else if (auto inside = CallsInArithmetic::Of(run, trimmed_); inside && inside->Serves(false)) {
      inside_ = std::make_unique<const CallsInArithmetic>(*std::move(inside));
      kind_ = Kind::CallInside;
    }
    return;
  }
  if (IsNumeric(trimmed_)) {
    number_ = LeadingNumber(trimmed_);
    constexpr double kMost = 1e15;
    const bool isWhole = number_ > -kMost && number_ < kMost &&
                         number_ == static_cast<double>(static_cast<std::int64_t>(number_));
    kind_ = isWhole ? Kind::Whole : Kind::Float;
    if (isWhole) whole_ = static_cast<std::int64_t>(number_);
    return;
  }
  if (IsArithmeticText(trimmed_)) {
    auto form = ArithmeticForm::Of(run.variables, trimmed_);
    if (!form) return;
    arithmetic_ = std::make_unique<const ArithmeticForm>(*std::move(form));
    kind_ = Kind::Arithmetic;
    return;
  }
  if (trimmed_.starts_with('"')) {
    literal_ = Unquote(trimmed_);
    kind_ = Kind::Literal;
    return;
  }
  const auto name = NameForm::Of(run.variables, trimmed_);
  if (!name) return;
  name_ = *name;
  kind_ = Kind::Name;
}

Reading TermForm::Read(Run& run) const {
  if (!run.variables.SymbolsTellAll()) return {};
  VariableStore& store = run.variables;
  switch (kind_) {
    case Kind::Plain:
    case Kind::Call:
    case Kind::NestedCall:
    case Kind::CallInside:
      return {};
    case Kind::Whole:
      return {Reading::Kind::Whole, whole_, number_, {}};
    case Kind::Float:
      return {Reading::Kind::Float, 0, number_, {}};
    case Kind::Literal:
      return {Reading::Kind::Text, 0, 0, literal_};
    case Kind::Name: {
      if (name_.type() == VariableType::None) {
        if (name_.symbol->isLocal && run.variables.VarFind(trimmed_) != -1) return {};
        return {Reading::Kind::Text, 0, 0, Unquote(trimmed_)};
      }
      if (const std::int32_t* integer = name_.Integer(store)) {
        return {Reading::Kind::Whole, *integer, static_cast<double>(*integer), {}};
      }
      if (const double* decimal = name_.Decimal(store)) return {Reading::Kind::Float, 0, *decimal, {}};
      if (const std::string* text = name_.Text(store)) return {Reading::Kind::Text, 0, 0, *text};
      return {};
    }
    default: {
      Reading reading;
      if (arithmetic_->IsWhole() && arithmetic_->EvaluateWhole(store, reading.whole)) {
        reading.kind = Reading::Kind::Whole;
        reading.number = static_cast<double>(reading.whole);
      } else if (arithmetic_->EvaluateFloat(store, run.roundings, reading.number)) {
        reading.kind = Reading::Kind::Float;
      }
      return reading;
    }
  }
}

// What follows the call in `EvalNumber` follows here, with the text that the answer makes.
Value TermForm::EvaluateCall(Run& run) const {
  bool numericTarget = call_->isNumericFunction();
  Value answer = call_->Run(run);
  if (auto settled = call_->Settle(run, answer, numericTarget, false)) return *std::move(settled);
  return EvaluateRest(run, {call_->TextOf(answer, numericTarget), 1, call_->isOwn(), numericTarget});
}

// The same for `EvalText`, to which a number is a text.
Value TermForm::EvaluateCallText(Run& run) const {
  bool numericTarget = call_->isNumericFunction();
  Value answer = call_->Run(run);
  if (answer.IsText()) {
    if (auto settled = call_->Settle(run, answer, numericTarget, false)) return *std::move(settled);
  }
  std::string text = call_->TextOf(answer, numericTarget);
  if (!call_->isOwn()) ReplaceFunctions(run, text, numericTarget, 1);
  ReplaceUserFunctions(run, text, call_->isOwn() ? 1 : 0);
  if (run.variables.VarFind(text) == -1) return Unquote(text);
  return run.variables.VarRead(text);
}

Value TermForm::EvaluateNested(Run& run) const {
  CallChain::Answers answers;
  if (nested_->RunAll(run, false, answers)) {
    if (auto settled = nested_->Settle(run, answers, false, false)) return *std::move(settled);
  }
  ReplacedCalls rest = nested_->Written(run, answers, false);
  return EvaluateRest(run, std::move(rest));
}

Value TermForm::EvaluateAround(Run& run) const {
  ReplacedCalls rest;
  if (const auto result = inside_->Evaluate(run, false, false, rest))
    return *ExactDecimal::FromDouble(*result);
  return EvaluateRest(run, std::move(rest));
}

Value TermForm::EvaluateRest(Run& run, ReplacedCalls rest) {
  if (!rest.isOwn) ReplaceFunctions(run, rest.text, rest.numericTarget, rest.replaced);
  ReplaceUserFunctions(run, rest.text, rest.isOwn ? rest.replaced : 0);
  return EvalReplaced(run, rest.text);
}

Value TermForm::EvaluateText(Run& run) const {
  if (kind_ == Kind::Call && text_ == trimmed_) return EvaluateCallText(run);
  if (!IsWithoutCalls() || !run.variables.SymbolsTellAll()) return EvalText(run, text_);
  if (kind_ == Kind::Literal) return literal_;
  if (kind_ == Kind::Name && name_.type() != VariableType::None) {
    const Reading reading = Read(run);
    if (reading.kind == Reading::Kind::Text) return reading.text;
    if (reading.kind == Reading::Kind::Whole) return static_cast<std::int32_t>(reading.whole);
    if (reading.kind == Reading::Kind::Float) return reading.number;
  }
  if (run.variables.VarFind(text_) == -1) return Unquote(text_);
  return run.variables.VarRead(text_);
}

Value TermForm::Evaluate(Run& run) const {
  if (kind_ == Kind::Plain) return EvalNumber(run, text_);
  if (kind_ == Kind::Call) return EvaluateCall(run);
  if (kind_ == Kind::NestedCall) return nested_->Serves(false) ? EvaluateNested(run) : EvalNumber(run, text_);
  if (kind_ == Kind::CallInside) return EvaluateAround(run);
  if (std::int64_t whole = 0;
      kind_ == Kind::Arithmetic && run.variables.SymbolsTellAll() && ReadWhole(run.variables, whole)) {
    return ExactDecimal::FromInteger(whole);
  }
  const Reading reading = Read(run);
  switch (reading.kind) {
    case Reading::Kind::Nothing:
      return EvalReplaced(run, trimmed_);
    case Reading::Kind::Text:
      return reading.text;
    default:
      break;
  }
  if (kind_ == Kind::Arithmetic) return *ExactDecimal::FromDouble(reading.number);
  if (kind_ == Kind::Name && reading.kind == Reading::Kind::Whole) {
    return static_cast<std::int32_t>(reading.whole);
  }
  return reading.number;
}

}  // namespace tessera
