// A lossless scan of an editor's text, for whoever shows, checks or rewrites sources. The text stays the
// program: it runs from what preparation makes of it, and the scan stands beside it and finds the same
// statements. Tests hold the one against the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tessera {

enum class PieceKind : std::uint8_t {
  Word,       // a letter, and letters, digits and "_" behind it
  Number,     // digits, and a point with digits behind it
  Literal,    // from a quote to the next one, or to where the line or a comment ends it
  Comment,    // from its "'" to the line's end
  Sign,       // any other character; "<=", ">=" and "<>" are one
  Separator,  // the ";" between two statements of a line
  Blank,      // blanks, the character 32 alone
  LineEnd,    // CR LF; a lone CR or LF is a sign
};

struct Piece {
  PieceKind kind;
  std::size_t begin;  // offset in the source
  std::size_t size;   // bytes
};

// Lines and columns count from 1; a column is a byte.
struct TextPlace {
  std::size_t line = 1;
  std::size_t column = 1;

  bool operator==(const TextPlace&) const = default;
};

// From its first piece that is no blank or comment to its last.
struct ScannedStatement {
  TextPlace place;
  std::size_t firstPiece;
  std::size_t endPiece;  // one behind the last
};

struct ScannedText {
  // All bytes of the source, in order.
  std::vector<Piece> pieces;
  std::vector<ScannedStatement> statements;
  std::vector<std::size_t> lineBegins;

  TextPlace PlaceOf(std::size_t offset) const;
};

// KEPT: a quote that is not closed hides the comments of the lines below it, in the editors behind as well
// (Statements.AreThoseThatPreparationFinds). So the editors of a program are scanned in their order with one
// state.
struct ScanState {
  bool hidesComments = false;
};

// `text` is program text, its lines ended by CR LF.
ScannedText ScanStatements(std::string_view text, ScanState& state);

}  // namespace tessera
