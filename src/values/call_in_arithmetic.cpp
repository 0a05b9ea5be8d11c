#include "values/call_in_arithmetic.h"

#include "platform/failure.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera {

namespace {

// Stands for the answer while its text is read; longer than a name of the program can be.
constexpr std::string_view kAnswer = "resposta.da.chamada.que.esta.dentro.desta.conta.aritmetica";

// Digits beside such a character stay a number of their own.
bool Separates(char c) {
  return c == ' ' || c == ')' || IsOperator(c);
}

bool StandsAlone(std::string_view text, std::size_t begin, std::size_t end) {
  const bool opens = begin == 0 || text[begin - 1] == '(' || Separates(text[begin - 1]);
  return opens && (end == text.size() || Separates(text[end]));
}

}  // namespace

std::optional<CallInArithmetic> CallInArithmetic::Of(Run& run, std::string_view text) {
  if (text.find_first_of("\"[]") != std::string_view::npos) return std::nullopt;
  WholeCall whole;
  std::string around;
  // A name without its parentheses fails, each time that it is evaluated.
  const auto failure = Guard([&] {
    auto call = FindFunction(run, text);
    whole.isOwn = !call;
    if (whole.isOwn) call = FindUserFunction(run, text);
    if (!call || StripParens(call->arguments).empty()) return;
    whole.call = *std::move(call);
    if (whole.isOwn && whole.call.resultType != "Numero" && whole.call.resultType != "Inteiro") return;
    around = whole.isOwn ? WithUserAnswer(text, whole.call, kAnswer)
                         : WithAnswer(text, whole.call, kAnswer, true, false);
  });
  const std::size_t at = around.find(kAnswer);
  if (failure || at == std::string::npos) return std::nullopt;
  if (!StandsAlone(around, at, at + kAnswer.size())) return std::nullopt;
  std::string withNumber = around;
  withNumber.replace(at, kAnswer.size(), "1");
  const bool isArithmetic = Trim(around) == around && !Contains(around, ",") && !MayCall(run, withNumber) &&
                            !IsNumeric(withNumber) && IsArithmeticText(withNumber);
  if (!isArithmetic) return std::nullopt;
  auto arithmetic = ArithmeticForm::Of(run.variables, around, kAnswer);
  if (!arithmetic) return std::nullopt;
  return CallInArithmetic(text, std::move(whole), *std::move(arithmetic));
}

std::optional<double> CallInArithmetic::Evaluate(Run& run, std::string& text) const {
  const Value answer = call_->Run(run);
  double number = 0;
  if (run.variables.SymbolsTellAll() && call_->SettleNumber(run, answer, true, number)) {
    std::int64_t whole = 0;
    if (arithmetic_.IsWhole() && arithmetic_.EvaluateWhole(run.variables, whole, number))
      return static_cast<double>(whole);
    double result = 0;
    if (arithmetic_.EvaluateFloat(run.variables, run.roundings, result, number)) return result;
  }
  text = isOwn() ? WithUserAnswer(text_, found_, answer.ToText())
                 : WithAnswer(text_, found_, answer.ToText(), true, false);
  return std::nullopt;
}

}  // namespace tessera
