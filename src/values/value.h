// The variant that expressions yield and commands answer with, and its conversions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "text/number.h"

namespace tessera {

// Empty, a text, a 32-bit integer, a 64-bit float or an exact decimal.
class Value {
 public:
  Value() = default;
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char*) = delete;  // program text comes from the literal operator
  Value(std::int32_t number) : content_(number) {}
  Value(double number) : content_(number) {}
  Value(ExactDecimal number) : content_(number) {}

  Value& operator=(ExactDecimal number) {
    content_ = number;
    return *this;
  }

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(content_); }
  bool IsText() const { return std::holds_alternative<std::string>(content_); }
  const std::string* AsText() const { return std::get_if<std::string>(&content_); }
  std::string* AsText() { return std::get_if<std::string>(&content_); }
  const std::int32_t* AsInteger() const { return std::get_if<std::int32_t>(&content_); }
  const double* AsDouble() const { return std::get_if<double>(&content_); }
  const ExactDecimal* AsDecimal() const { return std::get_if<ExactDecimal>(&content_); }

  // The text form; never fails. The empty value is the empty text.
  std::string ToText() const&;
  std::string ToText() && {
    if (auto* text = std::get_if<std::string>(&content_)) return std::move(*text);
    return std::as_const(*this).ToText();
  }

  // The value as a number of the kind; a text goes by the whole-text rule. The empty value is 0.
  // Failure 13 for a text that is no number, 6 for a number out of the kind's range.
  double ToDouble() const;
  std::int32_t ToInteger() const;  // to nearest, ties to even
  std::int16_t ToShort() const;

  // Numeric by the platform's test: any number, the empty value, and the texts that read as one.
  bool IsNumeric() const;

 private:
  std::variant<std::monostate, std::string, std::int32_t, double, ExactDecimal> content_;
};

// A float rounded to a 32-bit integer, ties to even; failure 6 out of range.
std::int32_t RoundToInteger(double number);

// The platform's variant addition: two texts are joined, everything else is added as numbers.
Value AddValues(const Value& left, const Value& right);
// The platform's variant subtraction: always numbers.
Value SubtractValues(const Value& left, const Value& right);

}  // namespace tessera
