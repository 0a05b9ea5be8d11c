#include "values/arithmetic_form.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera {

namespace {

constexpr double kLeastWithoutExponent = 1e-4;

// Whether a remainder takes the number. The rule takes it behind its sign, without which the least one is too
// large.
bool IsInteger(std::int64_t number) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return number >= -kMost && number <= kMost;
}

}  // namespace

inline ArithmeticForm::Outcome ArithmeticForm::ReadWhole(Integers& integers, const Row& row,
                                                         const Answers& answers, std::int64_t& value) {
  if (row.source == Source::Constant) {
    value = static_cast<std::int64_t>(row.number);
    return Outcome::Done;
  }
  if (row.source == Source::Answer) {
    const double answer = answers[row.answer];
    value = static_cast<std::int64_t>(answer);
    if (answer != static_cast<double>(value)) return Outcome::GivenUp;
  } else {
    const std::int32_t* integer = row.name.Integer(integers);
    if (integer == nullptr) return Outcome::GivenUp;
    value = *integer;
  }
  const std::int64_t sign = row.isNegative ? -1 : 0;
  value = (value ^ sign) - sign;  // turned round where all bits of the sign are set
  return value < -sign ? Outcome::OtherSigns : Outcome::Done;
}

ArithmeticForm::Outcome ArithmeticForm::ComputeWhole(VariableStore& store, std::int64_t& result,
                                                     const Answers& answers) const {
  constexpr auto kMost = static_cast<std::int64_t>(kMostExact);
  Integers& integers = store.Integers();
  std::array<std::int64_t, kMostLevels> stack;
  std::size_t height = 0;
  std::int64_t accumulator = 0;
  for (const Row& row : reading_.rows) {
    std::int64_t left = accumulator;
    std::int64_t right = accumulator;
    if (row.source == Source::Stack) {
      left = stack[--height];
    } else if (const Outcome read = ReadWhole(integers, row, answers, right); read != Outcome::Done) {
      return read;
    }
    switch (row.operation) {
      case Operation::PushAndLoad:
        stack[height++] = accumulator;
        [[fallthrough]];
      case Operation::Load:
        accumulator = right;
        continue;
      case Operation::Add:
        accumulator = left + right;
        break;
      case Operation::Subtract:
        accumulator = left - right;
        break;
      case Operation::Multiply:
        if (__builtin_mul_overflow(left, right, &accumulator)) return Outcome::GivenUp;
        break;
      default:
        if (right == 0 || !IsInteger(left) || !IsInteger(right)) return Outcome::GivenUp;
        accumulator = left % right;
        continue;
    }
    if (accumulator > kMost || accumulator < -kMost) return Outcome::GivenUp;
  }
  result = accumulator;
  return Outcome::Done;
}

ArithmeticForm::Outcome ArithmeticForm::ReadFloat(VariableStore& store, RoundingMemo& memo, const Row& row,
                                                  const Answers& answers, double& value) {
  if (row.source == Source::Constant) {
    value = row.number;
    return Outcome::Done;
  }
  if (row.source == Source::Answer) {
    value = answers[row.answer];
  } else if (const std::int32_t* integer = row.name.Integer(store)) {
    value = *integer;
  } else if (const double* decimal = row.name.Decimal(store)) {
    value = memo.Rounded(*decimal);
    // Beyond these the value's text has an exponent, which the parser refuses.
    const double magnitude = std::fabs(value);
    if (magnitude != 0 && !(magnitude >= kLeastWithoutExponent && magnitude < kMostExact))
      return Outcome::GivenUp;
  } else {
    return Outcome::GivenUp;
  }
  if ((value < 0) != row.isNegative) return Outcome::OtherSigns;
  if (row.isNegative) value = -value;
  return Outcome::Done;
}

ArithmeticForm::Outcome ArithmeticForm::ComputeFloat(VariableStore& store, RoundingMemo& memo, double& result,
                                                     const Answers& answers) const {
  std::array<double, kMostLevels> stack;
  std::size_t height = 0;
  double accumulator = 0;
  for (const Row& row : reading_.rows) {
    double left = accumulator;
    double right = accumulator;
    if (row.source == Source::Stack) {
      left = stack[--height];
    } else if (const Outcome read = ReadFloat(store, memo, row, answers, right); read != Outcome::Done) {
      return read;
    }
    switch (row.operation) {
      case Operation::PushAndLoad:
        stack[height++] = accumulator;
        [[fallthrough]];
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
        if (right == 0) return Outcome::GivenUp;
        accumulator = left / right;
        break;
      case Operation::Modulo: {
        constexpr double kMost = 2147483647;
        const double a = RoundHalfEven(left);
        const double b = RoundHalfEven(right);
        if (std::fabs(a) > kMost || std::fabs(b) > kMost || b == 0) return Outcome::GivenUp;
        accumulator = static_cast<double>(static_cast<std::int64_t>(a) % static_cast<std::int64_t>(b));
        break;
      }
      default:
        accumulator = std::pow(left, right);
        break;
    }
    if (!std::isfinite(accumulator)) return Outcome::GivenUp;
  }
  constexpr double kLeast = 1e-8;
  const double magnitude = std::fabs(accumulator);
  if (magnitude != 0 && !(magnitude >= kLeast && magnitude < kMostExact)) return Outcome::GivenUp;
  result = memo.Rounded(accumulator) + 0.0;  // zero has no sign
  // 999999999999999.9 is rounded up to where texts have exponents.
  return std::fabs(result) < kMostExact ? Outcome::Done : Outcome::GivenUp;
}

bool ArithmeticForm::EvaluateFloat(VariableStore& store, RoundingMemo& memo, double& result,
                                   const Answers& answers) const {
  const Outcome outcome = ComputeFloat(store, memo, result, answers);
  return outcome == Outcome::Done || (outcome == Outcome::OtherSigns && TakeSigns(store, answers) &&
                                      ComputeFloat(store, memo, result, answers) == Outcome::Done);
}

bool ArithmeticForm::IsNegative(VariableStore& store, const Row& name, const Answers& answers) {
  if (name.source == Source::Answer) return answers[name.answer] < 0;
  if (const std::int32_t* integer = name.name.Integer(store)) return *integer < 0;
  const double* decimal = name.name.Decimal(store);
  return decimal != nullptr && *decimal < 0;
}

// Makes the rows those of the signs that the names have now. False for signs that are left to the parser.
bool ArithmeticForm::TakeSigns(VariableStore& store, const Answers& answers) const {
  constexpr std::size_t kMostReadings = 8;
  Signs negative = 0;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (!IsNegative(store, names_[i], answers)) continue;
    if (i >= kMostSigns) return false;
    negative |= Signs{1} << i;
  }
  auto other = std::ranges::find(others_, negative, &Reading::negative);
  if (other == others_.end()) {
    if (others_.size() + 1 >= kMostReadings) return false;
    other = others_.insert(other, {negative, RowsWith(negative)});
  }
  if (other->rows.empty()) return false;
  std::swap(reading_, *other);
  return true;
}

}  // namespace tessera
