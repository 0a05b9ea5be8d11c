#include "controls/text_field.h"

#include <algorithm>

#include "controls/key_code.h"

namespace tessera {

std::size_t TextField::SelStart() const {
  return std::min(anchor_, caret_);
}

std::size_t TextField::SelLength() const {
  return std::max(anchor_, caret_) - SelStart();
}

void TextField::SetText(std::string_view text) {
  text_ = text;
  caret_ = anchor_ = text_.size();
}

void TextField::Select(std::size_t anchor, std::size_t caret) {
  anchor_ = std::min(anchor, text_.size());
  caret_ = std::min(caret, text_.size());
}

bool TextField::Type(char character) {
  if (maxLength_ != 0 && text_.size() - SelLength() >= maxLength_) return false;
  RemoveSelection();
  text_.insert(caret_, 1, character);
  anchor_ = ++caret_;
  return true;
}

bool TextField::Backspace() {
  if (RemoveSelection()) return true;
  if (caret_ == 0) return false;
  text_.erase(--caret_, 1);
  anchor_ = caret_;
  return true;
}

bool TextField::Delete() {
  if (RemoveSelection()) return true;
  if (caret_ == text_.size()) return false;
  text_.erase(caret_, 1);
  return true;
}

bool TextField::MoveKey(int code, bool shift) {
  const bool collapse = !shift && SelLength() > 0;
  switch (code) {
    case key::kLeft:
      caret_ = collapse ? SelStart() : caret_ - (caret_ > 0);
      break;
    case key::kRight:
      caret_ = collapse ? SelStart() + SelLength() : std::min(caret_ + 1, text_.size());
      break;
    case key::kHome:
      caret_ = 0;
      break;
    case key::kEnd:
      caret_ = text_.size();
      break;
    default:
      return false;
  }
  if (!shift) anchor_ = caret_;
  return true;
}

bool TextField::RemoveSelection() {
  if (SelLength() == 0) return false;
  const std::size_t start = SelStart();
  text_.erase(start, SelLength());
  caret_ = anchor_ = start;
  return true;
}

}  // namespace tessera
