#include "values/call_form.h"

#include <algorithm>
#include <cmath>

#include "language/words.h"
#include "text/one_based.h"
#include "values/calls.h"
#include "values/eval.h"

namespace tessera {

CallForm::CallForm(const tessera::Run& run, WholeCall whole)
    : name_(std::move(whole.call.name)),
      arguments_(std::move(whole.call.arguments)),
      numbers_(*run.variables.FindNumbers(arguments_)),
      resultType_(std::move(whole.call.resultType)),
      isText_(resultType_ == "String"),
      isNumber_(resultType_ == "Numero"),
      isOwn_(whole.isOwn),
      isNumericFunction_(!whole.isOwn && IsNumericFunction(name_)),
      forms_(std::make_unique<ArgumentForms>(arguments_)) {
  for (std::size_t i = 0; i < ArithmeticForm::kMostAnswers; ++i) {
    const std::size_t at = arguments_.find(ArithmeticForm::AnswerName(i));
    if (at != std::string::npos) answers_.push_back({at, i});
  }
  std::ranges::sort(answers_, {}, &AnswerPlace::at);
}

std::string CallForm::ArgumentsWith(std::span<const std::string> pieces) const {
  static const std::size_t nameLength = ArithmeticForm::AnswerName(0).size();
  std::string arguments;
  std::size_t behind = 0;
  for (const AnswerPlace& place : answers_) {
    arguments.append(arguments_, behind, place.at - behind);
    arguments += pieces[place.answer];
    behind = place.at + nameLength;
  }
  return arguments.append(arguments_, behind, std::string::npos);
}

Value CallForm::Run(tessera::Run& run, std::span<const std::string> pieces) const {
  numbers_.Renew(arguments_);
  if (answers_.empty()) return Dispatch(run, {arguments_, forms_.get()});
  const std::string arguments = ArgumentsWith(pieces);
  return Dispatch(run, {arguments, forms_.get(), pieces});
}

Value CallForm::Dispatch(tessera::Run& run, const ArgumentText& arguments) const {
  return isOwn_ ? run.doors.CallFunction(name_, arguments) : run.doors.CommandCall(name_, arguments);
}

std::optional<Value> CallForm::Settle(tessera::Run& run, Value& answer, bool numericTarget,
                                      bool isList) const {
  if (!run.variables.SymbolsTellAll()) return std::nullopt;
  if (const std::int32_t* integer = answer.AsInteger(); integer != nullptr && !isText_) {
    return Value(static_cast<double>(*integer));
  }
  if (answer.IsText()) return SettleText(answer, numericTarget, isList);
  double number = 0;
  return SettleNumber(run, answer, numericTarget, number) ? std::optional<Value>(number) : std::nullopt;
}

std::optional<Value> CallForm::SettleText(Value& answer, bool numericTarget, bool isList) const {
  std::string& text = *answer.AsText();
  const bool isString = isOwn_ && isText_ && !text.starts_with('"');
  const bool isQuoted = !isOwn_ && text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
  if (!isString && !isQuoted) return std::nullopt;
  const std::string_view inner =
      isString ? std::string_view(text) : std::string_view(text).substr(1, text.size() - 2);
  const auto holds = [&](char mark) { return inner.find(mark) != std::string_view::npos; };
  if (isList && (holds('"') || holds('[') || holds(']'))) return std::nullopt;
  if (inner.starts_with('(') || inner.ends_with(')')) {
    // A parenthesis at either end goes with its quote.
    text = Unquote(Quote(inner));
  } else if (isQuoted) {
    text.pop_back();
    text.erase(0, 1);
  }
  if (numericTarget && !isOwn_) std::replace(text.begin(), text.end(), ',', '.');
  return std::move(answer);
}

bool CallForm::SettleWhole(const Value& answer, std::int64_t& whole) const {
  if (isText_) return false;
  if (const std::int32_t* integer = answer.AsInteger()) {
    whole = *integer;
    return true;
  }
  return answer.AsDecimal() != nullptr && answer.AsDecimal()->ToWhole(whole);
}

// A fraction's comma ends a number, unless it becomes a point.
bool CallForm::SettleNumber(tessera::Run& run, const Value& answer, bool numericTarget,
                            double& number) const {
  constexpr double kMost = 1e15;
  constexpr double kLeastWithoutExponent = 1e-4;
  if (answer.IsEmpty() || answer.IsText() || isText_) return false;
  number = answer.ToDouble() + 0.0;
  const double magnitude = std::fabs(number);
  if (magnitude < kMost && number == std::trunc(number)) return true;
  if (isOwn_ ? !isNumber_ : !numericTarget) return false;
  if (answer.AsDecimal() != nullptr) return magnitude < kMost;
  if (!(magnitude >= kLeastWithoutExponent && magnitude < kMost)) return false;
  number = run.roundings.Rounded(number);
  return true;
}

std::string CallForm::TextOf(const Value& answer, bool numericTarget) const {
  std::string text = answer.ToText();
  if (isOwn_) FinishUserResult(text, resultType_);
  return numericTarget && !isOwn_ ? Replace(text, ',', '.') : text;
}

}  // namespace tessera
