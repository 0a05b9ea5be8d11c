#include "checker/source.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera::check {

bool Token::IsRelation() const {
  return kind == TokenKind::Sign && (Is('<') || Is('=') || Is('>') || text.size() == 2);
}

bool Token::IsOperator() const {
  constexpr std::string_view kOperators = "+-*/%^";
  return kind == TokenKind::Sign && text.size() == 1 && kOperators.find(text[0]) != std::string_view::npos;
}

namespace {

bool IsOpen(const Piece& piece, std::string_view text) {
  return piece.kind == PieceKind::Literal && (piece.size == 1 || text[piece.begin + piece.size - 1] != '"');
}

// The scan of a text. A quote that somebody forgot to close is told at its line, and must not change how the
// lines below it are read: then each line is scanned by itself.
ScannedText Scan(std::string_view text) {
  ScanState state;
  ScannedText whole = ScanStatements(text, state);
  const bool isWell = std::none_of(whole.pieces.begin(), whole.pieces.end(),
                                   [&](const Piece& piece) { return IsOpen(piece, text); });
  if (isWell) return whole;
  ScannedText joined;
  for (std::size_t line = 0; line < whole.lineBegins.size(); ++line) {
    const std::size_t begin = whole.lineBegins[line];
    const std::size_t end = line + 1 < whole.lineBegins.size() ? whole.lineBegins[line + 1] : text.size();
    ScanState fresh;
    const ScannedText part = ScanStatements(text.substr(begin, end - begin), fresh);
    const std::size_t firstPiece = joined.pieces.size();
    for (const Piece& piece : part.pieces)
      joined.pieces.push_back({piece.kind, piece.begin + begin, piece.size});
    for (const ScannedStatement& statement : part.statements) {
      joined.statements.push_back({{line + 1, statement.place.column},
                                   statement.firstPiece + firstPiece,
                                   statement.endPiece + firstPiece});
    }
  }
  joined.lineBegins = std::move(whole.lineBegins);
  return joined;
}

}  // namespace

Source::Source(std::size_t editor, std::string text)
    : editor_(editor),
      text_(std::make_unique<const std::string>(std::move(text))),
      upper_(std::make_unique<const std::string>(Upper(*text_))),
      scan_(Scan(*text_)) {
  tokens_.reserve(scan_.pieces.size() / 2);
  statements_.reserve(scan_.statements.size());
  for (const ScannedStatement& scanned : scan_.statements) Cut(scanned);
}

void Source::Cut(const ScannedStatement& scanned) {
  Statement statement{.line = static_cast<std::uint32_t>(scanned.place.line),
                      .firstToken = static_cast<std::uint32_t>(tokens_.size()),
                      .endToken = 0,
                      .hasTab = false};
  const std::string_view text = *text_;
  bool blankBefore = true;
  for (std::size_t i = scanned.firstPiece; i < scanned.endPiece; ++i) {
    const Piece& piece = scan_.pieces[i];
    const bool isTab = piece.kind == PieceKind::Sign && text[piece.begin] == '\t';
    if (isTab) statement.hasTab = true;
    if (isTab || piece.kind == PieceKind::Blank || piece.kind == PieceKind::Comment) {
      blankBefore = true;
      if (tokens_.size() > statement.firstToken) tokens_.back().blankBehind = true;
      continue;
    }
    TokenKind kind = TokenKind::Sign;
    if (piece.kind == PieceKind::Word) kind = TokenKind::Name;
    if (piece.kind == PieceKind::Number) kind = TokenKind::Number;
    if (piece.kind == PieceKind::Literal) kind = TokenKind::Literal;
    std::size_t end = piece.begin + piece.size;
    if (kind == TokenKind::Name) {
      // "Clientes.Nome" is one name.
      while (i + 2 < scanned.endPiece && scan_.pieces[i + 1].size == 1 &&
             text[scan_.pieces[i + 1].begin] == '.' && scan_.pieces[i + 2].kind == PieceKind::Word) {
        i += 2;
        end = scan_.pieces[i].begin + scan_.pieces[i].size;
      }
    }
    const std::size_t size = end - piece.begin;
    tokens_.push_back({.kind = kind,
                       .blankBefore = blankBefore,
                       .blankBehind = false,
                       .offset = static_cast<std::uint32_t>(piece.begin),
                       .text = text.substr(piece.begin, size),
                       .upper = std::string_view(*upper_).substr(piece.begin, size)});
    blankBefore = false;
  }
  if (tokens_.size() > statement.firstToken) tokens_.back().blankBehind = true;
  statement.endToken = static_cast<std::uint32_t>(tokens_.size());
  if (statement.endToken > statement.firstToken) statements_.push_back(statement);
}

Tokens Source::TokensOf(const Statement& statement) const {
  return {tokens_.data() + statement.firstToken, statement.endToken - statement.firstToken};
}

std::string_view Source::TextOf(Tokens tokens) const {
  if (tokens.empty()) return {};
  return std::string_view(*text_).substr(tokens.front().offset, tokens.back().End() - tokens.front().offset);
}

std::string_view Source::TextOf(const Statement& statement) const {
  return TextOf(TokensOf(statement));
}

std::string_view Source::LineText(std::size_t line) const {
  if (line == 0 || line > scan_.lineBegins.size()) return {};
  const std::string_view rest = std::string_view(*text_).substr(scan_.lineBegins[line - 1]);
  return rest.substr(0, rest.find(kCrLf));
}

Span Source::SpanOf(std::size_t offset, std::size_t size) const {
  const TextPlace place = scan_.PlaceOf(offset);
  return {
      .editor = editor_, .line = place.line, .column = place.column, .size = std::max<std::size_t>(size, 1)};
}

Span Source::SpanOf(Tokens tokens) const {
  return SpanOf(tokens.front().offset, tokens.back().End() - tokens.front().offset);
}

std::size_t ClosingParen(Tokens tokens, std::size_t open) {
  std::size_t depth = 0;
  for (std::size_t i = open; i < tokens.size(); ++i) {
    if (tokens[i].Is('(')) ++depth;
    if (tokens[i].Is(')') && --depth == 0) return i;
  }
  return tokens.size();
}

std::vector<Tokens> SplitAtCommas(Tokens tokens) {
  std::vector<Tokens> parts;
  if (tokens.empty()) return parts;
  std::size_t begin = 0;
  std::size_t depth = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].Is('(')) ++depth;
    if (tokens[i].Is(')') && depth > 0) --depth;
    if (!tokens[i].Is(',') || depth > 0) continue;
    parts.push_back(tokens.subspan(begin, i - begin));
    begin = i + 1;
  }
  parts.push_back(tokens.subspan(begin));
  return parts;
}

}  // namespace tessera::check
