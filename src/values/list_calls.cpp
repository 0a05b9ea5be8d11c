#include "values/list_calls.h"

#include <algorithm>

#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/calls.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera {

namespace {

// Stands for an answer while the list is read: no program has it.
std::string AnswerName(std::size_t answer, bool isText) {
  constexpr std::size_t kLength = 60;
  const std::string number = std::to_string(answer);
  return isText ? Quote(std::string(kLength, '_') + number) : "9" + std::string(kLength, '0') + number;
}

bool IsWholeNumber(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.size() <= kMostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::unique_ptr<const ListCalls> ListCalls::Of(const tessera::Run& run, std::string_view text,
                                               std::size_t places, bool splitAtEqual,
                                               std::vector<std::string>& parts) {
  std::unique_ptr<ListCalls> made(new ListCalls(text));
  std::string rest(Trim(StripParens(text)));
  std::vector<std::string> names;
  // What fails here fails each time that the list is cut.
  const auto failure = Guard([&] {
    while (auto call = FindFunction(run, rest)) {
      const Word* word = FindWord(call->name);
      const bool isKnown = word != nullptr && word->result != Result::None && !call->arguments.empty();
      constexpr std::size_t kMostCalls = 10;  // so that no name begins with another
      if (!isKnown || names.size() == kMostCalls) FailArgument();
      ListCall found{.name = call->name, .isText = word->result == Result::Text};
      names.push_back(AnswerName(names.size(), found.isText));
      const std::string before = rest;
      rest = WithAnswer(before, *call, names.back(), false, false);
      found.mayLoseRest = rest != WithAnswer(before, *call, names.back(), false, true);
      if (!made->Feed(*call, names)) FailArgument();
      found.form = std::make_unique<const CallForm>(run, WholeCall{*std::move(call), false});
      made->calls_.push_back(std::move(found));
    }
    parts = CutList(rest, places, splitAtEqual);
  });
  if (failure || names.empty()) return nullptr;
  while (!parts.empty() && parts.back().empty()) parts.pop_back();
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (made->calls_[i].isArgument) continue;
    const auto part = std::ranges::find(parts, names[i]);
    if (part == parts.end()) return nullptr;
    made->calls_[i].place = static_cast<std::size_t>(part - parts.begin());
    part->clear();
  }
  made->isWhole_ = rest == names.front();
  return made;
}

// Puts the names by which a form knows them in the place of the answers in a call's list. False for one of
// which it knows no name.
bool ListCalls::Feed(Call& call, const std::vector<std::string>& names) {
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    const std::size_t at = call.arguments.find(names[i]);
    if (at == std::string::npos) continue;
    if (i >= ArithmeticForm::kMostAnswers) return false;
    call.arguments.replace(at, names[i].size(), ArithmeticForm::AnswerName(i));
    calls_[i].isArgument = true;
  }
  return true;
}

// With other calls in the list, its answer is looked through as well.
bool ListCalls::IsPiece(const tessera::Run& run, std::size_t call, std::string_view answer) const {
  if (!calls_[call].isText) return IsWholeNumber(answer);
  if (answer.size() < 2 || !answer.starts_with('"') || !answer.ends_with('"')) return false;
  const std::string_view inner = answer.substr(1, answer.size() - 2);
  if (inner.find_first_of(isWhole_ ? "\"[]" : "\"[]()") != std::string_view::npos) return false;
  if (isWhole_) return true;
  const auto isIn = [&](const ListCall& other) { return Contains(inner, other.name); };
  return std::none_of(calls_.begin(), calls_.end(), isIn) && !run.functionTable.FirstCalledIn(inner);
}

bool ListCalls::Run(tessera::Run& run, std::size_t places, bool splitAtEqual,
                    std::vector<std::string>& parts) const {
  std::vector<std::string> answers;
  for (std::size_t i = 0; i < calls_.size(); ++i) {
    const ListCall& call = calls_[i];
    answers.push_back(call.form->Run(run, answers).ToText());
    const bool restIsLost = call.mayLoseRest && run.variables.VarFind(call.form->arguments()) != -1;
    if (restIsLost || !run.variables.SymbolsTellAll() || !IsPiece(run, i, answers[i])) {
      parts = CutByRules(run, answers, restIsLost, places, splitAtEqual);
      return false;
    }
  }
  for (std::size_t i = 0; i < calls_.size(); ++i) {
    if (!calls_[i].isArgument) parts[calls_[i].place] = std::move(answers[i]);
  }
  return true;
}

std::vector<std::string> ListCalls::CutByRules(tessera::Run& run, const std::vector<std::string>& answers,
                                               bool restIsLost, std::size_t places, bool splitAtEqual) const {
  std::string text(Trim(StripParens(text_)));
  for (std::size_t i = 0; i < answers.size(); ++i) {
    const bool isLast = i + 1 == answers.size();
    text = WithAnswer(text, *FindFunction(run, text), answers[i], false, isLast && restIsLost);
  }
  ReplaceListFunctions(run, text, false, static_cast<int>(answers.size()));
  return CutList(text, places, splitAtEqual);
}

}  // namespace tessera
