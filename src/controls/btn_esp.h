// `BtnEsp`, the button of `Botao`: which of its pictures shows, and what keys and pointer do.
#pragma once

namespace tessera {

class BtnEsp {
 public:
  // A press by key stays painted for so long before the click.
  static constexpr int kPressPauseMs = 100;

  // The pictures, highest first.
  enum class Picture { kBtnDisabled, kBtnDown, kBtnHigh, kBtnFocus, kBtnUp };
  // What the host does about a key: hand the focus on, or paint, process events, wait kPressPauseMs and call
  // EndKeyPress.
  enum class KeyEffect { kNone, kFocusNext, kFocusPrevious, kPress };

  bool Enabled() const { return enabled_; }
  bool HasFocus() const { return hasFocus_; }
  // A disabled button forgets the pointer and a press; a click that a key has begun is still raised.
  void SetEnabled(bool enabled);
  void SetFocus(bool hasFocus) { hasFocus_ = hasFocus; }

  Picture Shown() const;

  KeyEffect KeyDown(int code);
  // The end of a press by key. The click event follows it.
  void EndKeyPress() { pressed_ = pressedByKey_ = false; }

  // Button 1 over the control. PointerUp answers whether that is a click: pressed and let go inside.
  void PointerDown();
  void PointerMove(bool inside);
  bool PointerUp(bool inside);

  // `Timer1` runs from the pointer's entry until a tick finds it outside.
  bool TimerRuns() const { return hovering_; }
  void Tick(bool inside) { hovering_ = hovering_ && inside; }

 private:
  bool enabled_ = true;
  bool hovering_ = false;
  bool hasFocus_ = false;
  bool pressed_ = false;
  bool pressedByKey_ = false;
  bool pointerHolds_ = false;
};

}  // namespace tessera
