#include "values/argument_text.h"

#include "language/words.h"
#include "platform/failure.h"
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
  parts_.shrink_to_fit();
  if (run.variables.HasFrames()) {
    for (const std::string& part : parts_) numbers_.push_back(*run.variables.FindNumbers(part));
  }
  terms_.resize(parts_.size());
  state_ = behindCalls ? State::CutBehindCalls : State::Cut;
}

std::optional<bool> ArgumentForms::CutBehindCalls(Run& run, std::size_t places, bool splitAtEqual,
                                                  std::vector<std::string>& parts) const {
  if (state_ != State::CutBehindCalls) return std::nullopt;
  RenewNumbers();
  parts = parts_;
  return calls_->Run(run, places, splitAtEqual, parts);
}

const TermForm& ArgumentForms::MakeTerm(Run& run, std::size_t place) {
  terms_[place] = std::make_unique<const TermForm>(run, parts_[place]);
  return *terms_[place];
}

bool ArgumentForms::FindNoCalls(Run& run) {
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    if (!TermAt(run, i).IsWithoutCalls()) return false;
  }
  return true;
}

}  // namespace tessera
