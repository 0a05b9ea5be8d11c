#include "values/function_table.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera {

namespace {

bool OpensCall(char c) {
  return c == '(' || c == ' ';
}

bool IsCalledAtFirstOccurrence(std::string_view text, std::string_view word) {
  const Position at = Find(text, word);
  return at != 0 && OpensCall(CharAt(text, at + word.size()));
}

}  // namespace

void FunctionTable::Fill(std::vector<std::string> words) {
  words_ = std::move(words);
  upperWords_.clear();
  rowsByLastCharacter_ = {};
  emptyRows_.clear();
  for (std::size_t row = 0; row < words_.size(); ++row) {
    const std::string& word = words_[row];
    upperWords_.insert(Upper(word));
    auto& rows = word.empty() ? emptyRows_ : rowsByLastCharacter_[static_cast<unsigned char>(word.back())];
    rows.push_back(row);
  }
}

bool FunctionTable::ContainsIgnoringCase(std::string_view word) const {
  return upperWords_.contains(Upper(word));
}

std::optional<std::size_t> FunctionTable::FirstCalledIn(std::string_view text) const {
  std::size_t best = words_.size();
  if (!emptyRows_.empty() && OpensCall(CharAt(text, 1))) best = emptyRows_.front();
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (!OpensCall(text[i])) continue;
    for (const std::size_t row : rowsByLastCharacter_[static_cast<unsigned char>(text[i - 1])]) {
      if (row >= best) break;
      const std::string& word = words_[row];
      const bool endsHere = word.size() <= i && text.compare(i - word.size(), word.size(), word) == 0;
      if (endsHere && text.find(word) == i - word.size()) best = row;
    }
  }
  return best == words_.size() ? std::nullopt : std::optional(best);
}

std::optional<std::size_t> FunctionTable::FirstCalledInByScan(std::string_view text) const {
  const auto found = std::find_if(words_.begin(), words_.end(), [&](const std::string& word) {
    return IsCalledAtFirstOccurrence(text, word);
  });
  if (found == words_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - words_.begin());
}

}  // namespace tessera
