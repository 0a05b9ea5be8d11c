#include "objects/entry_control.h"

#include "controls/key_code.h"
#include "windows/form.h"

namespace tessera {

void EntryControl::Paste(std::string_view text) {
  for (const char character : FirstLine(text)) OnKeyPress(character);
}

void EntryControl::ReplaceText(std::string_view text) {
  PlaceCaret(0, Shown().text.size());
  if (text.empty()) {
    OnKeyDown(key::kDelete, {});
  } else {
    Paste(text);
  }
}

std::string_view EntryControl::FirstLine(std::string_view text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

EntryControl::Line EntryControl::LineOf(const TextField& field) {
  return {field.Text(), field.Caret(), field.SelStart(), field.SelLength()};
}

void EntryControl::OnKeyUp(int, KeyShift) {
  if (TellsKeyUp()) Events().OnChange(*this);
}

void EntryControl::Changed(bool textChanged) {
  Refresh();
  if (textChanged) Events().OnChange(*this);
}

}  // namespace tessera
