#include "controls/numeric_filter.h"

#include "controls/character.h"
#include "controls/key_code.h"

namespace tessera {
namespace {

constexpr char kMark = ',';

}  // namespace

// KEPT: Esc and Enter pass only behind a decimal mark, and a mark inside the selection counts as one too
// (NumericFilter.TellsEachCharacterByTheMark).
std::optional<char> NumericFilter(std::string_view text, std::size_t selStart, char typed,
                                  std::size_t decimals) {
  if (typed == key::kBackspace) return typed;
  const std::size_t mark = text.find_first_of(",.");
  const bool hasMark = mark != std::string_view::npos;
  if (IsDigit(typed)) {
    const bool behindMark = hasMark && selStart > mark;
    return behindMark && text.size() - mark - 1 >= decimals ? std::nullopt : std::optional(typed);
  }
  if (hasMark) return typed == key::kEscape || typed == key::kEnter ? std::optional(typed) : std::nullopt;
  // OPEN: "," passes as the keystroke that "." becomes does.
  if (typed == '.' || typed == kMark) return kMark;
  return std::nullopt;
}

std::string WithoutGroupMarks(std::string_view text) {
  std::string plain(text);
  if (text.find(kMark) != std::string_view::npos || text.find('.') != text.rfind('.')) std::erase(plain, '.');
  return plain;
}

}  // namespace tessera
