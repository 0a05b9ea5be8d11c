#include "values/argument_text.h"

#include <algorithm>

#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "values/list_calls.h"
#include "values/parens.h"

namespace tessera {

ArgumentForms::ArgumentForms(std::string_view text) : text_(text) {}
ArgumentForms::~ArgumentForms() = default;

void ArgumentForms::CutFirst(Run& run, std::size_t places, bool splitAtEqual) {
  state_ = State::Never;
  if (!run.variables.FindNumbers(text_)) return;
  const bool behindCalls = HoldsCallOf(trait::kTakesCommas, StripParens(text_));
  if (behindCalls) {
    calls_ = ListCalls::Of(run, text_, places, splitAtEqual, parts_);
    if (calls_ == nullptr) return;
  } else {
    const auto failure = Guard([&] { parts_ = SplitArguments(run, text_, places, splitAtEqual, false); });
    if (failure) return;
    while (!parts_.empty() && parts_.back().empty()) parts_.pop_back();
  }
  if (!FindAnswers() || (behindCalls && !answers_.empty())) return;
  parts_.shrink_to_fit();
  if (run.variables.HasFrames()) {
    for (const std::string& part : parts_) numbers_.push_back(*run.variables.FindNumbers(part));
  }
  terms_.resize(parts_.size());
  state_ = behindCalls || !answers_.empty() ? State::CutBehindCalls : State::Cut;
}

// Empties the places of the answers. False where one is only a part of its place.
bool ArgumentForms::FindAnswers() {
  for (std::size_t i = 0; i < ArithmeticForm::kMostAnswers; ++i) {
    const std::string name = ArithmeticForm::AnswerName(i);
    const auto part =
        std::ranges::find_if(parts_, [&](const std::string& text) { return Contains(text, name); });
    if (part == parts_.end()) continue;
    if (*part != name) return false;
    answers_.emplace_back(part - parts_.begin(), i);
    part->clear();
  }
  return true;
}

std::optional<std::size_t> ArgumentForms::PiecesBehindCalls(Run& run, std::size_t places, bool splitAtEqual) {
  if (state_ == State::Uncut) CutFirst(run, places, splitAtEqual);
  if (state_ != State::CutBehindCalls) return std::nullopt;
  const auto empty = static_cast<std::size_t>(std::ranges::count(parts_, std::string()));
  const bool isFull = empty == answers_.size() + (calls_ == nullptr ? 0 : calls_->pieces());
  return isFull ? std::optional(parts_.size()) : std::nullopt;
}

std::optional<bool> ArgumentForms::CutBehindCalls(Run& run, std::size_t places, bool splitAtEqual,
                                                  std::span<const std::string> answers,
                                                  std::vector<std::string>& parts) const {
  if (state_ != State::CutBehindCalls) return std::nullopt;
  RenewNumbers();
  parts = parts_;
  for (const auto& [place, answer] : answers_) parts[place] = answers[answer];
  return calls_ == nullptr || calls_->Run(run, places, splitAtEqual, parts);
}

const TermForm& ArgumentForms::MakeTerm(Run& run, std::size_t place) {
  terms_[place] = std::make_unique<const TermForm>(run, parts_[place]);
  return *terms_[place];
}

bool ArgumentForms::FindNoFunction(const Run& run) const {
  return !run.programFunctions.FirstCalledIn(StripParens(text_));
}

}  // namespace tessera
