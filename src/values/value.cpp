#include "values/value.h"

#include <cmath>
#include <limits>

#include "platform/failure.h"

namespace tessera {

namespace {

double NumberOf(std::string_view text) {
  const auto number = WholeNumber(text);
  if (!number) FailType();
  return *number;
}

Value AddNumbers(const Value& left, const Value& right, bool subtract) {
  // Integers stay integers while the result fits; a float makes a float; else exact decimals stay exact.
  const auto isInteger = [](const Value& v) { return v.AsInteger() != nullptr || v.IsEmpty(); };
  if (isInteger(left) && isInteger(right)) {
    const std::int64_t a = left.ToInteger();
    const std::int64_t b = right.ToInteger();
    const std::int64_t sum = subtract ? a - b : a + b;
    if (sum >= std::numeric_limits<std::int32_t>::min() && sum <= std::numeric_limits<std::int32_t>::max()) {
      return static_cast<std::int32_t>(sum);
    }
    return static_cast<double>(sum);
  }
  const auto isExact = [&](const Value& v) { return v.AsDecimal() != nullptr || isInteger(v); };
  if (isExact(left) && isExact(right)) {
    const auto exact = [](const Value& v) {
      return v.AsDecimal() ? *v.AsDecimal() : ExactDecimal::FromInteger(v.ToInteger());
    };
    const auto sum = ExactDecimal::Add(exact(left), subtract ? exact(right).Negated() : exact(right));
    if (!sum) FailOverflow();
    return *sum;
  }
  const double sum = subtract ? left.ToDouble() - right.ToDouble() : left.ToDouble() + right.ToDouble();
  if (!std::isfinite(sum)) FailOverflow();
  return sum;
}

}  // namespace

std::int32_t RoundToInteger(double number) {
  const double rounded = RoundHalfEven(number);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    FailOverflow();
  }
  return static_cast<std::int32_t>(rounded);
}

std::string Value::ToText() const& {
  if (const auto* text = AsText()) return *text;
  if (const auto* integer = AsInteger()) return NumberText(*integer);
  if (const auto* number = AsDouble()) return NumberText(*number);
  if (const auto* decimal = AsDecimal()) return decimal->ToText();
  return {};
}

double Value::ToDouble() const {
  if (const auto* text = AsText()) return NumberOf(*text);
  if (const auto* integer = AsInteger()) return *integer;
  if (const auto* number = AsDouble()) return *number;
  if (const auto* decimal = AsDecimal()) return decimal->ToDouble();
  return 0;
}

std::int32_t Value::ToInteger() const {
  if (const auto* integer = AsInteger()) return *integer;
  return RoundToInteger(ToDouble());
}

std::int16_t Value::ToShort() const {
  const std::int32_t integer = ToInteger();
  if (integer < std::numeric_limits<std::int16_t>::min() ||
      integer > std::numeric_limits<std::int16_t>::max()) {
    FailOverflow();
  }
  return static_cast<std::int16_t>(integer);
}

bool Value::IsNumeric() const {
  const auto* text = AsText();
  return text == nullptr || tessera::IsNumeric(*text);
}

Value AddValues(const Value& left, const Value& right) {
  if (left.IsText() && right.IsText()) return *left.AsText() + *right.AsText();
  if (left.IsEmpty() && right.IsText()) return right;
  if (left.IsText() && right.IsEmpty()) return left;
  return AddNumbers(left, right, false);
}

Value SubtractValues(const Value& left, const Value& right) {
  return AddNumbers(left, right, true);
}

}  // namespace tessera
