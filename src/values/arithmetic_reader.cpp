// How an arithmetic text becomes rows: the parser's own way through the text, over pieces instead of
// characters, with its operations written down instead of done.
#include <algorithm>
#include <string>

#include "text/number.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/arithmetic_form.h"
#include "values/eval.h"

namespace tessera {

class ArithmeticReader {
 public:
  ArithmeticReader(VariableStore& store, std::string_view text, std::size_t answers)
      : store_(store), text_(text) {
    for (std::size_t i = 0; i < answers; ++i) answers_.push_back(ArithmeticForm::AnswerName(i));
  }

  std::optional<ArithmeticForm> Read() {
    if (!CutPieces()) return std::nullopt;
    const Node root = Parse(0);
    // What stands behind the ")" that ends the outermost level is not computed, but its names are read.
    if (failed_ || position_ < pieces_.size()) return std::nullopt;
    Emit(root);
    if (failed_) return std::nullopt;
    return std::move(form_);
  }

 private:
  using Operation = ArithmeticForm::Operation;
  using Source = ArithmeticForm::Source;
  using Row = ArithmeticForm::Row;

  // A character, or a name by its place in `names_`.
  struct Piece {
    char character = '\0';
    int name = -1;
  };

  // A place in `nodes_`.
  using Node = std::size_t;
  struct Step {
    Operation operation = Operation::Load;
    Node left = 0, right = 0;  // of an operation that is no Load
    Row leaf{Operation::Load};
  };

  bool CutPieces();
  bool MayBeNegative(std::size_t piece) const;
  Node Parse(int level);
  void Operate(char c, Node& accumulator);
  void Flush(Node& accumulator, bool& hasValue);
  void Emit(Node node, std::size_t level = 0);
  bool IsLeaf(Node node) const { return nodes_[node].operation == Operation::Load; }

  Node Add(const Step& step) {
    nodes_.push_back(step);
    return nodes_.size() - 1;
  }
  Node Fail() {
    failed_ = true;
    return 0;
  }

  VariableStore& store_;
  std::string_view text_;
  std::vector<std::string> answers_;
  std::vector<Piece> pieces_;
  std::vector<Row> names_;
  std::vector<Step> nodes_;
  std::size_t position_ = 0;
  std::string token_;   // digits and a point
  int tokenName_ = -1;  // or a name
  int depth_ = 0;
  bool failed_ = false;
  ArithmeticForm form_;
};

bool ArithmeticReader::CutPieces() {
  for (std::size_t i = 0; i < text_.size();) {
    const std::size_t end = EndOfName(text_, i);
    if (end == i) {
      pieces_.push_back({text_[i] == ',' ? '.' : text_[i], -1});
      ++i;
      continue;
    }
    const std::string_view text = text_.substr(i, end - i);
    pieces_.push_back({'\0', static_cast<int>(names_.size())});
    if (const auto answer = std::ranges::find(answers_, text); answer != answers_.end()) {
      names_.push_back(
          {.source = Source::Answer, .answer = static_cast<std::uint8_t>(answer - answers_.begin())});
    } else {
      const auto name = NameForm::Of(store_, text);
      if (!name) return false;
      names_.push_back({.source = Source::Name, .name = *name});
    }
    i = end;
  }
  // A text of one piece is read as a name, and what an operator at the end means hangs on the levels.
  if (pieces_.size() < 2 || IsOperator(pieces_.back().character)) return false;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    if (pieces_[i].name >= 0)
      names_[static_cast<std::size_t>(pieces_[i].name)].mayBeNegative = MayBeNegative(i);
  }
  return true;
}

// A sign is an operator to the parser. It does no harm at the start and behind "+", if only products follow
// up to the next sum, and nothing is in parentheses.
bool ArithmeticReader::MayBeNegative(std::size_t piece) const {
  for (const Piece& other : pieces_) {
    if (other.character == '(' || other.character == ')') return false;
  }
  std::size_t before = piece;
  while (before > 0 && pieces_[before - 1].character == ' ') --before;
  if (before > 0 && pieces_[before - 1].character != '+') return false;
  for (std::size_t i = piece + 1; i < pieces_.size(); ++i) {
    const char c = pieces_[i].character;
    if (c == '+' || c == '-') return true;
    if (c == '^' || c == '&' || c == '@') return false;
  }
  return true;
}

ArithmeticReader::Node ArithmeticReader::Parse(int level) {
  constexpr int kMostDepth = 64;
  if (failed_ || ++depth_ > kMostDepth) return Fail();
  Node accumulator = Add({.leaf = {Operation::Load}});
  bool hasValue = false;
  while (position_ < pieces_.size() && !failed_) {
    const Piece piece = pieces_[position_++];
    const char c = piece.character;
    if (piece.name >= 0) {
      if (!token_.empty() || tokenName_ >= 0) return Fail();  // digits join
      tokenName_ = piece.name;
    } else if (c == ' ') {
      continue;
    } else if ((c >= '0' && c <= '9') || c == '.') {
      if (tokenName_ >= 0) return Fail();
      if (c == '.' && (level & 1) != 0) return Fail();
      if (c == '.') level |= 1;
      token_.push_back(c);
    } else if (IsOperator(c)) {
      if (StopsLevel(c, level)) break;
      Flush(accumulator, hasValue);
      Operate(c, accumulator);
      hasValue = true;
    } else if (c == '(') {
      if (!token_.empty() || tokenName_ >= 0 || hasValue) return Fail();
      accumulator = Parse(0);
      hasValue = true;
    } else if (c == ')') {
      // How many characters stand behind a ")" decides what is read of them.
      if (position_ < pieces_.size() && pieces_[position_].name >= 0) return Fail();
      ++position_;
      break;
    } else {
      return Fail();
    }
  }
  Flush(accumulator, hasValue);
  if (position_ < pieces_.size()) --position_;
  --depth_;
  return accumulator;
}

void ArithmeticReader::Flush(Node& accumulator, bool& hasValue) {
  if (token_.empty() && tokenName_ < 0) return;
  if (hasValue) Fail();  // what was computed before would be lost
  Step step;
  if (tokenName_ >= 0) {
    step.leaf = names_[static_cast<std::size_t>(tokenName_)];
  } else {
    step.leaf.number = LeadingNumber(token_);
  }
  accumulator = Add(step);
  hasValue = true;
  token_.clear();
  tokenName_ = -1;
}

void ArithmeticReader::Operate(char c, Node& accumulator) {
  Step step;
  switch (c) {
    case '+':
      step.operation = Operation::Add;
      break;
    case '-':
      step.operation = Operation::Subtract;
      break;
    case '*':
      step.operation = Operation::Multiply;
      break;
    case '/':
      step.operation = Operation::Divide;
      break;
    case '%':
      step.operation = Operation::Modulo;
      break;
    case '^':
      step.operation = Operation::Power;
      break;
    default:
      Fail();
      return;
  }
  if (c == '/' || c == '^') form_.isWhole_ = false;
  step.left = accumulator;
  step.right = Parse(RankOf(c));
  accumulator = Add(step);
}

void ArithmeticReader::Emit(Node node, std::size_t level) {
  if (level >= ArithmeticForm::kMostLevels) failed_ = true;
  if (failed_) return;
  const Step step = nodes_[node];
  if (IsLeaf(node)) {
    const double number = step.leaf.number;
    if (number != static_cast<double>(static_cast<std::int64_t>(number))) form_.isWhole_ = false;
    form_.rows_.push_back(step.leaf);
    return;
  }
  Emit(step.left, level);
  if (IsLeaf(step.right)) {
    Emit(step.right, level);
    form_.rows_.back().operation = step.operation;
    return;
  }
  form_.rows_.push_back({Operation::Push});
  Emit(step.right, level + 1);
  form_.rows_.push_back({step.operation, Source::Stack});
}

std::optional<ArithmeticForm> ArithmeticForm::Of(VariableStore& store, std::string_view text,
                                                 std::size_t answers) {
  return ArithmeticReader(store, text, answers).Read();
}

std::string ArithmeticForm::AnswerName(std::size_t answer) {
  constexpr std::size_t kLength = 60;
  return "q" + std::string(kLength, '_') + std::to_string(answer);
}

}  // namespace tessera
