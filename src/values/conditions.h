// Conditions of `Se` and `Enquanto`: cut into terms, compared pair by pair, joined from the left.
// The truth words are the texts "TRUE" and "FALSE"; a condition holds exactly when its final word is "TRUE".
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "values/run.h"
#include "values/value.h"

namespace tessera {

inline constexpr std::string_view kTrue = "TRUE";
inline constexpr std::string_view kFalse = "FALSE";

// A condition's text cut into its parts, which are views of it. A term may be empty; operators and
// connectives are not.
struct Condition {
  std::vector<std::string_view> terms;
  std::vector<std::string_view> operators;
  std::vector<std::string_view> connectives;
};

// A condition has no more comparisons than this.
inline constexpr std::size_t kMostComparisons = 21;

// Failure 9 for more than 51 terms.
Condition SplitCondition(std::string_view text);

// "TRUE", "FALSE", or empty for an operator that is none.
std::string_view CompareTerms(std::string_view comparison, const Value& left, const Value& right);

// The final word of the results, joined by the connectives strictly from the left.
std::string_view CombineConditions(const std::vector<std::string_view>& connectives,
                                   std::span<const std::string_view> results);

// Evaluates every comparison, with its side effects, and joins the results. Failure 9 for more than 21
// comparisons.
std::string_view EvaluateCondition(Run& run, const Condition& condition);

}  // namespace tessera
