#include "values/condition_form.h"

#include <array>

#include "platform/failure.h"
#include "text/one_based.h"

namespace tessera {

ConditionForm::ConditionForm(Run& run, std::string_view text) {
  Condition condition = SplitCondition(text);
  const auto entry = [](const std::vector<std::string_view>& list, std::size_t i) {
    return i < list.size() ? list[i] : std::string_view{};
  };
  for (std::size_t i = 0; !entry(condition.terms, i).empty(); i += 2) {
    const std::string_view word = entry(condition.operators, i / 2);
    comparisons_.push_back({TermForm(run, condition.terms[i]), TermForm(run, entry(condition.terms, i + 1)),
                            AskedBy(word), word});
  }
  connectives_ = std::move(condition.connectives);
  const bool isSingle = comparisons_.size() == 1 && connectives_.empty();
  if (isSingle && comparisons_[0].asked != 0) single_ = comparisons_.data();
}

ConditionForm::Asked ConditionForm::AskedBy(std::string_view word) {
  if (word == "=") return kEqual;
  if (word == "<") return kLess;
  if (word == ">") return kGreater;
  if (word == "<>") return kLess | kGreater;
  if (word == ">=") return kGreater | kEqual;
  if (word == "<=") return kLess | kEqual;
  return 0;
}

std::string_view ConditionForm::Outcome(Run& run, const Comparison& comparison) {
  const Reading left = comparison.left.Read(run);
  const Reading right = comparison.right.Read(run);
  const auto isNumber = [](const Reading& reading) {
    return reading.kind == Reading::Kind::Whole || reading.kind == Reading::Kind::Float;
  };
  if (comparison.asked != 0) {
    const auto word = [&](bool less, bool equal) {
      return Holds(comparison.asked, less, equal) ? kTrue : kFalse;
    };
    if (isNumber(left) && isNumber(right))
      return word(left.number < right.number, left.number == right.number);
    if (left.kind == Reading::Kind::Text && right.kind == Reading::Kind::Text) {
      const int order = CompareText(left.text, right.text);
      return word(order < 0, order == 0);
    }
  }
  const Value first = comparison.left.Evaluate(run);
  const Value second = comparison.right.Evaluate(run);
  return CompareTerms(comparison.word, first, second);
}

bool ConditionForm::Holds(Run& run) const {
  if (single_ != nullptr) return Outcome(run, *single_) == kTrue;
  std::array<std::string_view, kMostComparisons> results;
  std::size_t count = 0;
  for (const Comparison& comparison : comparisons_) {
    const std::string_view outcome = Outcome(run, comparison);
    if (count == results.size()) FailSubscript();
    results[count++] = outcome;
  }
  return CombineConditions(connectives_, std::span(results).first(count)) == kTrue;
}

}  // namespace tessera
