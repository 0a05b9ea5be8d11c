// `FunctionTable`: the words of the language in the order in which expressions search for them, a longer
// name before a name that it contains.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessera {

class FunctionTable {
 public:
  // The words in their order; each text outlives the table.
  void Fill(const std::vector<std::string_view>& words);

  const std::vector<std::string_view>& words() const { return words_; }

  // The word that equals `word` blind to case.
  bool ContainsIgnoringCase(std::string_view word) const;

  // The first word of the table whose first occurrence in `text` has "(" or a blank behind it.
  std::optional<std::string_view> FirstCalledIn(std::string_view text) const;

  // The plain form of `FirstCalledIn`: one search of the text for each word. Tests compare the two.
  std::optional<std::string_view> FirstCalledInByScan(std::string_view text) const;

 private:
  std::vector<std::string_view> words_;
  // FAST: a call ends in "(" or a blank, so a text without them holds none, and only the words that end
  // where such a character stands can be called. Rows of words by their last character.
  std::vector<std::vector<std::size_t>> rowsByLastCharacter_;
  std::unordered_map<std::string, std::size_t> rowByUpperWord_;
};

}  // namespace tessera
