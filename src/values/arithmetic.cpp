#include "values/arithmetic.h"

#include <cmath>
#include <string>

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/value.h"

namespace tessera {

namespace {

// Bit 1 of a level: its number has a point already. The other bits tell the level's rank.
constexpr int kPoint = 1;
constexpr int kSum = 2;
constexpr int kProduct = 4;
constexpr int kPower = 8;

// One evaluation. The token is shared by all levels of the parser: "2(3)" reads as the one number 23.
// KEPT: a ")" ends the innermost running level alone, there is no sign operator, and a step back to the
// character that stopped a level is not taken from the text's last character
// (Arithmetic.ParenthesesEndTheInnermostLevelOnly, Arithmetic.ThereIsNoSignOperator).
class Parser {
 public:
  Parser(std::string_view text, const StackLimit& stack) : text_(text), stack_(stack) {}

  double Parse(double accumulator, int level);
  bool failed() const { return error_ != 0; }

 private:
  enum class After { GoOn, Leave };

  After Step(char c, double& accumulator, int& level);
  After Operate(char c, double& accumulator);
  void Flush(double& accumulator);
  double Leave(double accumulator);

  std::string_view text_;
  const StackLimit& stack_;
  std::size_t position_ = 0;  // characters read
  int error_ = 0;
  std::string token_;
};

double Parser::Parse(double accumulator, int level) {
  stack_.Check();
  if (error_ != 0) return accumulator;
  while (position_ < text_.size()) {
    const char c = CharAt(text_, ++position_);
    if (Step(c, accumulator, level) == After::Leave) break;
  }
  return Leave(accumulator);
}

Parser::After Parser::Step(char c, double& accumulator, int& level) {
  switch (c) {
    case ' ':
      return After::GoOn;
    case '.':
      if ((level & kPoint) != 0) {
        error_ = 2;
        return After::Leave;
      }
      level |= kPoint;
      token_.push_back(c);
      return After::GoOn;
    case '+':
    case '-':
    case '*':
    case '/':
    case '%':
    case '&':
    case '@':
    case '^':
      if (StopsLevel(c, level)) return After::Leave;
      Flush(accumulator);
      return Operate(c, accumulator);
    case '(':
      accumulator = Parse(0, 0);
      return After::GoOn;
    case ')':
      ++position_;
      return After::Leave;
    default:
      if (c >= '0' && c <= '9') {
        token_.push_back(c);
        return After::GoOn;
      }
      error_ = 2;
      return After::Leave;
  }
}

Parser::After Parser::Operate(char c, double& accumulator) {
  const double right = Parse(0, RankOf(c));
  switch (c) {
    case '+':
      accumulator += right;
      break;
    case '-':
      accumulator -= right;
      break;
    case '*':
      accumulator *= right;
      break;
    case '/':
      if (right == 0) {
        error_ = 11;
      } else {
        accumulator /= right;
      }
      break;
    case '%': {
      const std::int64_t a = RoundToInteger(accumulator);
      const std::int64_t b = RoundToInteger(right);
      if (b == 0) FailDivision();
      accumulator = static_cast<double>(a % b);
      break;
    }
    case '&':
      accumulator = RoundToInteger(accumulator) & RoundToInteger(right);
      break;
    case '@':
      accumulator = RoundToInteger(accumulator) | RoundToInteger(right);
      break;
    default:
      accumulator = std::pow(accumulator, right);
      if (std::isnan(accumulator)) FailArgument();
      break;
  }
  if (!std::isfinite(accumulator)) FailOverflow();
  return After::GoOn;
}

void Parser::Flush(double& accumulator) {
  if (token_.empty()) return;
  accumulator = LeadingNumber(token_);
  token_.clear();
}

double Parser::Leave(double accumulator) {
  Flush(accumulator);
  if (position_ < text_.size()) --position_;
  return accumulator;
}

}  // namespace

bool IsOperator(char c) {
  return c != '\0' && std::string_view("+-*/%&@^").find(c) != std::string_view::npos;
}

int RankOf(char c) {
  return c == '^' ? kPower : (c == '+' || c == '-') ? kSum : kProduct;
}

bool StopsLevel(char c, int level) {
  const int mask = c == '^' ? 24 : (c == '+' || c == '-') ? 30 : 28;
  return (level & mask) != 0;
}

ExactDecimal ArithmeticEval(std::string_view expression, const StackLimit& stack) {
  const std::string text = Replace(expression, ',', '.');
  Parser parser(text, stack);
  const double result = parser.Parse(0, 0);
  if (parser.failed()) return {};
  const auto exact = ExactDecimal::FromDouble(result);
  if (!exact) FailOverflow();
  return *exact;
}

}  // namespace tessera
