#include "values/call_chain.h"

#include <algorithm>

#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/calls.h"
#include "values/parens.h"

namespace tessera {

namespace {

// The call that is replaced next. Functions of the language go first.
std::optional<WholeCall> NextCall(const Run& run, std::string_view text) {
  if (auto call = FindFunction(run, text)) return WholeCall{*std::move(call), false};
  if (auto call = FindUserFunction(run, text)) return WholeCall{*std::move(call), true};
  return std::nullopt;
}

std::string WithAnswerOf(const WholeCall& whole, std::string_view text, std::string_view answer,
                         bool numericTarget, bool restIsLost) {
  return whole.isOwn ? WithUserAnswer(text, whole.call, answer)
                     : WithAnswer(text, whole.call, answer, numericTarget, restIsLost);
}

// No name has a comma, but between the parentheses of its index.
bool MayBeVariable(std::string_view arguments) {
  return !Contains(arguments, ",") || arguments.find_first_of("([") != std::string_view::npos;
}

}  // namespace

std::optional<CallChain> CallChain::Of(const Run& run, std::string_view text, std::string& around) {
  CallChain chain(text);
  around = text;
  // A name without its parentheses fails, each time that it is evaluated.
  bool isWhole = false;
  Guard([&] {
    while (chain.Add(run, around)) {
    }
    isWhole = !NextCall(run, around);
  });
  if (!isWhole || chain.links_.empty()) return std::nullopt;
  const bool isNumericBefore = chain.size() > 1 && chain.links_[chain.size() - 2].isNumeric;
  if (chain.keepsCommas_ && isNumericBefore) return std::nullopt;
  return chain;
}

std::optional<CallChain> CallChain::OfOneCall(const Run& run, std::string_view text) {
  std::string around;
  auto chain = Of(run, text, around);
  const bool isOne = chain && !chain->areOwn() && around == ArithmeticForm::AnswerName(chain->size() - 1);
  return isOne ? std::move(chain) : std::nullopt;
}

// Puts the next call of the text behind the others. False where there is none, or one that hangs on more than
// arguments.
bool CallChain::Add(const Run& run, std::string& around) {
  auto whole = NextCall(run, around);
  if (!whole || links_.size() == kMostCalls || StripParens(whole->call.arguments).empty()) return false;
  Link link{.name = whole->call.name};
  for (std::size_t i = 0; i < links_.size(); ++i) {
    const std::string answer = ArithmeticForm::AnswerName(i);
    if (Contains(answer, link.name)) return false;
    if (!Contains(whole->call.arguments, answer)) continue;
    if (call(i).isOwn()) return false;
    links_[i].isArgument = true;
  }
  const std::string before = std::move(around);
  const std::string answer = ArithmeticForm::AnswerName(links_.size());
  around = WithAnswerOf(*whole, before, answer, false, false);
  link.isNumeric =
      (!links_.empty() && links_.back().isNumeric) || (!whole->isOwn && IsNumericFunction(link.name));
  if (!link.isNumeric && MayBeVariable(whole->call.arguments) &&
      around != WithAnswerOf(*whole, before, answer, false, true)) {
    mayLoseRest_ = true;
  }
  keepsCommas_ = keepsCommas_ || Contains(around, ",");
  link.form = std::make_unique<const CallForm>(run, *std::move(whole));
  links_.push_back(std::move(link));
  return true;
}

// An answer is looked through for calls as the text around it is.
bool CallChain::IsPiece(const Run& run, std::string_view answer, bool mayHoldCommas) const {
  const auto isOfNumber = [](char c) { return (c >= '0' && c <= '9') || c == '-' || c == '.'; };
  if (!answer.starts_with('"')) return !answer.empty() && std::ranges::all_of(answer, isOfNumber);
  if (answer.size() < 2 || !answer.ends_with('"')) return false;
  const std::string_view inner = answer.substr(1, answer.size() - 2);
  if (inner.find_first_of(mayHoldCommas ? "\"[]()" : "\"[](),") != std::string_view::npos) return false;
  const auto isIn = [&](const Link& link) { return Contains(inner, link.name); };
  return std::ranges::none_of(links_, isIn) && !run.functionTable.FirstCalledIn(inner) &&
         !run.programFunctions.FirstCalledIn(inner);
}

bool CallChain::RunNext(Run& run, bool numericTarget, Answers& answers) const {
  const std::size_t i = answers.count++;
  answers.values[i] = call(i).Run(run, answers.pieces);
  if (!isArgument(i)) return true;
  std::string& piece = answers.pieces[i];
  piece = answers.values[i].ToText();
  const bool isNumber = !piece.starts_with('"');
  if (isNumber && IsNumeric(i, numericTarget)) std::ranges::replace(piece, ',', '.');
  return run.variables.SymbolsTellAll() && IsPiece(run, piece, !IsNumeric(size() - 2, numericTarget));
}

bool CallChain::RunAll(Run& run, bool numericTarget, Answers& answers) const {
  while (answers.count < size()) {
    if (!RunNext(run, numericTarget, answers)) return false;
  }
  return true;
}

// The calls are found again, at the places that the answers before them leave.
ReplacedCalls CallChain::Written(const Run& run, const Answers& answers, bool numericTarget) const {
  ReplacedCalls rest{.text = std::string(text_), .numericTarget = numericTarget};
  for (std::size_t i = 0; i < answers.count; ++i) {
    rest.replaced = call(i).isOwn() == rest.isOwn ? rest.replaced + 1 : 1;
    rest.isOwn = call(i).isOwn();
    rest.numericTarget = IsNumeric(i, numericTarget);
    rest.text = WithAnswerOf(*NextCall(run, rest.text), rest.text, answers.values[i].ToText(),
                             rest.numericTarget, false);
  }
  return rest;
}

}  // namespace tessera
