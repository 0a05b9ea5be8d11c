#include "controls/btn_esp.h"

#include "controls/key_code.h"

namespace tessera {

void BtnEsp::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) hovering_ = pressed_ = pointerHolds_ = false;
}

BtnEsp::Picture BtnEsp::Shown() const {
  if (!enabled_) return Picture::kBtnDisabled;
  if (pressed_) return Picture::kBtnDown;
  if (hovering_) return Picture::kBtnHigh;
  if (hasFocus_) return Picture::kBtnFocus;
  return Picture::kBtnUp;
}

BtnEsp::KeyEffect BtnEsp::KeyDown(int code) {
  if (!enabled_) return KeyEffect::kNone;
  switch (code) {
    case key::kRight:
    case key::kDown:
      return KeyEffect::kFocusNext;
    case key::kLeft:
    case key::kUp:
      return KeyEffect::kFocusPrevious;
    case key::kSpace:
    case key::kEnter:
      // OPEN: events run during the pause, so a key held down comes here again; one press at a time.
      if (pressedByKey_) return KeyEffect::kNone;
      pressed_ = pressedByKey_ = true;
      return KeyEffect::kPress;
    default:
      return KeyEffect::kNone;
  }
}

void BtnEsp::PointerDown() {
  if (!enabled_) return;
  pointerHolds_ = pressed_ = true;
}

void BtnEsp::PointerMove(bool inside) {
  if (!enabled_) return;
  hovering_ = inside;
  if (pointerHolds_) pressed_ = inside;
}

bool BtnEsp::PointerUp(bool inside) {
  const bool click = pointerHolds_ && inside;
  if (pointerHolds_) pressed_ = pressedByKey_;
  pointerHolds_ = false;
  return click;
}

}  // namespace tessera
