#include "checker/reckoning.h"

#include <cmath>
#include <cstdint>

#include "language/words.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

std::uint32_t HashOf(std::string_view text) {
  return ArgumentName::IdOf(text);
}

class Reckoner {
 public:
  Reckoner(const Context& context, Tokens tokens) : context_(context), tokens_(tokens) {}

  std::optional<Reckoned> Run() {
    Reckoned result = Sum();
    if (failed_ || at_ != tokens_.size()) return std::nullopt;
    return result;
  }

 private:
  bool IsAt(char sign) const { return at_ < tokens_.size() && tokens_[at_].Is(sign); }

  Reckoned Fail() {
    failed_ = true;
    return {};
  }

  Reckoned Apply(const Reckoned& left, char sign, const Reckoned& right) {
    if (failed_ || !left.number || !right.number) return Fail();
    const double a = *left.number;
    const double b = *right.number;
    switch (sign) {
      case '+':
        return ReckonedNumber(a + b);
      case '-':
        return ReckonedNumber(a - b);
      case '*':
        return ReckonedNumber(a * b);
      case '/':
        return b == 0 ? Fail() : ReckonedNumber(a / b);
      case '%': {
        const double divisor = std::nearbyint(b);
        return divisor == 0 ? Fail() : ReckonedNumber(std::fmod(std::nearbyint(a), divisor));
      }
      default:
        return ReckonedNumber(std::pow(a, b));
    }
  }

  Reckoned Sum() {
    Reckoned value;
    if (IsAt('-') || IsAt('+')) {
      value = ReckonedNumber(0);
    } else {
      value = Product();
    }
    while (!failed_ && (IsAt('+') || IsAt('-'))) {
      const char sign = tokens_[at_++].text[0];
      value = Apply(value, sign, Product());
    }
    return value;
  }

  Reckoned Product() {
    Reckoned value = Power();
    while (!failed_ && (IsAt('*') || IsAt('/') || IsAt('%'))) {
      const char sign = tokens_[at_++].text[0];
      value = Apply(value, sign, Power());
    }
    return value;
  }

  // From the left, as the language does.
  Reckoned Power() {
    Reckoned value = Operand();
    while (!failed_ && IsAt('^')) {
      ++at_;
      value = Apply(value, '^', Operand());
    }
    return value;
  }

  Reckoned Operand() {
    if (at_ >= tokens_.size()) return Fail();
    const Token& token = tokens_[at_++];
    if (token.IsNumber()) return ReckonedNumber(LeadingNumber(token.text));
    if (token.IsLiteral()) return ReckonedText(Bare(token));
    if (token.Is('(')) {
      Reckoned value = Sum();
      if (!IsAt(')')) return Fail();
      ++at_;
      return value;
    }
    if (!token.IsName()) return Fail();
    if (!IsAt('(')) return Named(token);
    const std::size_t close = ClosingParen(tokens_, at_);
    if (close >= tokens_.size()) return Fail();
    const Tokens inner = tokens_.subspan(at_ + 1, close - at_ - 1);
    at_ = close + 1;
    const Word* word = FindWord(token.text);
    const bool isWord = word != nullptr && word->name == token.text;
    if (isWord || context_.names.FindFunction(token.text) != nullptr)
      return Called(token, isWord ? word : nullptr, inner);
    return ReckonedNumber(ValueOfVariable(token.text));
  }

  Reckoned Named(const Token& token) const {
    const bool isVariable =
        context_.FindLocal(token.text) != nullptr || context_.names.FindVariable(token.upper) != nullptr;
    return isVariable ? ReckonedNumber(ValueOfVariable(token.text)) : ReckonedText(token.text);
  }

  Reckoned Called(const Token& name, const Word* word, Tokens inner) {
    std::vector<std::string> forms;
    const std::vector<Tokens> arguments = SplitAtCommas(inner);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      if (arguments[i].empty()) return Fail();
      const bool isRaw =
          word != nullptr && word->arguments.size() > i && word->arguments[i].kind == Kind::AsWritten;
      const auto value =
          isRaw ? ReckonedText(context_.source.TextOf(arguments[i])) : Reckoner(context_, arguments[i]).Run();
      if (!value) return Fail();
      forms.push_back(value->Form());
    }
    return ValueOfCall(name.text, forms, GivesText(context_.names, name.text));
  }

  const Context& context_;
  Tokens tokens_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

}  // namespace

std::string Reckoned::Form() const {
  return number ? NumberText(std::round(*number * 1e6) / 1e6) : text;
}

Reckoned ReckonedNumber(double number) {
  return {.number = number, .text = {}};
}

Reckoned ReckonedText(std::string_view text) {
  if (const auto number = WholeNumber(text)) return ReckonedNumber(*number);
  return {.number = std::nullopt, .text = std::string(text)};
}

int ValueOfVariable(std::string_view name) {
  constexpr int kLeast = 11;
  constexpr std::uint32_t kRange = 79;
  return kLeast + static_cast<int>(HashOf(Upper(name)) % kRange);
}

Reckoned ValueOfCall(std::string_view name, const std::vector<std::string>& arguments, bool isText) {
  std::string all(name);
  for (const std::string& argument : arguments) all += "|" + argument;
  constexpr std::uint32_t kRange = 800;
  const int number = 100 + static_cast<int>(HashOf(all) % kRange);
  if (isText) return {.number = std::nullopt, .text = "t" + std::to_string(number)};
  return ReckonedNumber(GivesFraction(name) ? number + 0.5 : number);
}

bool GivesFraction(std::string_view name) {
  if (name == "ValorInteiro" || name == "ParteInteira") return false;
  return name == "Logaritmo" || IsNumericFunction(name);
}

bool GivesText(const Names& names, std::string_view name) {
  const Word* word = FindWord(name);
  if (word != nullptr && word->name == name) return word->result == Result::Text;
  const RoutineRef* function = names.FindFunction(name);
  return function != nullptr && function->routine->resultType == "String";
}

std::optional<Reckoned> Reckon(const Context& context, Tokens tokens) {
  return Reckoner(context, tokens).Run();
}

}  // namespace tessera::check
