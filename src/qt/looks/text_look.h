// What the looks of all texts that a person edits have in common: the blinking caret, the frame that follows
// pointer and focus, and the keys of the clipboard.
#pragma once

#include <QBasicTimer>
#include <string>

#include "qt/looks/look.h"

namespace tessera {

// A text whose selection goes to the clipboard and comes from it.
class ClipboardUser {
 public:
  virtual ~ClipboardUser() = default;
  virtual void SelectAll() = 0;
  virtual std::string Selected() const = 0;
  virtual void DeleteSelected() = 0;
  virtual void Paste(const std::string& text) = 0;
};

// Serves the keys of the clipboard; false for another key.
bool ServeClipboardKey(const QKeyEvent& event, ClipboardUser& text);

// Half the time of a blink in milliseconds; nothing where the desktop wants none.
int BlinkInterval();

template <typename T>
class TextLook : public PaintedLook<T>, protected ClipboardUser {
 public:
  using PaintedLook<T>::PaintedLook;

  bool TakeShortcut(const QKeyEvent& event) override { return ServeClipboardKey(event, *this); }

 protected:
  bool CaretIsLit() const { return caretIsLit_; }
  // The caret shows at once, and blinks while the focus is here.
  void RestartBlinking() {
    caretIsLit_ = true;
    if (this->hasFocus() && BlinkInterval() > 0) {
      blink_.start(BlinkInterval(), this);
    } else {
      blink_.stop();
    }
    this->update();
  }

  void enterEvent(QEnterEvent*) override { this->update(); }
  void leaveEvent(QEvent*) override { this->update(); }
  void focusInEvent(QFocusEvent*) override { RestartBlinking(); }
  void focusOutEvent(QFocusEvent*) override { RestartBlinking(); }
  void timerEvent(QTimerEvent*) override {
    caretIsLit_ = !caretIsLit_;
    this->update();
  }

 private:
  QBasicTimer blink_;
  bool caretIsLit_ = true;
};

}  // namespace tessera
