// Numbers as text, and text as numbers, in the fixed Brazilian setting: decimal ",", group ".".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

// An exact decimal as arithmetic yields it: coefficient / 10^scale, with 0 <= scale <= 28 and a value within
// the range of 96-bit decimals. It is always in lowest terms (no trailing zero behind the mark).
class ExactDecimal {
 public:
  ExactDecimal() = default;

  // The value rounded to 15 significant digits and to at most 28 places.
  // Nothing where its magnitude is above the decimals' range (about 7.9E+28), or where it is no number.
  static std::optional<ExactDecimal> FromDouble(double value);

  static ExactDecimal FromInteger(std::int64_t value) { return ExactDecimal(value, 0); }

  double ToDouble() const;

  // The value where it is whole and below 1e15 in magnitude; else false.
  bool ToWhole(std::int64_t& whole) const {
    constexpr Coefficient kMost = 1'000'000'000'000'000;
    if (scale_ != 0 || coefficient_ <= -kMost || coefficient_ >= kMost) return false;
    whole = static_cast<std::int64_t>(coefficient_);
    return true;
  }

  // Positional form, without exponent: "-0,00000015".
  std::string ToText() const;

  // Rounded to `places` (0 or more) behind the mark, ties to even.
  ExactDecimal RoundedTo(int places) const;

  // Exact sum; nothing where it leaves the decimals' range.
  static std::optional<ExactDecimal> Add(const ExactDecimal& a, const ExactDecimal& b);
  ExactDecimal Negated() const { return ExactDecimal(-coefficient_, scale_); }

  bool operator==(const ExactDecimal&) const = default;

 private:
  __extension__ using Coefficient = __int128;
  ExactDecimal(Coefficient coefficient, int scale) : coefficient_(coefficient), scale_(scale) {}
  static std::optional<ExactDecimal> Normalised(Coefficient coefficient, int scale);

  Coefficient coefficient_ = 0;
  int scale_ = 0;
};

// The value rounded to 15 significant digits, ties to even on the decimal expansion.
double RoundTo15Digits(double value);
// The plain form of it, for any finite value: the digits are written, and read again.
double RoundTo15DigitsByText(double value);

// A float as C's "%.15G" prints it, with "," as decimal mark: "0,1", "1E+15", "1,5E-05".
std::string NumberText(double value);
std::string NumberText(std::int32_t value);

// The number rule: blanks, a sign, digits and one ".", up to the first other character; otherwise 0.
double LeadingNumber(std::string_view text);

// The whole text as a number: blanks around it, a sign, "." as group mark wherever it stands, one "," as
// decimal mark, an exponent. Nothing for every other text. The platform's numeric test is this having a
// value.
std::optional<double> WholeNumber(std::string_view text);

inline bool IsNumeric(std::string_view text) {
  return WholeNumber(text).has_value();
}

// To nearest, ties to even.
double RoundHalfEven(double value);

}  // namespace tessera
