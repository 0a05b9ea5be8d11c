#include "prepare/prepared_text.h"

#include <algorithm>

#include "prepare/plain_search.h"
#include "text/number.h"

namespace tessera {

namespace {

constexpr std::size_t kDigits = 5;
constexpr std::int32_t kLastNumber = 99999;  // beyond it a key has more digits than the index reads

// Calls `use` with the position of each occurrence of `sought`.
template <typename Use>
void ForEach(std::string_view text, std::string_view sought, Use use) {
  for (Position at = Find(text, sought); at != 0; at = Find(text, sought, at + 1)) use(at);
}

Position FirstFrom(const std::vector<Position>& positions, Position from) {
  const auto found = std::lower_bound(positions.begin(), positions.end(), from);
  return found == positions.end() ? 0 : *found;
}

Position LastTo(const std::vector<Position>& positions, Position from) {
  const auto behind = std::upper_bound(positions.begin(), positions.end(), from);
  return behind == positions.begin() ? 0 : *std::prev(behind);
}

}  // namespace

std::string StatementKey(std::int32_t number) {
  return std::string(kTag) +
         (number < 0 ? "-" + ZeroFilled(-std::int64_t{number}, kDigits) : ZeroFilled(number, kDigits));
}

PreparedText::PreparedText(std::string text) : text_(std::move(text)) {
  IndexTags();
}

void PreparedText::IndexTags() {
  ForEach(text_, kTag, [&](Position at) {
    tags_.push_back(at);
    const std::string_view digits = Mid(text_, at + kTag.size(), kDigits);
    if (digits.size() == kDigits && digits.find_first_not_of("0123456789") == std::string_view::npos) {
      statements_.emplace_back(NumberAt(at), at);
    }
  });
  std::sort(statements_.begin(), statements_.end());
}

PreparedText::Places PreparedText::IndexBrackets() const {
  Places places;
  for (const std::string_view word : {"Enquanto", "Repita", "FimSe", "CasoContrario"}) {
    ForEach(text_, std::string(word) + "[", [&](Position at) {
      const Position close = Find(text_, "]", at);
      if (close != 0) places[std::string(Mid(text_, at, close + 1 - at))].push_back(at);
    });
  }
  return places;
}

PreparedText::Places PreparedText::IndexColons() const {
  Places places;
  ForEach(text_, ":", [&](Position at) {
    if (at > 2) places[std::string(Mid(text_, at - 2, 2))].push_back(at);
  });
  return places;
}

Position PreparedText::FindStatement(std::int32_t number, Position from) const {
  if (number < 0 || number > kLastNumber) return plain::FindStatement(text_, number, from);
  const auto found = std::lower_bound(statements_.begin(), statements_.end(), std::pair(number, from));
  return found == statements_.end() || found->first != number ? 0 : found->second;
}

Position PreparedText::FindTagBack(Position from) const {
  return LastTo(tags_, from);
}

std::int32_t PreparedText::NumberAt(Position tag) const {
  return static_cast<std::int32_t>(LeadingNumber(Mid(text_, tag + kTag.size(), kDigits)));
}

const std::vector<Position>* PreparedText::Brackets(std::string_view word, std::string_view depth) const {
  if (!brackets_) brackets_ = IndexBrackets();
  const auto found = brackets_->find(plain::BracketWord(word, depth));
  return found == brackets_->end() ? nullptr : &found->second;
}

Position PreparedText::FindBracket(std::string_view word, std::string_view depth, Position from) const {
  const auto* positions = Brackets(word, depth);
  return positions == nullptr ? 0 : FirstFrom(*positions, from);
}

Position PreparedText::FindBracketBack(std::string_view word, std::string_view depth, Position from) const {
  const auto* positions = Brackets(word, depth);
  return positions == nullptr ? 0 : LastTo(*positions, from);
}

// FAST: a label of two or more characters can only end where a ":" stands behind its last two.
Position PreparedText::FindLabel(std::string_view labelWithColon) const {
  if (labelWithColon.size() < 3 || Contains(labelWithColon.substr(0, labelWithColon.size() - 1), ":")) {
    return plain::FindLabel(text_, labelWithColon);
  }
  const std::size_t length = labelWithColon.size();
  if (!colons_) colons_ = IndexColons();
  const auto found = colons_->find(std::string(labelWithColon.substr(length - 3, 2)));
  if (found == colons_->end()) return 0;
  for (const Position colon : found->second) {
    if (colon >= length && Mid(text_, colon + 1 - length, length) == labelWithColon)
      return colon + 1 - length;
  }
  return 0;
}

}  // namespace tessera
