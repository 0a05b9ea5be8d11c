#include "controls/mask_field.h"

#include <algorithm>

#include "controls/character.h"
#include "controls/key_code.h"

namespace tessera {
namespace {

constexpr char kDigitSign = '#';
constexpr char kLiteralNext = '\\';

}  // namespace

// OPEN: beside "#", masks have the signs that people know from other masked entries.
MaskField::Place MaskField::PlaceOf(char sign) {
  switch (sign) {
    case kDigitSign:
      return Place::kDigit;
    case 'A':
      return Place::kLetterOrDigit;
    case '?':
      return Place::kLetter;
    case '&':
      return Place::kAny;
    default:
      return Place::kLiteral;
  }
}

bool MaskField::Takes(Place place, char character) {
  switch (place) {
    case Place::kDigit:
      return IsDigit(character);
    case Place::kLetterOrDigit:
      return IsDigit(character) || IsLetter(character);
    case Place::kLetter:
      return IsLetter(character);
    case Place::kAny:
      return true;
    case Place::kLiteral:
      break;
  }
  return false;
}

// KEPT: of the mask's signs "#" alone shows as "_" at first; the others show as themselves until a character
// takes their place (MaskField.OnlyTheDigitSignShowsAsAnOpenPlace).
// OPEN: "\" is not shown; one that ends the mask is a literal.
void MaskField::SetMask(std::string_view mask) {
  mask_ = mask;
  blank_.clear();
  places_.clear();
  for (std::size_t i = 0; i < mask.size(); ++i) {
    const bool literalNext = mask[i] == kLiteralNext && i + 1 < mask.size();
    if (literalNext) ++i;
    places_.push_back(literalNext ? Place::kLiteral : PlaceOf(mask[i]));
    blank_ += places_.back() == Place::kDigit ? kOpenPlace : mask[i];
  }
  field_.SetText(blank_);
  PlaceCaret(0);
}

void MaskField::SetText(std::string_view text) {
  field_.SetText(Replace(text, kDigitSign, kOpenPlace));
  PlaceCaret(0);
}

bool MaskField::KeyPress(char character) {
  if (!enabled_ || !IsPrintable(character)) return false;
  if (places_.empty()) return field_.Type(character);
  const std::size_t place = NextPlace(field_.SelStart());
  if (place == places_.size() || !Takes(places_[place], character)) return false;
  const std::string before = Text();
  FitToMask();
  ClearSelection();
  Put(place, character);
  PlaceCaret(NextPlace(place + 1));
  return Text() != before;
}

bool MaskField::KeyDown(int code, bool shift) {
  if (!enabled_ || field_.MoveKey(code, shift)) return false;
  if (code != key::kBackspace && code != key::kDelete) return false;
  if (places_.empty()) return code == key::kBackspace ? field_.Backspace() : field_.Delete();
  const std::string before = Text();
  FitToMask();
  if (field_.SelLength() > 0) {
    const std::size_t start = field_.SelStart();
    ClearSelection();
    PlaceCaret(start);
  } else if (code == key::kBackspace) {
    Backspace();
  } else {
    Delete();
  }
  return Text() != before;
}

std::size_t MaskField::NextPlace(std::size_t from) const {
  std::size_t place = std::min(from, places_.size());
  while (place < places_.size() && !IsOpen(place)) ++place;
  return place;
}

void MaskField::FitToMask() {
  if (Text().size() == blank_.size()) return;
  const std::size_t start = field_.SelStart();
  const std::size_t end = start + field_.SelLength();
  std::string fitted = Text().substr(0, blank_.size());
  fitted += blank_.substr(fitted.size());
  field_.SetText(fitted);
  Select(start, end);
}

void MaskField::Put(std::size_t place, char character) {
  Select(place, place + 1);
  field_.Type(character);
}

void MaskField::ClearSelection() {
  const std::size_t start = field_.SelStart();
  const std::size_t end = start + field_.SelLength();
  for (std::size_t place = start; place < end; ++place) {
    if (IsOpen(place)) Put(place, kOpenPlace);
  }
}

// Opens the last place before the caret, and goes there.
void MaskField::Backspace() {
  std::size_t place = field_.Caret();
  while (place > 0 && !IsOpen(place - 1)) --place;
  if (place == 0) return;
  Put(place - 1, kOpenPlace);
  PlaceCaret(place - 1);
}

void MaskField::Delete() {
  const std::size_t place = field_.Caret();
  if (place == places_.size() || !IsOpen(place)) return;
  Put(place, kOpenPlace);
  PlaceCaret(place);
}

}  // namespace tessera
