// An editor's source as the checker reads it: its statements, cut into tokens on the lossless scan. A token's
// places lead back to the source; what the language does with the text is the rules' business.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "checker/finding.h"
#include "language/statements.h"

namespace tessera::check {

enum class TokenKind : std::uint8_t {
  Name,     // words joined by points: "Clientes.Nome"
  Number,   // "1.5"
  Literal,  // with its quotes
  Sign,     // any other character; "<=", ">=" and "<>" are one
};

struct Token {
  TokenKind kind;
  bool blankBefore;
  bool blankBehind;
  std::uint32_t offset;
  std::string_view text;
  std::string_view upper;  // of a name: in upper case

  bool Is(char sign) const { return kind == TokenKind::Sign && text.size() == 1 && text[0] == sign; }
  bool IsName() const { return kind == TokenKind::Name; }
  bool IsLiteral() const { return kind == TokenKind::Literal; }
  bool IsNumber() const { return kind == TokenKind::Number; }
  bool IsRelation() const;
  // One of "+ - * / % ^".
  bool IsOperator() const;
  std::size_t End() const { return offset + text.size(); }
};

using Tokens = std::span<const Token>;

struct Statement {
  std::uint32_t line;
  std::uint32_t firstToken;
  std::uint32_t endToken;
  bool hasTab;  // in front of its first word, or between its words
};

class Source {
 public:
  Source(std::size_t editor, std::string text);
  Source(Source&&) = default;
  Source& operator=(Source&&) = default;

  std::size_t editor() const { return editor_; }
  std::string_view text() const { return *text_; }
  const std::vector<Statement>& statements() const { return statements_; }
  const ScannedText& scan() const { return scan_; }

  Tokens TokensOf(const Statement& statement) const;
  // From the statement's first character to its last.
  std::string_view TextOf(const Statement& statement) const;
  std::string_view TextOf(Tokens tokens) const;
  std::string_view LineText(std::size_t line) const;

  Span SpanOf(std::size_t offset, std::size_t size) const;
  Span SpanOf(const Token& token) const { return SpanOf(token.offset, token.text.size()); }
  Span SpanOf(Tokens tokens) const;

 private:
  void Cut(const ScannedStatement& scanned);

  std::size_t editor_;
  // On the heap, so that views into them survive a move.
  std::unique_ptr<const std::string> text_;
  std::unique_ptr<const std::string> upper_;
  ScannedText scan_;
  std::vector<Token> tokens_;
  std::vector<Statement> statements_;
};

// The token that closes the parenthesis at `open`, or the number of tokens where none does.
std::size_t ClosingParen(Tokens tokens, std::size_t open);

// The arguments between commas, parentheses kept whole. Of no tokens: none.
std::vector<Tokens> SplitAtCommas(Tokens tokens);

}  // namespace tessera::check
