#include "commands/validation_commands.h"

#include <algorithm>
#include <span>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

Value TruthWord(bool truth) {
  return Quote(truth ? "VERDADEIRO" : "FALSO");
}

// The digits of a tax number; a place that the text lacks counts as 0.
class TaxDigits {
 public:
  explicit TaxDigits(std::string_view text) {
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits_),
                 [](char c) { return c >= '0' && c <= '9'; });
  }

  // The digit at a position, from 1.
  int At(Position position) const {
    const char digit = CharAt(digits_, position);
    return digit == '\0' ? 0 : digit - '0';
  }

  // The first digits, each times its weight.
  int WeightedSum(std::span<const int> weights) const {
    int sum = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) sum += At(i + 1) * weights[i];
    return sum;
  }

 private:
  std::string digits_;
};

int CheckDigit(int sum) {
  const int rest = sum % 11;
  return rest <= 1 ? 0 : 11 - rest;
}

// KEPT: there is no test of the length, and no list of refused numbers: an empty text passes
// (Answers.TaxNumbersHaveNoLengthTest).
bool IsCpf(const TaxDigits& digits) {
  constexpr int kFirstWeights[] = {10, 9, 8, 7, 6, 5, 4, 3, 2};
  constexpr int kSecondWeights[] = {11, 10, 9, 8, 7, 6, 5, 4, 3};
  const int first = CheckDigit(digits.WeightedSum(kFirstWeights));
  const int second = CheckDigit(digits.WeightedSum(kSecondWeights) + 2 * first);
  return digits.At(10) == first && digits.At(11) == second;
}

bool IsCnpj(const TaxDigits& digits) {
  constexpr int kFirstWeights[] = {5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2};
  constexpr int kSecondWeights[] = {6, 5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2};
  const int first = CheckDigit(digits.WeightedSum(kFirstWeights));
  const int second = CheckDigit(digits.WeightedSum(kSecondWeights));
  return digits.At(13) == first && digits.At(14) == second;
}

bool IsEmail(std::string_view text) {
  constexpr std::size_t kShortest = 7;
  return Contains(text, ".") && std::count(text.begin(), text.end(), '@') == 1 &&
         Trim(text).size() >= kShortest && !text.starts_with('@') && !text.ends_with('@');
}

// A date cut at its first and last separator; failure 5 where there is one separator or none.
bool IsDate(std::string_view date, std::string_view separator) {
  const Position first = Find(date, separator);
  const Position last = FindBack(date, separator, date.size());
  const Position monthAt = first + separator.size();
  if (first == 0 || last < monthAt) FailArgument();
  const auto part = [](std::string_view text) { return RoundToInteger(LeadingNumber(text)); };
  const std::int32_t day = part(Left(date, first - 1));
  const std::int32_t month = part(Mid(date, monthAt, last - monthAt));
  const std::int32_t year = part(Mid(date, last + separator.size()));
  return day >= 1 && day <= MonthLength(month, year) && year >= 1;
}

std::string OnlyText(const WordCall& call) {
  return Arguments(call).NumberAt(0).ToText();
}

Value TestaCpf(const WordCall& call) {
  return TruthWord(IsCpf(TaxDigits(OnlyText(call))));
}

Value TestaCnpj(const WordCall& call) {
  return TruthWord(IsCnpj(TaxDigits(OnlyText(call))));
}

Value TestaEmail(const WordCall& call) {
  return TruthWord(IsEmail(OnlyText(call)));
}

Value TestaData(const WordCall& call) {
  bool valid = false;
  Guard([&] {
    const Arguments arguments(call);
    const std::string date = arguments.Number("data").ToText();
    const std::string separator = arguments.Number("separador").ToText();
    valid = IsDate(date, separator.empty() ? "/" : separator);
  });
  return TruthWord(valid);
}

constexpr PlainRow kRows[] = {
    {"TestaCPF", TestaCpf},
    {"TestaCNPJ", TestaCnpj},
    {"TestaEmail", TestaEmail},
    {"TestaData", TestaData},
};

}  // namespace

// KEPT: 1900 has its 29th of February (Answers.TestaDataCountsEveryFourthYearAsLeap).
std::int32_t MonthLength(std::int32_t month, std::int32_t year) {
  switch (month) {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
      return 31;
    case 4:
    case 6:
    case 9:
    case 11:
      return 30;
    case 2:
      return year % 4 == 0 ? 29 : 28;
    default:
      return 0;
  }
}

void BindValidationCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
