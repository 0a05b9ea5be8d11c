#include "text/number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "text/one_based.h"

namespace tessera {

namespace {

constexpr int kMaxScale = 28;
constexpr int kSignificantDigits = 15;
__extension__ using Wide = __int128;

// 2^96 - 1, the largest coefficient of an exact decimal.
constexpr Wide kMaxCoefficient = ((Wide{1} << 96) - 1);

constexpr std::array<Wide, 39> MakePowersOfTen() {
  std::array<Wide, 39> powers{};
  powers[0] = 1;
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}
constexpr std::array<Wide, 39> kPowersOfTen = MakePowersOfTen();

Wide PowerOfTen(int exponent) {
  return kPowersOfTen[static_cast<std::size_t>(exponent)];
}

// A number in at most 15 significant digits: 0.d1d2d3... * 10^exponent, no trailing zero; zero has no digits.
struct ShortDigits {
  bool negative = false;
  std::array<char, kSignificantDigits> digits{};
  int count = 0;
  int exponent = 0;
};

// FAST: the shortest digits that read back as the same float are the 15-digit rounding whenever they are 15
// or fewer, since every decimal of 15 digits survives the way through a float. Else the exact expansion is
// rounded.
ShortDigits DigitsOf(double value) {
  ShortDigits out;
  out.negative = std::signbit(value);
  const double magnitude = std::fabs(value);
  if (magnitude == 0) return out;
  std::array<char, 40> buffer;
  auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific)
          .ptr;
  const auto exponentMark = [&] { return std::find(buffer.data(), end, 'e'); };
  if (exponentMark() - buffer.data() > kSignificantDigits + 1) {
    end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                        std::chars_format::scientific, kSignificantDigits - 1)
              .ptr;
  }
  const char* mark = exponentMark();
  for (const char* c = buffer.data(); c != mark; ++c) {
    if (*c != '.') out.digits[static_cast<std::size_t>(out.count++)] = *c;
  }
  while (out.count > 0 && out.digits[static_cast<std::size_t>(out.count - 1)] == '0') --out.count;
  const char* exponentText = mark + 1;
  if (*exponentText == '+') ++exponentText;
  int exponent = 0;
  std::from_chars(exponentText, end, exponent);
  out.exponent = exponent + 1;
  return out;
}

// The float nearest to digits * 10^scale.
double Assemble(std::string_view digits, int exponent, bool negative) {
  std::string text(digits.empty() ? "0" : digits);
  text += 'e';
  text += std::to_string(exponent);
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) value = exponent > 0 ? HUGE_VAL : 0;
  return negative ? -value : value;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// A magnitude as digits / 10^places, in 15 significant digits.
struct Quotient {
  std::int64_t digits;
  int places;
};

constexpr int kExactPower = 22;  // 10^22 is the largest power of ten that a float holds exactly
constexpr std::array<double, kExactPower + 1> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr std::array<std::uint64_t, kExactPower + 1> MakePowersOfFive() {
  std::array<std::uint64_t, kExactPower + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 5;
  return powers;
}
constexpr std::array<std::uint64_t, kExactPower + 1> kPowersOfFive = MakePowersOfFive();

// FAST: the 15-digit rounding, ties to even, by integers alone: mantissa * 5^places fits 105 bits, and what
// is shifted out of it decides the rounding. Nothing outside 1e-8 <= magnitude < 1e15, and for the mantissas
// that leave nothing to shift.
std::optional<Quotient> QuotientOf(double magnitude) {
  constexpr int kMantissaBits = 52;
  constexpr int kBias = 1075;
  if (!(magnitude >= 1e-8 && magnitude < 1e15)) return std::nullopt;
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const std::uint64_t mantissa =
      (bits & ((std::uint64_t{1} << kMantissaBits) - 1)) | (std::uint64_t{1} << kMantissaBits);
  const int exponent = static_cast<int>(bits >> kMantissaBits) - kBias;
  // The place of the first digit, from the binary exponent, is right or one too low.
  int places = kSignificantDigits - 1 - (((exponent + kMantissaBits) * 1233) >> 12);
  if (places < 0 ||
      (places <= kExactPower && magnitude * kExactPowers[static_cast<std::size_t>(places)] >= 1e15))
    --places;
  if (places < 0 || places > kExactPower) return std::nullopt;
  const int shift = -(exponent + places);
  if (shift <= 0 || shift >= 127) return std::nullopt;
  const Wide product = static_cast<Wide>(mantissa) * kPowersOfFive[static_cast<std::size_t>(places)];
  const Wide rest = product & ((Wide{1} << shift) - 1);
  const Wide half = Wide{1} << (shift - 1);
  auto digits = static_cast<std::int64_t>(product >> shift);
  if (rest > half || (rest == half && digits % 2 != 0)) ++digits;
  return Quotient{digits, places};
}

}  // namespace

std::optional<ExactDecimal> ExactDecimal::Normalised(Coefficient coefficient, int scale) {
  const bool negative = coefficient < 0;
  Coefficient magnitude = negative ? -coefficient : coefficient;
  // Too many digits for the format: give up places, rounding half to even.
  while (scale > 0 && (magnitude > kMaxCoefficient || scale > kMaxScale)) {
    const Coefficient rest = magnitude % 10;
    magnitude /= 10;
    if (rest > 5 || (rest == 5 && magnitude % 2 != 0)) ++magnitude;
    --scale;
  }
  if (magnitude > kMaxCoefficient) return std::nullopt;
  while (scale > 0 && magnitude % 10 == 0) {
    magnitude /= 10;
    --scale;
  }
  return ExactDecimal(negative ? -magnitude : magnitude, scale);
}

std::optional<ExactDecimal> ExactDecimal::FromDouble(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  if (std::fabs(value) < 1e15 && value == std::trunc(value)) {
    return ExactDecimal(static_cast<std::int64_t>(value), 0);
  }
  if (const auto quotient = QuotientOf(std::fabs(value))) {
    return Normalised(value < 0 ? -quotient->digits : quotient->digits, quotient->places);
  }
  const ShortDigits digits = DigitsOf(value);
  std::int64_t coefficient = 0;
  for (int i = 0; i < digits.count; ++i)
    coefficient = coefficient * 10 + (digits.digits[static_cast<std::size_t>(i)] - '0');
  if (digits.negative) coefficient = -coefficient;
  const int scale = digits.count - digits.exponent;
  if (scale <= 0) {
    if (digits.exponent > 29) return std::nullopt;
    return Normalised(Coefficient{coefficient} * PowerOfTen(-scale), 0);
  }
  if (scale > kMaxScale + kSignificantDigits + 1) return ExactDecimal();
  return Normalised(coefficient, scale);
}

double ExactDecimal::ToDouble() const {
  constexpr Coefficient kExactInteger = Coefficient{1} << 53;
  if (scale_ <= kExactPower && coefficient_ <= kExactInteger && coefficient_ >= -kExactInteger) {
    return static_cast<double>(static_cast<std::int64_t>(coefficient_)) /
           static_cast<double>(PowerOfTen(scale_));
  }
  const bool negative = coefficient_ < 0;
  Coefficient rest = negative ? -coefficient_ : coefficient_;
  std::string digits;
  for (; rest != 0; rest /= 10)
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
  return Assemble(digits, -scale_, negative);
}

std::string ExactDecimal::ToText() const {
  const bool negative = coefficient_ < 0;
  Coefficient rest = negative ? -coefficient_ : coefficient_;
  std::string reversed;
  int written = 0;
  while (rest != 0 || written <= scale_) {
    if (written == scale_ && scale_ != 0) reversed.push_back(',');
    reversed.push_back(static_cast<char>('0' + static_cast<int>(rest % 10)));
    rest /= 10;
    ++written;
  }
  if (negative) reversed.push_back('-');
  return {reversed.rbegin(), reversed.rend()};
}

ExactDecimal ExactDecimal::RoundedTo(int places) const {
  if (scale_ <= places) return *this;
  const Coefficient unit = PowerOfTen(scale_ - places);
  const Coefficient magnitude = coefficient_ < 0 ? -coefficient_ : coefficient_;
  Coefficient rounded = magnitude / unit;
  const Coefficient rest = magnitude % unit;
  if (rest > unit - rest || (rest == unit - rest && rounded % 2 != 0)) ++rounded;
  return *Normalised(coefficient_ < 0 ? -rounded : rounded, places);
}

std::optional<ExactDecimal> ExactDecimal::Add(const ExactDecimal& a, const ExactDecimal& b) {
  const ExactDecimal& fine = a.scale_ >= b.scale_ ? a : b;
  const ExactDecimal& coarse = a.scale_ >= b.scale_ ? b : a;
  int scale = fine.scale_;
  Coefficient fineCoefficient = fine.coefficient_;
  const auto fits = [&](int places) {
    const Coefficient limit = (Coefficient{1} << 125) / PowerOfTen(places);
    return coarse.coefficient_ <= limit && coarse.coefficient_ >= -limit;
  };
  // Places far below the other number's last digit can't reach the sum's 29 digits.
  while (!fits(scale - coarse.scale_)) {
    fineCoefficient /= 10;
    --scale;
  }
  return Normalised(coarse.coefficient_ * PowerOfTen(scale - coarse.scale_) + fineCoefficient, scale);
}

double RoundTo15Digits(double value) {
  if (!std::isfinite(value) || (std::fabs(value) < 1e15 && value == std::trunc(value))) return value;
  if (const auto quotient = QuotientOf(std::fabs(value))) {
    return std::copysign(
        static_cast<double>(quotient->digits) / kExactPowers[static_cast<std::size_t>(quotient->places)],
        value);
  }
  return RoundTo15DigitsByText(value);
}

double RoundTo15DigitsByText(double value) {
  const ShortDigits digits = DigitsOf(value);
  return Assemble({digits.digits.data(), static_cast<std::size_t>(digits.count)},
                  digits.exponent - digits.count, digits.negative);
}

std::string NumberText(double value) {
  if (std::isnan(value)) return "NAN";
  if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
  const ShortDigits number = DigitsOf(value);
  if (number.count == 0) return "0";
  const std::string_view digits(number.digits.data(), static_cast<std::size_t>(number.count));
  const int exponent = number.exponent - 1;  // of the scientific form
  std::string out;
  if (number.negative) out.push_back('-');
  if (exponent < -4 || exponent >= kSignificantDigits) {
    out.push_back(digits[0]);
    if (digits.size() > 1) {
      out.push_back(',');
      out.append(digits.substr(1));
    }
    out.append(exponent < 0 ? "E-" : "E+");
    out.append(ZeroFilled(std::abs(exponent), 2));
  } else if (exponent < 0) {
    out.append("0,");
    out.append(static_cast<std::size_t>(-exponent - 1), '0');
    out.append(digits);
  } else {
    const auto integerDigits = static_cast<std::size_t>(exponent + 1);
    if (digits.size() <= integerDigits) {
      out.append(digits);
      out.append(integerDigits - digits.size(), '0');
    } else {
      out.append(digits.substr(0, integerDigits));
      out.push_back(',');
      out.append(digits.substr(integerDigits));
    }
  }
  return out;
}

std::string NumberText(std::int32_t value) {
  return std::to_string(value);
}

double LeadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && text[i] == ' ') ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  const std::size_t begin = i;
  bool point = false;
  for (; i < text.size() && (IsDigit(text[i]) || (text[i] == '.' && !point)); ++i)
    point = point || text[i] == '.';
  double value = 0;
  std::from_chars(text.data() + begin, text.data() + i, value, std::chars_format::fixed);
  return negative ? -value : value;
}

std::optional<double> WholeNumber(std::string_view text) {
  text = Trim(text);
  std::size_t i = 0;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  // The longest number that the loop copies; longer ones are rare and go to the heap.
  std::string plain;
  bool comma = false;
  bool digit = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      plain.push_back(c);
      digit = true;
    } else if (c == ',' && !comma) {
      plain.push_back('.');
      comma = true;
    } else if (c != '.') {
      break;
    }
  }
  if (!digit) return std::nullopt;
  if (i < text.size()) {
    if (text[i] != 'E' && text[i] != 'e') return std::nullopt;
    plain.push_back('e');
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
      if (text[i] == '-') plain.push_back('-');
      ++i;
    }
    if (i == text.size()) return std::nullopt;
    for (; i < text.size(); ++i) {
      if (!IsDigit(text[i])) return std::nullopt;
      plain.push_back(text[i]);
    }
  }
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // Too small reads as 0; too large is no number that the platform can hold.
    if (!Contains(plain, "e-") && plain.find_first_not_of("0.") != std::string::npos && plain[0] != '0')
      return std::nullopt;
    value = 0;
  }
  return negative ? -value : value;
}

double RoundHalfEven(double value) {
  return std::nearbyint(value);
}

}  // namespace tessera
