#include "objects/entry_control.h"

#include "controls/key_code.h"
#include "windows/form.h"

namespace tessera {

void EntryControl::ReplaceText(std::string_view text) {
  PlaceCaret(0, Shown().text.size());
  if (text.empty()) OnKeyDown(key::kDelete, {});
  for (const char character : text) OnKeyPress(character);
}

EntryControl::Line EntryControl::LineOf(const TextField& field) {
  return {field.Text(), field.Caret(), field.SelStart(), field.SelLength()};
}

void EntryControl::Changed(bool textChanged) {
  Refresh();
  if (textChanged) Events().OnChange(*this);
}

}  // namespace tessera
