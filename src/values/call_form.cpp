#include "values/call_form.h"

#include <cmath>

#include "language/words.h"
#include "text/one_based.h"
#include "values/calls.h"
#include "values/eval.h"

namespace tessera {

CallForm::CallForm(WholeCall whole)
    : name_(std::move(whole.call.name)),
      arguments_(std::move(whole.call.arguments)),
      resultType_(std::move(whole.call.resultType)),
      isOwn_(whole.isOwn),
      isNumericFunction_(!whole.isOwn && IsNumericFunction(name_)),
      forms_(std::make_unique<ArgumentForms>(arguments_)) {}

Value CallForm::Run(tessera::Run& run) const {
  const ArgumentText arguments(arguments_, forms_.get());
  return isOwn_ ? run.doors.CallFunction(name_, arguments) : run.doors.CommandCall(name_, arguments);
}

std::optional<Value> CallForm::Settle(tessera::Run& run, const Value& answer, bool numericTarget,
                                      bool isList) const {
  if (!run.variables.SymbolsTellAll()) return std::nullopt;
  if (const std::int32_t* integer = answer.AsInteger(); integer != nullptr && resultType_ != "String") {
    return Value(static_cast<double>(*integer));
  }
  if (const std::string* text = answer.AsText()) {
    const bool isString = isOwn_ && resultType_ == "String" && !text->starts_with('"');
    const bool isQuoted = !isOwn_ && text->size() >= 2 && text->starts_with('"') && text->ends_with('"');
    if (!isString && !isQuoted) return std::nullopt;
    const std::string_view inner =
        isString ? std::string_view(*text) : std::string_view(*text).substr(1, text->size() - 2);
    if (isList && inner.find_first_of("\"[]") != std::string_view::npos) return std::nullopt;
    // A parenthesis at either end goes with its quote.
    std::string plain = inner.starts_with('(') || inner.ends_with(')') ? std::string(Unquote(Quote(inner)))
                                                                       : std::string(inner);
    return Value(numericTarget && !isOwn_ ? Replace(plain, ',', '.') : std::move(plain));
  }
  return SettleNumber(run, answer, numericTarget);
}

// A fraction's comma ends a number, unless it becomes a point.
std::optional<Value> CallForm::SettleNumber(tessera::Run& run, const Value& answer,
                                            bool numericTarget) const {
  constexpr double kMost = 1e15;
  constexpr double kLeastWithoutExponent = 1e-4;
  if (answer.IsEmpty() || resultType_ == "String") return std::nullopt;
  const double number = answer.ToDouble();
  const double magnitude = std::fabs(number);
  const bool isWhole = magnitude < kMost && number == std::trunc(number);
  if (isWhole) return Value(number + 0.0);
  if (isOwn_ ? resultType_ != "Numero" : !numericTarget) return std::nullopt;
  if (answer.AsDecimal() != nullptr) return magnitude < kMost ? std::optional<Value>(number) : std::nullopt;
  if (!(magnitude >= kLeastWithoutExponent && magnitude < kMost)) return std::nullopt;
  return Value(run.roundings.Rounded(number));
}

std::string CallForm::TextOf(const Value& answer, bool numericTarget) const {
  std::string text = answer.ToText();
  if (isOwn_) FinishUserResult(text, resultType_);
  return numericTarget && !isOwn_ ? Replace(text, ',', '.') : text;
}

}  // namespace tessera
