#include "controls/sp_combo.h"

#include <algorithm>

#include "controls/character.h"
#include "controls/key_code.h"
#include "text/one_based.h"

namespace tessera {
namespace {

// KEPT: other letters, accented ones among them, never complete
// (SpComboTest.CompletesForPlainLettersAndDigitsAlone).
bool Completes(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         IsDigit(character);
}

}  // namespace

void SpCombo::Clear() {
  entries_.clear();
  SetListIndex(kNoEntry);
}

void SpCombo::SetText(std::string_view text) {
  txtAux_.SetText(text);
  SetListIndex(EntryOf(text));
}

void SpCombo::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) listIsOpen_ = false;
}

bool SpCombo::KeyPress(char character) {
  if (!enabled_ || !IsPrintable(character)) return false;
  if (Completes(character) && Complete(character)) return true;
  return Edited(txtAux_.Type(character));
}

bool SpCombo::Paste(std::string_view text) {
  bool changed = false;
  for (const char character : text)
    changed = (enabled_ && IsPrintable(character) && txtAux_.Type(character)) || changed;
  return Edited(changed);
}

bool SpCombo::KeyDown(int code, bool shift) {
  if (!enabled_ || txtAux_.MoveKey(code, shift)) return false;
  switch (code) {
    case key::kBackspace:
      return Edited(txtAux_.Backspace());
    case key::kDelete:
      return Edited(txtAux_.Delete());
    default:
      break;
  }
  if (listIsOpen_) return ListKey(code);
  if (code == key::kDown) return SelLista(listIndex_ + 1);
  return code == key::kUp && SelLista(listIndex_ - 1);
}

bool SpCombo::ListClick(std::ptrdiff_t index) {
  if (!enabled_ || !SelLista(index)) return false;
  listIsOpen_ = false;
  return true;
}

bool SpCombo::SelLista(std::ptrdiff_t index) {
  if (index < 0 || index >= std::ssize(entries_)) return false;
  txtAux_.SetText(entries_[static_cast<std::size_t>(index)]);
  SetListIndex(index);
  return true;
}

std::ptrdiff_t SpCombo::ListRows() const {
  return std::min(listHeight_, std::ssize(entries_));
}

void SpCombo::SetListHeight(std::ptrdiff_t rows) {
  listHeight_ = std::max<std::ptrdiff_t>(rows, 1);
  Highlight(highlighted_);
}

void SpCombo::ArrowClick() {
  listIsOpen_ = enabled_ && !listIsOpen_;
  Highlight(listIndex_);
}

void SpCombo::ListHover(std::ptrdiff_t index) {
  if (index >= firstVisible_ && index < firstVisible_ + ListRows()) highlighted_ = index;
}

void SpCombo::Wheel(std::ptrdiff_t rows) {
  if (listIsOpen_) ScrollTo(firstVisible_ + std::clamp(rows, -std::ssize(entries_), std::ssize(entries_)));
}

std::ptrdiff_t SpCombo::EntryOf(std::string_view text) const {
  const auto found = std::find(entries_.begin(), entries_.end(), text);
  return found == entries_.end() ? kNoEntry : found - entries_.begin();
}

bool SpCombo::Complete(char character) {
  const std::string typed = Upper(std::string_view(Text()).substr(0, txtAux_.SelStart()));
  // OPEN: text that already is a whole entry has been completed; a key behind it is plain input.
  const auto isTyped = [&](const std::string& entry) { return Upper(entry) == typed; };
  if (std::any_of(entries_.begin(), entries_.end(), isTyped)) return false;

  const std::string candidate = typed + Upper(character);
  const auto begins = [&](const std::string& entry) { return Upper(entry).starts_with(candidate); };
  const auto found = std::find_if(entries_.begin(), entries_.end(), begins);
  if (found == entries_.end()) return false;
  txtAux_.SetText(*found);
  txtAux_.Select(found->size(), candidate.size());
  SetListIndex(found - entries_.begin());
  return true;
}

bool SpCombo::Edited(bool changed) {
  if (changed) SetListIndex(EntryOf(Text()));
  return changed;
}

// OPEN: keys move the highlight of an open list without a change of the text, until Enter chooses.
bool SpCombo::ListKey(int code) {
  switch (code) {
    case key::kDown:
      Highlight(highlighted_ + 1);
      return false;
    case key::kUp:
      Highlight(std::max<std::ptrdiff_t>(highlighted_ - 1, 0));
      return false;
    case key::kPageDown:
      Highlight(highlighted_ + listHeight_);
      return false;
    case key::kPageUp:
      Highlight(std::max<std::ptrdiff_t>(highlighted_ - listHeight_, 0));
      return false;
    case key::kEnter:
      listIsOpen_ = false;
      return SelLista(highlighted_);
    case key::kEscape:
      listIsOpen_ = false;
      return false;
    default:
      return false;
  }
}

void SpCombo::SetListIndex(std::ptrdiff_t index) {
  listIndex_ = index;
  Highlight(index);
}

// Highlights an entry, at most the last one, and scrolls until it shows.
void SpCombo::Highlight(std::ptrdiff_t index) {
  highlighted_ = std::min(index, std::ssize(entries_) - 1);
  if (highlighted_ < firstVisible_) ScrollTo(highlighted_);
  if (highlighted_ >= firstVisible_ + ListRows()) ScrollTo(highlighted_ - ListRows() + 1);
}

void SpCombo::ScrollTo(std::ptrdiff_t first) {
  firstVisible_ = std::clamp<std::ptrdiff_t>(first, 0, std::ssize(entries_) - ListRows());
}

}  // namespace tessera
