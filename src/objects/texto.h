// `Texto`, the entry of a text: one line, or several, whose parts may have formats of their own.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "controls/rich_text.h"
#include "objects/object_family.h"
#include "platform/host.h"

namespace tessera {

class TextoControl final : public Control {
 public:
  TextoControl(Form& form, ControlEvents& events, int index, bool multiLine);

  const RichText& State() const { return text_; }
  std::string Text() const { return text_.Text(); }
  std::string PortraitText() const override { return text_.Text(); }
  void SetText(std::string_view text);
  void SetTextRTF(std::string_view rtf);
  // Colours what is selected, or all where nothing is.
  void SetForeColor(Colour colour) override;
  // Places and lengths as the program counts them, a line break being two.
  void Select(std::size_t start, std::size_t length);
  void SetSelFormat(const FormatChange& change);
  void SetAlignment(TextAlign alignment);
  void SetMaxLength(std::size_t length) { text_.SetMaxLength(length); }
  void SetRightMargin(int pixels);
  // "NUMERICO" for a text that takes numbers alone.
  void SetTag(std::string_view tag) { tag_ = tag; }

  // The host's side: the caret's place by pointer, and the clipboard.
  void PlaceCaret(std::size_t anchor, std::size_t caret) override;
  void Paste(std::string_view text);

  void Click() override { Events().OnClick(*this); }
  void DoubleClick() override { Events().OnDoubleClick(*this); }
  void ReplaceText(std::string_view text) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;

 protected:
  void EnabledChanged() override { text_.SetEnabled(Enabled()); }
  void FontChanged() override;

 private:
  void Changed(bool textChanged);

  RichText text_;
  std::string tag_;
};

class Texto final : public ObjectFamily {
 public:
  explicit Texto(ObjectFrame& frame);

  // The control's text, and the variable `name.Txt`.
  void SetText(TextoControl& entry, std::string_view text);

  // The texts of all rows go into their variables. The timer that does it ends when no row is in use.
  // FAST: it also rests from a tick that found nothing to copy until the program's next yield, since nobody
  // but the program can make a variable differ from its text.
  void CopyTexts() override;
  void WakeCopying() override;
  void Reset() override;
  void OnChange(Control& control) override;
  void OnDoubleClick(Control& control) override { OnClick(control); }

 protected:
  std::string ArrayFor(const Arguments& arguments) override;
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;

 private:
  // Whether some variable differed from its text.
  bool Copy();

  std::unique_ptr<Timer> Timer2_;
};

}  // namespace tessera
