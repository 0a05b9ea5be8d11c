// The words that an expression is searched for, in the order of the search: the language's own words, where a
// longer name stands before a name that it contains, or the names of the program's functions.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tessera {

class FunctionTable {
 public:
  void Fill(std::vector<std::string> words);

  const std::vector<std::string>& words() const { return words_; }

  // True if a word of the table equals `word` when both are upper-cased.
  bool ContainsIgnoringCase(std::string_view word) const;

  // Row of the first word whose first occurrence in `text`, in exact case, has "(" or a blank behind it.
  std::optional<std::size_t> FirstCalledIn(std::string_view text) const;

  // The plain form of `FirstCalledIn`: one search of the text for each word.
  std::optional<std::size_t> FirstCalledInByScan(std::string_view text) const;

 private:
  std::vector<std::string> words_;
  std::unordered_set<std::string> upperWords_;
  // FAST: a called word ends where a "(" or a blank stands, so only the words whose last character stands
  // there need a look. Rows by last character; the empty word, which can end anywhere, has a list of its own.
  std::array<std::vector<std::size_t>, 256> rowsByLastCharacter_;
  std::vector<std::size_t> emptyRows_;
};

}  // namespace tessera
