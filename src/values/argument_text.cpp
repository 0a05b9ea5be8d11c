#include "values/argument_text.h"

#include "language/words.h"
#include "platform/failure.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera {

void ArgumentForms::CutFirst(Run& run, std::size_t places, bool splitAtEqual) {
  state_ = State::Never;
  if (HoldsCallOf(trait::kTakesCommas, StripParens(text_))) return;
  const auto failure = Guard([&] { parts_ = SplitArguments(run, text_, places, splitAtEqual, false); });
  if (failure) return;
  while (!parts_.empty() && parts_.back().empty()) parts_.pop_back();
  parts_.shrink_to_fit();
  if (run.variables.HasFrames()) {
    for (const std::string& part : parts_) {
      auto numbers = run.variables.FindNumbers(part);
      if (!numbers) return;
      numbers_.push_back(*std::move(numbers));
    }
  }
  terms_.resize(parts_.size());
  state_ = State::Cut;
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
