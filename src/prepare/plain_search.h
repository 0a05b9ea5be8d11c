// The searches by which the rules find their way in a prepared text, as the rules tell them: from a position
// to the text's end or beginning. The index of PreparedText is held against these in the tests.
#pragma once

#include <string>

#include "prepare/prepared_text.h"

namespace tessera::plain {

inline Position FindStatement(std::string_view text, std::int32_t number, Position from) {
  return Find(text, StatementKey(number), from);
}

inline Position FindTagBack(std::string_view text, Position from) {
  return FindBack(text, kTag, from);
}

inline std::string BracketWord(std::string_view word, std::string_view depth) {
  return std::string(word).append("[").append(depth).append("]");
}

inline Position FindBracket(std::string_view text, std::string_view word, std::string_view depth,
                            Position from) {
  return Find(text, BracketWord(word, depth), from);
}

inline Position FindBracketBack(std::string_view text, std::string_view word, std::string_view depth,
                                Position from) {
  return FindBack(text, BracketWord(word, depth), from);
}

inline Position FindLabel(std::string_view text, std::string_view labelWithColon) {
  return Find(text, labelWithColon);
}

}  // namespace tessera::plain
