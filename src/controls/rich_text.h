// The text behind `Texto`: characters with formats, a caret and a selection. Inside, a line break is one
// character, as the host paints and the caret walks it; the program sees CR LF and counts two.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/styled_text.h"

namespace tessera {

// How a host folds a text into lines.
class TextLayout {
 public:
  virtual ~TextLayout() = default;
  // Where the caret gets by so many lines down, or up if negative.
  virtual std::size_t MovedByLines(std::size_t caret, int lines) const = 0;
  // Lines that Page Up and Page Down move by.
  virtual int PageLines() const = 0;
};

class RichText {
 public:
  explicit RichText(CharFormat base = {}) : base_(std::move(base)) {}

  // The program's side: line breaks are CR LF, places and lengths count them so and are clipped to the text.
  std::string Text() const;
  // Any line break is taken; all is in the base format, the caret before it.
  void SetText(std::string_view text);
  std::string TextRTF() const;
  // A document, or plain text where it is none.
  void SetTextRTF(std::string_view text);
  std::size_t SelStart() const;
  std::size_t SelLength() const;
  std::string SelText() const;
  // Moves the caret; nothing is selected then.
  void SetSelStart(std::size_t start);
  void SetSelLength(std::size_t length);
  // The format of the selection's first character; without a selection, of the next that is typed.
  const CharFormat& SelFormat() const;
  void SetSelFormat(const FormatChange& change);
  // The base format: that of all characters, and of those to come.
  const CharFormat& Format() const { return base_; }
  void SetFormat(const FormatChange& change);

  bool MultiLine() const { return multiLine_; }
  void SetMultiLine(bool on) { multiLine_ = on; }
  // Characters that a person can fill it to; 0 sets no limit.
  std::size_t MaxLength() const { return maxLength_; }
  void SetMaxLength(std::size_t length) { maxLength_ = length; }
  TextAlign Alignment() const { return content_.Alignment(); }
  void SetAlignment(TextAlign alignment) { content_.SetAlignment(alignment); }
  // Where lines are folded, in the unit of the host; 0 at the control's own edge.
  int RightMargin() const { return rightMargin_; }
  void SetRightMargin(int margin) { rightMargin_ = margin; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }

  // The host's side: places inside.
  const StyledText& Content() const { return content_; }
  std::size_t Caret() const { return caret_; }
  std::size_t Anchor() const { return anchor_; }
  void Select(std::size_t anchor, std::size_t caret);
  void SelectAll() { Select(0, content_.Text().size()); }

  // A typed character; pasted text. In a text of one line, that ends at its first break. Each answers whether
  // the text changed, told as the change event.
  bool KeyPress(char character);
  bool Paste(std::string_view text);
  // Arrows, Home, End, Page Up, Page Down, Backspace, Delete; with `shift` the selection grows, with
  // `ctrl` Home and End go to the text's ends. Up and Down go by the host's layout; without one lines end at
  // their breaks, characters are of one width and a page is a line. The answer is that of KeyPress.
  bool KeyDown(int code, bool shift, bool ctrl = false, const TextLayout* layout = nullptr);

 private:
  std::size_t First() const { return std::min(anchor_, caret_); }
  std::size_t Last() const { return std::max(anchor_, caret_); }
  bool Replace(std::string_view text);
  bool Remove(std::size_t first, std::size_t last);
  std::optional<std::size_t> Moved(int code, bool shift, bool ctrl, const TextLayout* layout);
  std::size_t ByLines(int lines, const TextLayout* layout);
  std::size_t LineStart(std::size_t place) const;
  std::size_t LineEnd(std::size_t place) const;

  StyledText content_;
  CharFormat base_;
  std::optional<CharFormat> typing_;  // told for the next character, until the caret moves
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
  std::optional<std::size_t> column_;  // that Up and Down come back to
  bool multiLine_ = false;
  bool enabled_ = true;
  std::size_t maxLength_ = 0;
  int rightMargin_ = 0;
};

}  // namespace tessera
