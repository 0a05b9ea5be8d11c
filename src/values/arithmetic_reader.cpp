// How an arithmetic text becomes rows: the parser's own way through the text, over pieces instead of
// characters, with its operations written down instead of done.
#include <algorithm>
#include <cmath>
#include <string>

#include "text/number.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/arithmetic_form.h"
#include "values/eval.h"

namespace tessera {

class ArithmeticReader {
 public:
  // Pieces and names are those of the form, with a piece for the sign in front of each name that is negative.
  ArithmeticReader(const ArithmeticForm& form, ArithmeticForm::Signs negative) : names_(form.names_) {
    for (const Piece piece : form.pieces_) {
      const auto name = static_cast<std::size_t>(piece.name);
      const bool isNegative =
          piece.name >= 0 && name < ArithmeticForm::kMostSigns && (negative >> name & 1) != 0;
      if (isNegative) {
        names_[name].isNegative = true;
        pieces_.push_back({.character = '-'});
      }
      pieces_.push_back(piece);
    }
  }

  // Nothing for what is left to the parser.
  std::vector<ArithmeticForm::Row> Read() {
    const Node root = Parse(0);
    // What stands behind the ")" that ends the outermost level is not computed, but its names are read.
    if (failed_ || position_ < pieces_.size()) return {};
    Emit(root);
    if (failed_) return {};
    return std::move(rows_);
  }

  // False for a text that the form can't be of.
  static bool CutPieces(ArithmeticForm& form, VariableStore& store, std::string_view text,
                        std::size_t answers);

 private:
  using Operation = ArithmeticForm::Operation;
  using Source = ArithmeticForm::Source;
  using Row = ArithmeticForm::Row;
  using Piece = ArithmeticForm::Piece;

  // A place in `nodes_`.
  using Node = std::size_t;
  struct Step {
    Operation operation = Operation::Load;
    Node left = 0, right = 0;  // of an operation that is no Load
    Row leaf{Operation::Load};
  };

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

  std::vector<Piece> pieces_;
  std::vector<Row> names_;
  std::vector<Row> rows_;
  std::vector<Step> nodes_;
  std::size_t position_ = 0;
  std::string token_;   // digits and a point
  int tokenName_ = -1;  // or a name
  int depth_ = 0;
  bool failed_ = false;
};

bool ArithmeticReader::CutPieces(ArithmeticForm& form, VariableStore& store, std::string_view text,
                                 std::size_t answers) {
  std::vector<std::string> answerNames;
  for (std::size_t i = 0; i < answers; ++i) answerNames.push_back(ArithmeticForm::AnswerName(i));
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = EndOfName(text, i);
    if (end == i) {
      form.pieces_.push_back({.character = text[i] == ',' ? '.' : text[i]});
      ++i;
      continue;
    }
    const std::string_view word = text.substr(i, end - i);
    form.pieces_.push_back({.name = static_cast<std::int16_t>(form.names_.size())});
    if (const auto answer = std::ranges::find(answerNames, word); answer != answerNames.end()) {
      form.names_.push_back(
          {.source = Source::Answer, .answer = static_cast<std::uint8_t>(answer - answerNames.begin())});
    } else {
      constexpr std::size_t kMostNames = 1000;
      const auto name = NameForm::Of(store, word);
      if (!name || form.names_.size() == kMostNames) return false;
      form.names_.push_back({.source = Source::Name, .name = *name});
    }
    i = end;
  }
  // A text of one piece is read as a name, and what an operator at the end means hangs on the levels.
  return form.pieces_.size() >= 2 && !IsOperator(form.pieces_.back().character);
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
  step.left = accumulator;
  step.right = Parse(RankOf(c));
  accumulator = Add(step);
}

void ArithmeticReader::Emit(Node node, std::size_t level) {
  if (level >= ArithmeticForm::kMostLevels) failed_ = true;
  if (failed_) return;
  const Step step = nodes_[node];
  if (IsLeaf(node)) {
    rows_.push_back(step.leaf);
    return;
  }
  Emit(step.left, level);
  if (IsLeaf(step.right)) {
    Emit(step.right, level);
    rows_.back().operation = step.operation;
    return;
  }
  const std::size_t first = rows_.size();
  Emit(step.right, level + 1);
  if (failed_) return;
  rows_[first].operation = Operation::PushAndLoad;
  rows_.push_back({step.operation, Source::Stack});
}

std::optional<ArithmeticForm> ArithmeticForm::Of(VariableStore& store, std::string_view text,
                                                 std::size_t answers) {
  ArithmeticForm form;
  if (!ArithmeticReader::CutPieces(form, store, text, answers)) return std::nullopt;
  form.reading_.rows = form.RowsWith(0);
  if (form.reading_.rows.empty()) return std::nullopt;
  form.isWhole_ = std::ranges::all_of(form.reading_.rows, [](const Row& row) {
    return row.operation != Operation::Divide && row.operation != Operation::Power &&
           row.number <= kMostExact && row.number == std::trunc(row.number);
  });
  return form;
}

std::vector<ArithmeticForm::Row> ArithmeticForm::RowsWith(Signs negative) const {
  return ArithmeticReader(*this, negative).Read();
}

std::string ArithmeticForm::AnswerName(std::size_t answer) {
  constexpr std::size_t kLength = 60;
  return "q" + std::string(kLength, '_') + std::to_string(answer);
}

}  // namespace tessera
