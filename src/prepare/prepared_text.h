// A prepared text that a statement loop walks: all of `ProgramText`, or the body of one routine.
// The text is the program. The index beside it is derived from it and answers exactly what a search of the
// text would; the searches themselves are in plain_search.h, and tests hold the one against the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "text/one_based.h"

namespace tessera {

// Columns of a statement's head, counted from 1.
inline constexpr std::size_t kNumberColumn = 3;       // statement number, five digits behind "&#"
inline constexpr std::size_t kSourceLineColumn = 10;  // five digits, from 00000
inline constexpr std::size_t kEditorColumn = 17;      // two digits
inline constexpr std::size_t kStatementColumn = 20;   // the statement's own text

inline constexpr std::string_view kTag = "&#";

// The key by which a statement is found: "&#" and its number in five digits.
std::string StatementKey(std::int32_t number);

class PreparedText {
 public:
  explicit PreparedText(std::string text);

  std::string_view text() const { return text_; }

  // Puts another digit where one of a call's names stands, which no search looks for.
  void Overwrite(Position at, char digit) { text_[at - 1] = digit; }

  // First key of that statement at or behind `from`; 0 if there is none.
  Position FindStatement(std::int32_t number, Position from) const;

  // First "&#" of the text, and the last one that begins at or before `from`; 0 if there is none.
  Position FirstTag() const { return tags_.empty() ? 0 : tags_.front(); }
  Position FindTagBack(Position from) const;

  // The number in the five characters behind a tag.
  std::int32_t NumberAt(Position tag) const;

  // First CR LF at or behind `from`; 0 if there is none.
  Position FindLineEnd(Position from) const { return Find(text_, kCrLf, from); }

  // First occurrence of word + "[" + depth + "]" at or behind `from`, and the last one at or before it; 0 if
  // there is none. `word` is "Enquanto", "Repita", "FimSe" or "CasoContrario"; `depth` holds no "]".
  Position FindBracket(std::string_view word, std::string_view depth, Position from) const;
  Position FindBracketBack(std::string_view word, std::string_view depth, Position from) const;

  // First occurrence in the whole text of a label with its ":"; 0 if there is none.
  Position FindLabel(std::string_view labelWithColon) const;

 private:
  using Places = std::unordered_map<std::string, std::vector<Position>>;

  void IndexTags();
  Places IndexBrackets() const;
  Places IndexColons() const;
  const std::vector<Position>* Brackets(std::string_view word, std::string_view depth) const;

  std::string text_;
  std::vector<Position> tags_;                                 // every "&#", literals included
  std::vector<std::pair<std::int32_t, Position>> statements_;  // number and key, sorted
  // Made at the first search, since most bodies of routines need neither.
  mutable std::optional<Places> brackets_;  // by the whole bracket word
  mutable std::optional<Places> colons_;    // by the two characters in front
};

}  // namespace tessera
