// FAST: a condition whose text never changes: its terms as forms, its operators as what they ask.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "values/conditions.h"
#include "values/run.h"
#include "values/term_form.h"

namespace tessera {

class ConditionForm {
 public:
  // `text` outlives the form. Failure 9 as `SplitCondition` has it.
  ConditionForm(Run& run, std::string_view text);

  // True where `EvaluateCondition` gives "TRUE".
  bool Holds(Run& run) const;

  // The same in `holds`, where two whole numbers are compared and symbols tell of them. False for any other.
  bool CompareWhole(VariableStore& store, bool& holds) const {
    std::int64_t left = 0;
    std::int64_t right = 0;
    if (single_ == nullptr || !single_->left.ReadWhole(store, left) ||
        !single_->right.ReadWhole(store, right)) {
      return false;
    }
    holds = Holds(single_->asked, left < right, left == right);
    return true;
  }

 private:
  // Which of the three outcomes of a comparison an operator is content with.
  using Asked = std::uint8_t;
  static constexpr Asked kLess = 1;
  static constexpr Asked kEqual = 2;
  static constexpr Asked kGreater = 4;

  struct Comparison {
    TermForm left, right;
    Asked asked = 0;  // nothing, where only the rules know
    std::string_view word;
  };

  static Asked AskedBy(std::string_view word);
  static bool Holds(Asked asked, bool less, bool equal) {
    return (asked & (less ? kLess : equal ? kEqual : kGreater)) != 0;
  }

  static std::string_view Outcome(Run& run, const Comparison& comparison);

  std::vector<Comparison> comparisons_;
  std::vector<std::string_view> connectives_;
  // The only one, with no connective, where its operator is known.
  const Comparison* single_ = nullptr;
};

}  // namespace tessera
