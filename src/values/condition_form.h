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
  bool Holds(Run& run) const {
    std::int64_t left = 0;
    std::int64_t right = 0;
    if (isSingle_ && run.variables.SymbolsTellAll() && comparisons_[0].left.ReadWhole(run.variables, left) &&
        comparisons_[0].right.ReadWhole(run.variables, right)) {
      return Compare(comparisons_[0].asked, left < right, left == right);
    }
    return HoldsByTerms(run);
  }

 private:
  enum class Asked : std::uint8_t { Equal, Less, Greater, Unequal, AtLeast, AtMost, Nothing };

  struct Comparison {
    TermForm left, right;
    Asked asked = Asked::Nothing;
    std::string_view word;
  };

  static Asked AskedBy(std::string_view word);
  static bool Compare(Asked asked, bool less, bool equal) {
    switch (asked) {
      case Asked::Equal:
        return equal;
      case Asked::Less:
        return less;
      case Asked::Greater:
        return !less && !equal;
      case Asked::Unequal:
        return !equal;
      case Asked::AtLeast:
        return !less;
      case Asked::AtMost:
        return less || equal;
      default:
        return false;
    }
  }

  bool HoldsByTerms(Run& run) const;
  static std::string_view Outcome(Run& run, const Comparison& comparison);

  std::vector<Comparison> comparisons_;
  std::vector<std::string_view> connectives_;
  bool isSingle_ = false;  // one comparison, no connective
};

}  // namespace tessera
