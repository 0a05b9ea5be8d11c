#include "language/statements.h"

#include <algorithm>

namespace tessera {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Letters with accents are letters too.
bool IsLetter(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (code >= 0xC0 && code != 0xD7 && code != 0xF7);
}

bool ContinuesWord(char c) {
  return IsLetter(c) || IsDigit(c) || c == '_';
}

class Scanner {
 public:
  Scanner(std::string_view text, ScanState& state) : text_(text), state_(state) {}

  ScannedText Scan() {
    out_.lineBegins.push_back(0);
    while (at_ < text_.size()) Take();
    EndStatement();
    return std::move(out_);
  }

 private:
  void Take() {
    const char c = text_[at_];
    const std::size_t begin = at_;
    if (c == '\'' && !state_.hidesComments) {
      at_ = std::min(text_.find('\r', at_), text_.size());
      Add(PieceKind::Comment, begin);
    } else if (c == '"') {
      TakeLiteral();
      Add(PieceKind::Literal, begin);
    } else if (text_.substr(at_).starts_with("\r\n")) {
      at_ += 2;
      Add(PieceKind::LineEnd, begin);
      out_.lineBegins.push_back(at_);
      EndStatement();
    } else if (c == ';') {
      ++at_;
      Add(PieceKind::Separator, begin);
      EndStatement();
    } else {
      Add(TakeCode(c), begin);
    }
  }

  // Behind its last quote, or where a line or a comment ends it.
  void TakeLiteral() {
    do {
      if (text_[at_] == '"') state_.hidesComments = !state_.hidesComments;
      ++at_;
      if (at_ == text_.size() || text_[at_] == '\r') return;
      if (text_[at_] == '\'' && !state_.hidesComments) return;
    } while (text_[at_] != '"');
    state_.hidesComments = !state_.hidesComments;
    ++at_;
  }

  PieceKind TakeCode(char c) {
    const std::string_view rest = text_.substr(at_);
    const auto while_ = [&](auto belongs) {
      at_ = static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), belongs) - text_.begin());
    };
    if (c == ' ') {
      while_([](char x) { return x == ' '; });
      return PieceKind::Blank;
    }
    if (IsLetter(c)) {
      while_(ContinuesWord);
      return PieceKind::Word;
    }
    if (IsDigit(c)) {
      TakeNumber();
      return PieceKind::Number;
    }
    const bool isPair = rest.starts_with("<=") || rest.starts_with(">=") || rest.starts_with("<>");
    at_ += isPair ? 2 : 1;
    return PieceKind::Sign;
  }

  void TakeNumber() {
    const auto digits = [&] {
      while (at_ < text_.size() && IsDigit(text_[at_])) ++at_;
    };
    digits();
    if (at_ + 1 >= text_.size() || text_[at_] != '.' || !IsDigit(text_[at_ + 1])) return;
    ++at_;
    digits();
  }

  void Add(PieceKind kind, std::size_t begin) {
    const std::size_t index = out_.pieces.size();
    out_.pieces.push_back({kind, begin, at_ - begin});
    const bool isOutside = kind == PieceKind::Blank || kind == PieceKind::Comment ||
                           kind == PieceKind::Separator || kind == PieceKind::LineEnd;
    if (isOutside) return;
    if (first_ == last_) first_ = index;
    last_ = index + 1;
  }

  void EndStatement() {
    if (first_ != last_) {
      out_.statements.push_back({out_.PlaceOf(out_.pieces[first_].begin), first_, last_});
    }
    first_ = last_ = 0;
  }

  std::string_view text_;
  ScanState& state_;
  std::size_t at_ = 0;
  // The running statement's pieces; none while both are equal.
  std::size_t first_ = 0;
  std::size_t last_ = 0;
  ScannedText out_;
};

}  // namespace

TextPlace ScannedText::PlaceOf(std::size_t offset) const {
  const auto next = std::upper_bound(lineBegins.begin(), lineBegins.end(), offset);
  return {static_cast<std::size_t>(next - lineBegins.begin()), offset - *(next - 1) + 1};
}

ScannedText ScanStatements(std::string_view text, ScanState& state) {
  return Scanner(text, state).Scan();
}

}  // namespace tessera
