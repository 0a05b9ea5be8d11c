#include "values/calls_in_arithmetic.h"

#include <cmath>

#include "text/number.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/eval.h"

namespace tessera {

namespace {

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

// Whether an answer may be a number in what is left of the text.
bool MayBeNumber(const CallForm& call) {
  return !call.isOwn() || call.resultType() == "Numero" || call.resultType() == "Inteiro";
}

}  // namespace

std::optional<CallsInArithmetic> CallsInArithmetic::Of(Run& run, std::string_view text) {
  std::string around;
  auto chain = CallChain::Of(run, text, around);
  if (!chain || (!chain->areOwn() && !chain->areOfTheLanguage())) return std::nullopt;
  std::string withNumbers = around;
  for (std::size_t i = 0; i < chain->size(); ++i) {
    if (chain->isArgument(i)) continue;
    const std::string name = ArithmeticForm::AnswerName(i);
    if (!MayBeNumber(chain->call(i)) || !StandsAlone(around, name)) return std::nullopt;
    withNumbers.replace(withNumbers.find(name), name.size(), "1");
  }
  const bool isArithmetic = Trim(around) == around && around.find_first_of(",\"[]") == std::string::npos &&
                            !IsNumeric(withNumbers) && IsArithmeticText(withNumbers);
  if (!isArithmetic) return std::nullopt;
  auto arithmetic = ArithmeticForm::Of(run.variables, around, chain->size());
  if (!arithmetic) return std::nullopt;
  return CallsInArithmetic(*std::move(chain), *std::move(arithmetic));
}

bool CallsInArithmetic::Serves(bool numericTarget) const {
  if (areOwn()) return true;
  for (std::size_t i = 0; i < chain_.size(); ++i) {
    if (!chain_.isArgument(i) && !chain_.IsNumeric(i, numericTarget)) return false;
  }
  return chain_.Serves(numericTarget);
}

// Of a text with several functions of the program only the last comma becomes a point.
bool CallsInArithmetic::SettleNumber(Run& run, const CallForm& call, const Value& answer,
                                     double& number) const {
  if (!call.SettleNumber(run, answer, true, number)) return false;
  return !call.isOwn() || chain_.size() == 1 || number == std::trunc(number);
}

std::optional<double> CallsInArithmetic::Evaluate(Run& run, bool numericTarget, const bool& isText,
                                                  ReplacedCalls& rest) const {
  CallChain::Answers answers;
  ArithmeticForm::Answers numbers{};
  bool areNumbers = true;
  while (areNumbers && answers.count < chain_.size()) {
    const std::size_t i = answers.count;
    areNumbers = chain_.RunNext(run, numericTarget, answers) &&
                 (chain_.isArgument(i) || (run.variables.SymbolsTellAll() &&
                                           SettleNumber(run, chain_.call(i), answers.values[i], numbers[i])));
  }
  if (areNumbers && !isText) {
    std::int64_t whole = 0;
    if (arithmetic_.IsWhole() && arithmetic_.EvaluateWhole(run.variables, whole, numbers))
      return static_cast<double>(whole);
    double result = 0;
    if (arithmetic_.EvaluateFloat(run.variables, run.roundings, result, numbers)) return result;
  }
  rest = chain_.Written(run, answers, numericTarget);
  return std::nullopt;
}

}  // namespace tessera
