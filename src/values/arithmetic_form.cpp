#include "values/arithmetic_form.h"

#include <cmath>
#include <limits>

namespace tessera {

namespace {

constexpr double kMostExact = 1e15;
constexpr double kLeastWithoutExponent = 1e-4;

// Whether a remainder takes the number. The rule takes it behind its sign, without which the least one is too
// large.
bool IsInteger(std::int64_t number) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return number >= -kMost && number <= kMost;
}

}  // namespace

bool ArithmeticForm::ReadWhole(VariableStore& store, const Row& row, const Answers& answers,
                               std::int64_t& value) {
  if (row.source == Source::Constant) {
    value = static_cast<std::int64_t>(row.number);
    return true;
  }
  if (row.source == Source::Answer) {
    const double answer = answers[row.answer];
    value = static_cast<std::int64_t>(answer);
    return answer == static_cast<double>(value) && (answer >= 0 || row.mayBeNegative);
  }
  const std::int32_t* integer = row.name.Integer(store);
  if (integer == nullptr || (*integer < 0 && !row.mayBeNegative)) return false;
  value = *integer;
  return true;
}

bool ArithmeticForm::EvaluateWhole(VariableStore& store, std::int64_t& result, const Answers& answers) const {
  constexpr auto kMost = static_cast<std::int64_t>(kMostExact);
  std::array<std::int64_t, kMostLevels> stack;
  std::size_t height = 0;
  std::int64_t accumulator = 0;
  for (const Row& row : rows_) {
    if (row.operation == Operation::Push) {
      stack[height++] = accumulator;
      continue;
    }
    std::int64_t left = accumulator;
    std::int64_t right = accumulator;
    if (row.source == Source::Stack) {
      left = stack[--height];
    } else if (!ReadWhole(store, row, answers, right)) {
      return false;
    }
    switch (row.operation) {
      case Operation::Load:
        accumulator = right;
        break;
      case Operation::Add:
        accumulator = left + right;
        break;
      case Operation::Subtract:
        accumulator = left - right;
        break;
      case Operation::Multiply:
        if (__builtin_mul_overflow(left, right, &accumulator)) return false;
        break;
      default:
        if (right == 0 || !IsInteger(left) || !IsInteger(right)) return false;
        accumulator = left % right;
        break;
    }
    if (accumulator > kMost || accumulator < -kMost) return false;
  }
  result = accumulator;
  return true;
}

bool ArithmeticForm::ReadFloat(VariableStore& store, RoundingMemo& memo, const Row& row,
                               const Answers& answers, double& value) {
  if (row.source == Source::Constant) {
    value = row.number;
    return true;
  }
  if (row.source == Source::Answer) {
    value = answers[row.answer];
  } else if (const std::int32_t* integer = row.name.Integer(store)) {
    value = *integer;
  } else if (const double* decimal = row.name.Decimal(store)) {
    value = memo.Rounded(*decimal);
    // Beyond these the value's text has an exponent, which the parser refuses.
    const double magnitude = std::fabs(value);
    if (magnitude != 0 && !(magnitude >= kLeastWithoutExponent && magnitude < kMostExact)) return false;
  } else {
    return false;
  }
  return value >= 0 || row.mayBeNegative;
}

bool ArithmeticForm::EvaluateFloat(VariableStore& store, RoundingMemo& memo, double& result,
                                   const Answers& answers) const {
  std::array<double, kMostLevels> stack;
  std::size_t height = 0;
  double accumulator = 0;
  for (const Row& row : rows_) {
    if (row.operation == Operation::Push) {
      stack[height++] = accumulator;
      continue;
    }
    double left = accumulator;
    double right = accumulator;
    if (row.source == Source::Stack) {
      left = stack[--height];
    } else if (!ReadFloat(store, memo, row, answers, right)) {
      return false;
    }
    switch (row.operation) {
      case Operation::Load:
        accumulator = right;
        break;
      case Operation::Add:
        accumulator = left + right;
        break;
      case Operation::Subtract:
        accumulator = left - right;
        break;
      case Operation::Multiply:
        accumulator = left * right;
        break;
      case Operation::Divide:
        if (right == 0) return false;
        accumulator = left / right;
        break;
      case Operation::Modulo: {
        constexpr double kMost = 2147483647;
        const double a = RoundHalfEven(left);
        const double b = RoundHalfEven(right);
        if (std::fabs(a) > kMost || std::fabs(b) > kMost || b == 0) return false;
        accumulator = static_cast<double>(static_cast<std::int64_t>(a) % static_cast<std::int64_t>(b));
        break;
      }
      default:
        accumulator = std::pow(left, right);
        break;
    }
    if (!std::isfinite(accumulator)) return false;
  }
  constexpr double kLeast = 1e-8;
  const double magnitude = std::fabs(accumulator);
  if (magnitude != 0 && !(magnitude >= kLeast && magnitude < kMostExact)) return false;
  result = memo.Rounded(accumulator) + 0.0;  // zero has no sign
  // 999999999999999.9 is rounded up to where texts have exponents.
  return std::fabs(result) < kMostExact;
}

}  // namespace tessera
