// A prepared text that a statement loop walks: all of `ProgramText`, or the body of one routine. The text is
// the program; what stands beside it here is derived from it and gives exactly what a search would.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/one_based.h"

namespace tessera {

// Columns of a statement's head, counted from 1.
inline constexpr std::size_t kTagColumn = 1;          // "&#"
inline constexpr std::size_t kNumberColumn = 3;       // statement number, five digits
inline constexpr std::size_t kSourceLineColumn = 10;  // five digits, from 00000
inline constexpr std::size_t kEditorColumn = 17;      // two digits
inline constexpr std::size_t kStatementColumn = 20;   // the statement's own text

inline constexpr std::string_view kTag = "&#";

class PreparedText {
 public:
  explicit PreparedText(std::string text);

  std::string_view text() const { return text_; }

  // Position of the first "&#" + the number in five digits at or behind `from`; 0 if there is none.
  Position FindStatement(std::int32_t number, Position from) const;

  // Position of the last "&#" that begins at or before `from`; 0 if there is none.
  Position FindTagBack(Position from) const;

  // The number in the five characters behind a tag.
  std::int32_t NumberAt(Position tag) const;

  // First occurrence of word + "[" + depth + "]" at or behind `from`, and the last one at or before it; 0 if
  // there is none. `word` is one of the block words that end a jump.
  Position FindBracket(std::string_view word, std::string_view depth, Position from) const;
  Position FindBracketBack(std::string_view word, std::string_view depth, Position from) const;

  // First occurrence in the whole text of a label with its ":".
  Position FindLabel(std::string_view labelWithColon) const;

 private:
  const std::vector<Position>* BracketPositions(std::string_view word, std::string_view depth) const;

  std::string text_;
  std::vector<Position> tags_;  // of every "&#", literals included
  std::unordered_map<std::int32_t, std::vector<Position>> tagsOfRepeatedNumber_;
};

}  // namespace tessera
