#include "text/format_standard.h"

#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kTemplate = "000.000.000.000,000000";
constexpr std::size_t kUnits = 14;  // offsets in the template
constexpr std::size_t kComma = 15;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Copies the digits from right to left, from the units on, over the points.
bool CopyInteger(std::string_view digits, std::string& out) {
  std::size_t behind = kUnits + 1;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (!IsDigit(*digit)) continue;
    if (behind != 0 && kTemplate[behind - 1] == '.') --behind;
    if (behind == 0) return false;
    out[--behind] = *digit;
  }
  return true;
}

// OPEN: digits beyond the template's six are dropped: a third has fifteen of them, and a program that prints
// it wants a number, not a failure.
void CopyFraction(std::string_view digits, std::string& out) {
  std::size_t at = kComma + 1;
  for (const char digit : digits) {
    if (at == out.size()) return;
    if (IsDigit(digit)) out[at++] = digit;
  }
}

}  // namespace

std::optional<std::string> FormatStandard(std::string_view number, std::size_t places) {
  // The sign is remembered and taken away.
  const bool negative = number.starts_with('-');
  if (negative || number.starts_with('+')) number.remove_prefix(1);
  number = Trim(number);

  std::string out(kTemplate);
  const Position point = Find(number, ".");
  if (!CopyInteger(point == 0 ? number : Left(number, point - 1), out)) return std::nullopt;
  if (point != 0) CopyFraction(Mid(number, point + 1), out);

  for (std::size_t i = 0; i < kUnits && (out[i] == '0' || out[i] == '.'); ++i) out[i] = ' ';
  for (std::size_t i = out.size() - 1; i > kComma + places && out[i] == '0'; --i) out[i] = ' ';

  std::string_view trimmed = Trim(out);
  if (trimmed.ends_with(',')) trimmed.remove_suffix(1);
  return (negative ? "-" : "") + std::string(trimmed);
}

}  // namespace tessera
