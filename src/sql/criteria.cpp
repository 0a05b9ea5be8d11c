#include "sql/criteria.h"

#include <array>
#include <optional>
#include <utility>

#include "sql/sql_error.h"
#include "text/date.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::sql {

namespace {

[[noreturn]] void FailCriteria(std::string_view text) {
  throw SqlError(std::string("Critério inválido: "_w).append(text));
}

bool IsWildcard(char c) {
  return c == '*' || c == '%';
}

bool IsNumber(const SqlValue& field) {
  return field.kind == Kind::Integer || field.kind == Kind::Real || field.kind == Kind::Decimal;
}

bool IsDate(const SqlValue& field) {
  return field.kind == Kind::Date || field.kind == Kind::Stamp;
}

// A date as programs write it, or as files of databases hold it in texts.
std::optional<DateTime> MomentOf(const std::string& text) {
  if (const auto date = ReadDate(text)) return date;
  return ReadDate(FieldValue(SqlValue::Of(Kind::Stamp, text)).ToText());
}

template <typename T>
std::optional<int> Order(const std::optional<T>& a, const std::optional<T>& b) {
  if (!a || !b) return std::nullopt;
  return *a < *b ? -1 : *b < *a ? 1 : 0;
}

std::optional<double> NumberOf(const Value& value) {
  return value.AsText() != nullptr ? WholeNumber(*value.AsText()) : std::optional(value.ToDouble());
}

}  // namespace

Criteria::Criteria(std::string_view text) {
  const std::string_view all = Trim(text);
  std::string_view rest = all;
  if (rest.starts_with('[')) {
    const std::size_t close = rest.find(']');
    if (close == std::string_view::npos) FailCriteria(all);
    column_ = rest.substr(1, close - 1);
    rest = Trim(rest.substr(close + 1));
  } else {
    const std::size_t end = std::min(rest.find_first_of(" =<>"), rest.size());
    column_ = rest.substr(0, end);
    rest = Trim(rest.substr(end));
  }
  constexpr std::array<std::pair<std::string_view, Operator>, 7> kOperators = {{{"<>", Operator::Different},
                                                                                {"<=", Operator::AtMost},
                                                                                {">=", Operator::AtLeast},
                                                                                {"=", Operator::Equal},
                                                                                {"<", Operator::Less},
                                                                                {">", Operator::Greater},
                                                                                {"LIKE", Operator::Like}}};
  for (const auto& [word, meaning] : kOperators) {
    if (Upper(Left(rest, word.size())) != word) continue;
    operator_ = meaning;
    ReadOperand(Trim(rest.substr(word.size())));
    if (column_.empty() || (operator_ == Operator::Like && operand_ != Operand::Text)) FailCriteria(all);
    return;
  }
  FailCriteria(all);
}

void Criteria::ReadOperand(std::string_view text) {
  const bool framed = text.size() >= 2 && text.front() == text.back();
  if (framed && text.front() == '\'') {
    std::string content;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
      content.push_back(text[i]);
      if (text[i] != '\'') continue;
      if (text[i + 1] != '\'' || i + 2 == text.size()) FailCriteria(text);
      ++i;
    }
    operand_ = Operand::Text;
    value_ = std::move(content);
  } else if (framed && text.front() == '#') {
    operand_ = Operand::Date;
    value_ = text.substr(1, text.size() - 2);
    if (!ReadDate(value_.ToText())) FailCriteria(text);
  } else {
    // "." is the decimal mark where it is the only mark, as in the statements of databases.
    const bool pointed = text.find(',') == std::string_view::npos;
    const auto number = WholeNumber(pointed ? Replace(text, '.', ',') : std::string(text));
    if (!number) FailCriteria(text);
    operand_ = Operand::Number;
    value_ = *number;
  }
}

bool Criteria::FitsOrder(int order) const {
  switch (operator_) {
    case Operator::Equal:
      return order == 0;
    case Operator::Different:
      return order != 0;
    case Operator::Less:
      return order < 0;
    case Operator::Greater:
      return order > 0;
    case Operator::AtMost:
      return order <= 0;
    case Operator::AtLeast:
      return order >= 0;
    case Operator::Like:
      break;
  }
  return false;
}

bool Criteria::FitsLike(const std::string& text) const {
  const std::string pattern = Upper(value_.ToText());
  const std::string upper = Upper(text);
  const bool open = !pattern.empty() && IsWildcard(pattern.front());
  const bool openEnd = pattern.size() > (open ? 1u : 0u) && IsWildcard(pattern.back());
  const std::string_view core =
      std::string_view(pattern).substr(open ? 1 : 0, pattern.size() - (open ? 1 : 0) - (openEnd ? 1 : 0));
  if (open && openEnd) return Contains(upper, core);
  if (open) return upper.ends_with(core);
  if (openEnd) return upper.starts_with(core);
  return upper == core;
}

bool Criteria::Fits(const SqlValue& field) const {
  if (field.kind == Kind::Null) return false;
  const Value shown = FieldValue(field);
  const std::string text = shown.ToText();
  if (operator_ == Operator::Like) return FitsLike(text);
  std::optional<int> order;
  if (operand_ == Operand::Date || IsDate(field)) {
    order = Order(MomentOf(text), MomentOf(value_.ToText()));
  } else if (operand_ == Operand::Number || IsNumber(field)) {
    order = Order(NumberOf(shown), NumberOf(value_));
  } else {
    order = CompareText(text, value_.ToText());
  }
  return order && FitsOrder(*order);
}

}  // namespace tessera::sql
