#include "values/conditions.h"

#include <compare>

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/eval.h"

namespace tessera {

namespace {

constexpr std::size_t kTermPlaces = 51;

// A connective or relational operator found at a place of a condition's text; empty if there is none.
struct Mark {
  std::string_view word;
  bool connective = false;
};

Mark MarkAt(std::string_view text, std::size_t i) {
  const char c = text[i];
  const char previous = i == 0 ? '\0' : text[i - 1];
  const char next = i + 1 < text.size() ? text[i + 1] : '\0';
  if (c == 'E' && previous == ' ' && next == ' ') return {text.substr(i, 1), true};
  // KEPT: "OU" needs no blanks and cuts a name that holds it (Conditions.OuCutsAName).
  if (c == 'O' && next == 'U') return {text.substr(i, 2), true};
  const std::string_view pair = text.substr(i, 2);
  if (pair == "<>" || pair == "<=" || pair == ">=") return {pair, false};
  if (c == '<' || c == '>' || c == '=') return {text.substr(i, 1), false};
  return {};
}

std::partial_ordering Order(const Value& left, const Value& right) {
  const bool leftText = left.IsText();
  const bool rightText = right.IsText() || (leftText && right.IsEmpty());
  if (leftText && rightText) return CompareText(left.ToText(), right.ToText()) <=> 0;
  // A number against a text is the lesser.
  if (leftText) return std::partial_ordering::greater;
  if (rightText) return std::partial_ordering::less;
  return left.ToDouble() <=> right.ToDouble();
}

}  // namespace

Condition SplitCondition(std::string_view text) {
  text = Trim(text);
  Condition condition;
  std::size_t begin = 0;
  const auto endTerm = [&](std::size_t end) {
    if (condition.terms.size() == kTermPlaces) FailSubscript();
    condition.terms.push_back(Trim(text.substr(begin, end - begin)));
  };
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] == '"') {
      const std::size_t close = text.find('"', i + 1);
      i = close == std::string_view::npos ? text.size() : close + 1;
      if (i == text.size()) break;
    }
    const Mark mark = MarkAt(text, i);
    if (mark.word.empty()) {
      ++i;
      continue;
    }
    (mark.connective ? condition.connectives : condition.operators).push_back(mark.word);
    endTerm(i);
    i += mark.word.size();
    begin = i;
  }
  endTerm(text.size());
  return condition;
}

std::string_view CompareTerms(std::string_view comparison, const Value& left, const Value& right) {
  // KEPT: only a left side that is no text converts the other side, so that `5 = "5"` holds and `"5" = 5`
  // does not (Conditions.OnlyANumberOnTheLeftConverts).
  const bool convert = !left.IsText();
  const Value a = convert && left.IsNumeric() ? Value(left.ToDouble()) : left;
  const Value b = convert && right.IsNumeric() ? Value(right.ToDouble()) : right;
  const std::partial_ordering order = Order(a, b);
  const auto word = [](bool holds) { return holds ? kTrue : kFalse; };
  if (comparison == "=") return word(std::is_eq(order));
  if (comparison == "<") return word(std::is_lt(order));
  if (comparison == ">") return word(std::is_gt(order));
  if (comparison == "<>") return word(std::is_neq(order));
  if (comparison == ">=") return word(std::is_gteq(order));
  if (comparison == "<=") return word(std::is_lteq(order));
  return {};
}

std::string_view CombineConditions(const std::vector<std::string_view>& connectives,
                                   std::span<const std::string_view> results) {
  const auto result = [&](std::size_t i) { return i < results.size() ? results[i] : std::string_view{}; };
  std::string_view word = result(0);
  for (std::size_t k = 0; k < connectives.size(); ++k) {
    if (connectives[k] == "OU" && result(k + 1) == kTrue) word = kTrue;
    if (connectives[k] == "E" && result(k + 1) == kFalse) word = kFalse;
  }
  return word;
}

std::string_view EvaluateCondition(Run& run, const Condition& condition) {
  std::vector<std::string_view> results;
  const auto entry = [](const std::vector<std::string_view>& list, std::size_t i) {
    return i < list.size() ? list[i] : std::string_view{};
  };
  // Of a pair only the left term must be there: the right one may be an empty text.
  for (std::size_t i = 0; !entry(condition.terms, i).empty(); i += 2) {
    const Value left = EvalNumber(run, condition.terms[i]);
    const Value right = EvalNumber(run, entry(condition.terms, i + 1));
    if (results.size() == kMostComparisons) FailSubscript();
    results.push_back(CompareTerms(entry(condition.operators, results.size()), left, right));
  }
  return CombineConditions(condition.connectives, results);
}

}  // namespace tessera
