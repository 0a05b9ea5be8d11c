// A control with one line of text that a person edits. The text, its caret and its selection are the
// behaviour's own; a host shows them, and hands over keys and the caret's place.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "controls/text_field.h"
#include "windows/control.h"

namespace tessera {

class EntryControl : public Control {
 public:
  using Control::Control;

  // What stands in the field; places count the characters before them.
  struct Line {
    const std::string& text;
    std::size_t caret;
    std::size_t selStart;
    std::size_t selLength;
  };
  virtual Line Shown() const = 0;
  std::string PortraitText() const override { return Shown().text; }
  // Selects what lies between the two places, the caret at the second one.
  void PlaceCaret(std::size_t anchor, std::size_t caret) override = 0;

  // Puts a text, of which the first line counts, in place of the selection. Here it is typed, key by key.
  virtual void Paste(std::string_view text);
  // Pastes the text in place of what is there.
  void ReplaceText(std::string_view text) override;
  void Click() override { Events().OnClick(*this); }
  // What was typed is told once more, where the kind of entry does so.
  void OnKeyUp(int keyCode, KeyShift shift) override;

 protected:
  virtual bool TellsKeyUp() const { return false; }
  static Line LineOf(const TextField& field);
  static std::string_view FirstLine(std::string_view text);
  // Behind a key: shows what it did, and tells a change.
  void Changed(bool textChanged);
};

}  // namespace tessera
