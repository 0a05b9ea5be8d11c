#include "values/calls_in_arithmetic.h"

#include <array>
#include <cmath>

#include "platform/failure.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera {

namespace {

constexpr std::size_t kMostCalls = ArithmeticForm::kMostAnswers;

// Digits beside such a character stay a number of their own.
bool Separates(char c) {
  return c == ' ' || c == ')' || IsOperator(c);
}

bool StandsAlone(std::string_view text, std::string_view name) {
  const std::size_t begin = text.find(name);
  if (begin == std::string_view::npos) return false;
  const std::size_t end = begin + name.size();
  const bool opens = begin == 0 || text[begin - 1] == '(' || Separates(text[begin - 1]);
  return opens && (end == text.size() || Separates(text[end]));
}

// The call that is replaced next. Functions of the language go first.
std::optional<WholeCall> NextCall(const Run& run, std::string_view text) {
  if (auto call = FindFunction(run, text)) return WholeCall{*std::move(call), false};
  if (auto call = FindUserFunction(run, text)) return WholeCall{*std::move(call), true};
  return std::nullopt;
}

std::string WithAnswerOf(const WholeCall& whole, std::string_view text, std::string_view answer) {
  return whole.isOwn ? WithUserAnswer(text, whole.call, answer)
                     : WithAnswer(text, whole.call, answer, true, false);
}

// Whether the answer of a call may be a number, found behind calls whose answers have names.
bool MayBeNumber(const WholeCall& whole, std::size_t before) {
  const Call& call = whole.call;
  if (StripParens(call.arguments).empty()) return false;
  for (std::size_t i = 0; i < before; ++i) {
    if (Contains(call.arguments, ArithmeticForm::AnswerName(i))) return false;
    if (Contains(ArithmeticForm::AnswerName(i), call.name)) return false;
  }
  return !whole.isOwn || call.resultType == "Numero" || call.resultType == "Inteiro";
}

// The calls of a text in their order, and in `around` the text with a name for each answer; none where one of
// them may give anything but a number.
std::vector<WholeCall> CallsOf(const Run& run, std::string& around) {
  std::vector<WholeCall> calls;
  // A name without its parentheses fails, each time that it is evaluated.
  const auto failure = Guard([&] {
    while (auto whole = NextCall(run, around)) {
      const bool fits = calls.size() < kMostCalls && MayBeNumber(*whole, calls.size()) &&
                        (calls.empty() || calls.front().isOwn == whole->isOwn);
      if (!fits) {
        calls.clear();
        return;
      }
      around = WithAnswerOf(*whole, around, ArithmeticForm::AnswerName(calls.size()));
      calls.push_back(*std::move(whole));
    }
  });
  if (failure) calls.clear();
  return calls;
}

}  // namespace

CallsInArithmetic::CallsInArithmetic(const Run& run, std::string_view text, std::vector<WholeCall> found,
                                     ArithmeticForm arithmetic)
    : text_(text), arithmetic_(std::move(arithmetic)) {
  for (WholeCall& whole : found) calls_.push_back(std::make_unique<const CallForm>(run, std::move(whole)));
}

std::optional<CallsInArithmetic> CallsInArithmetic::Of(Run& run, std::string_view text) {
  if (text.find_first_of("\"[]") != std::string_view::npos) return std::nullopt;
  std::string around(text);
  std::vector<WholeCall> calls = CallsOf(run, around);
  if (calls.empty()) return std::nullopt;
  std::string withNumbers = around;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    const std::string name = ArithmeticForm::AnswerName(i);
    if (!StandsAlone(around, name)) return std::nullopt;
    withNumbers.replace(withNumbers.find(name), name.size(), "1");
  }
  const bool isArithmetic = Trim(around) == around && !Contains(around, ",") && !IsNumeric(withNumbers) &&
                            IsArithmeticText(withNumbers);
  if (!isArithmetic) return std::nullopt;
  auto arithmetic = ArithmeticForm::Of(run.variables, around, calls.size());
  if (!arithmetic) return std::nullopt;
  return CallsInArithmetic(run, text, std::move(calls), *std::move(arithmetic));
}

// Of a text with several functions of the program only the last comma becomes a point.
bool CallsInArithmetic::SettleNumber(Run& run, const CallForm& call, const Value& answer,
                                     double& number) const {
  if (!call.SettleNumber(run, answer, true, number)) return false;
  return !call.isOwn() || calls_.size() == 1 || number == std::trunc(number);
}

std::optional<double> CallsInArithmetic::Evaluate(Run& run, Rest& rest) const {
  std::array<Value, kMostCalls> answers;
  ArithmeticForm::Answers numbers{};
  std::size_t count = 0;
  bool areNumbers = true;
  while (areNumbers && count < calls_.size()) {
    const CallForm& call = *calls_[count];
    answers[count] = call.Run(run);
    areNumbers = run.variables.SymbolsTellAll() && SettleNumber(run, call, answers[count], numbers[count]);
    ++count;
  }
  if (areNumbers) {
    std::int64_t whole = 0;
    if (arithmetic_.IsWhole() && arithmetic_.EvaluateWhole(run.variables, whole, numbers))
      return static_cast<double>(whole);
    double result = 0;
    if (arithmetic_.EvaluateFloat(run.variables, run.roundings, result, numbers)) return result;
  }
  rest = Written(run, {answers.data(), count});
  return std::nullopt;
}

// The calls are found again, at the places that the answers before them leave.
CallsInArithmetic::Rest CallsInArithmetic::Written(const Run& run, std::span<const Value> answers) const {
  Rest rest{std::string(text_), static_cast<int>(answers.size())};
  for (const Value& answer : answers) {
    rest.text = WithAnswerOf(*NextCall(run, rest.text), rest.text, answer.ToText());
  }
  return rest;
}

}  // namespace tessera
