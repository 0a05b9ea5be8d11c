// The criterion of `SQL base.tabela.Procure`: `column operator value`, the operators being = <> < > <= >= and
// LIKE, the value a number, a text in single quotes, or a date between "#".
#pragma once

#include <string>
#include <string_view>

#include "sql/sql_value.h"
#include "values/value.h"

namespace tessera::sql {

class Criteria {
 public:
  // Fails with an `SqlError` for a text that is no criterion.
  explicit Criteria(std::string_view text);

  const std::string& Column() const { return column_; }
  // NULL fits no criterion. Letters compare as they stand, LIKE is blind to case.
  bool Fits(const SqlValue& field) const;

 private:
  enum class Operator { Equal, Different, Less, Greater, AtMost, AtLeast, Like };
  enum class Operand { Number, Text, Date };

  void ReadOperand(std::string_view text);
  bool FitsOrder(int order) const;
  bool FitsLike(const std::string& text) const;

  std::string column_;
  Operator operator_ = Operator::Equal;
  Operand operand_ = Operand::Text;
  Value value_;
};

}  // namespace tessera::sql
