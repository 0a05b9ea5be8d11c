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
  listIndex_ = kNoEntry;
}

void SpCombo::SetText(std::string_view text) {
  txtAux_.SetText(text);
  listIndex_ = EntryOf(text);
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

bool SpCombo::KeyDown(int code, bool shift) {
  if (!enabled_ || txtAux_.MoveKey(code, shift)) return false;
  switch (code) {
    case key::kDown:
      return Choose(listIndex_ + 1);
    case key::kUp:
      return Choose(listIndex_ - 1);
    case key::kBackspace:
      return Edited(txtAux_.Backspace());
    case key::kDelete:
      return Edited(txtAux_.Delete());
    case key::kEscape:
    case key::kEnter:
      listIsOpen_ = false;
      return false;
    default:
      return false;
  }
}

bool SpCombo::ListClick(std::ptrdiff_t index) {
  if (!enabled_ || !Choose(index)) return false;
  listIsOpen_ = false;
  return true;
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
  listIndex_ = found - entries_.begin();
  return true;
}

bool SpCombo::Choose(std::ptrdiff_t index) {
  if (index < 0 || index >= static_cast<std::ptrdiff_t>(entries_.size())) return false;
  listIndex_ = index;
  txtAux_.SetText(entries_[static_cast<std::size_t>(index)]);
  return true;
}

bool SpCombo::Edited(bool changed) {
  if (changed) listIndex_ = EntryOf(Text());
  return changed;
}

}  // namespace tessera
