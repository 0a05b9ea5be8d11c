#include "commands/number_commands.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

Value OnlyArgument(const WordCall& call) {
  return Arguments(call).NumberAt(0);
}

// A function of one number; a result that no float holds is failure 6.
template <double (*Function)(double)>
Value OfNumber(const WordCall& call) {
  const double result = Function(OnlyArgument(call).ToDouble());
  if (!std::isfinite(result)) FailOverflow();
  return result;
}

double Absolute(double x) {
  return std::fabs(x);
}
double Truncated(double x) {
  return std::trunc(x);
}
double Sine(double x) {
  return std::sin(x);
}
double Cosine(double x) {
  return std::cos(x);
}
double Tangent(double x) {
  return std::tan(x);
}
double ArcTangent(double x) {
  return std::atan(x);
}
double Exponential(double x) {
  return std::exp(x);
}
double SquareRoot(double x) {
  if (x < 0) FailArgument();
  return std::sqrt(x);
}
double NaturalLogarithm(double x) {
  if (x <= 0) FailArgument();
  return std::log(x);
}

// OPEN: it rounds the digits that the number shows, so that 2,675 is a tie, as a person sees it; the kind of
// number stays.
Value Arredonda(const WordCall& call) {
  const Arguments arguments(call);
  const Value value = arguments.Number("valor");
  const std::int32_t places = arguments.Number("casas").ToInteger();
  if (places < 0) FailArgument();
  if (const ExactDecimal* exact = value.AsDecimal()) return exact->RoundedTo(places);
  const double number = value.ToDouble();
  const auto exact = ExactDecimal::FromDouble(number);
  // A float beyond the exact decimals has no places.
  return exact ? exact->RoundedTo(places).ToDouble() : number;
}

Value Sinal(const WordCall& call) {
  const double number = OnlyArgument(call).ToDouble();
  return std::int32_t{(number > 0) - (number < 0)};
}

Value ValorInteiro(const WordCall& call) {
  return RoundToInteger(std::floor(OnlyArgument(call).ToDouble()));
}

// KEPT: the product is rounded, so that the limit itself may come (NumberCommands.AleatorioReachesItsLimit).
Value Aleatorio(const WordCall& call) {
  const double limit = OnlyArgument(call).ToDouble();
  return RoundToInteger(limit * call.run.host.random.Next());
}

Value Rgb(const WordCall& call) {
  const Arguments arguments(call);
  const double red = arguments.Number("vermelho").ToInteger();
  const double green = arguments.Number("verde").ToInteger();
  const double blue = arguments.Number("azul").ToInteger();
  return RoundToInteger(red + 256 * green + 65536 * blue);
}

Value Hexadecimal(const WordCall& call) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  // A negative number shows its two's complement.
  auto rest = static_cast<std::uint32_t>(OnlyArgument(call).ToInteger());
  std::string digits;
  do {
    digits.insert(digits.begin(), kDigits[rest % 16]);
    rest /= 16;
  } while (rest != 0);
  return Quote(digits);
}

// KEPT: a value above 255 has all eight digits set, since each weight is taken once
// (Answers.BinaryDigitsOfLargeNumbersAreAllOnes).
Value DecBin(const WordCall& call) {
  std::int16_t rest = OnlyArgument(call).ToShort();
  std::string digits;
  for (std::int16_t weight = 128; weight > 0; weight = static_cast<std::int16_t>(weight / 2)) {
    const bool one = weight <= rest;
    digits.push_back(one ? '1' : '0');
    if (one) rest = static_cast<std::int16_t>(rest - weight);
  }
  return digits;
}

Value BinDec(const WordCall& call) {
  const std::string digits = Arguments(call).Text("texto");
  constexpr std::int32_t kLargest = std::numeric_limits<std::int16_t>::max();
  std::int32_t sum = 0;
  std::int32_t weight = 1;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit == '1') sum += weight;
    if (sum > kLargest) FailOverflow();
    if (weight <= kLargest) weight *= 2;
  }
  return sum;
}

constexpr PlainRow kRows[] = {
    {"Arredonda", Arredonda},
    {"Sinal", Sinal},
    {"ValorAbsoluto", OfNumber<Absolute>},
    {"ValorInteiro", ValorInteiro},
    {"ParteInteira", OfNumber<Truncated>},
    {"RaizQuadrada", OfNumber<SquareRoot>},
    {"Seno", OfNumber<Sine>},
    {"Cosseno", OfNumber<Cosine>},
    {"Tangente", OfNumber<Tangent>},
    {"Arcotangente", OfNumber<ArcTangent>},
    {"Logaritmo", OfNumber<NaturalLogarithm>},
    {"Antilogaritmo", OfNumber<Exponential>},
    {"Aleatorio", Aleatorio},
    {"RGB", Rgb},
    {"Hexadecimal", Hexadecimal},
    {"DecBin", DecBin},
    {"BinDec", BinDec},
};

}  // namespace

void BindNumberCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
