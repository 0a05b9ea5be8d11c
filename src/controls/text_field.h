// One line of text with a caret and a selection: the text box inside an entry control. Bytes of program text;
// places count the characters before them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessera {

class TextField {
 public:
  const std::string& Text() const { return text_; }
  std::size_t Caret() const { return caret_; }
  std::size_t SelStart() const;
  std::size_t SelLength() const;

  // The whole text anew, the caret behind it.
  void SetText(std::string_view text);
  // Places the caret; what lies between it and `anchor` is selected. Both are clipped to the text.
  void Select(std::size_t anchor, std::size_t caret);
  void SelectAll() { Select(0, text_.size()); }
  // 0 sets no limit.
  void SetMaxLength(std::size_t length) { maxLength_ = length; }

  // Puts a character in place of the selection. False, and nothing done, where the text is full.
  bool Type(char character);
  // Whether something was removed.
  bool Backspace();
  bool Delete();
  // Left, Right, Home and End; with `shift` the selection grows. Whether the key was one of them.
  bool MoveKey(int code, bool shift);

 private:
  bool RemoveSelection();

  std::string text_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
  std::size_t maxLength_ = 0;
};

}  // namespace tessera
