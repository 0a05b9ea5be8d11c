#include "windows/event_state.h"

#include <algorithm>

#include "platform/failure.h"
#include "text/one_based.h"

namespace tessera {

namespace {

struct NamedKey {
  int code;
  std::string_view mark;
};

constexpr std::array kNamedKeys = {
    NamedKey{37, "E"}, NamedKey{39, "D"}, NamedKey{38, "A"}, NamedKey{40, "B"},
    NamedKey{16, "S"}, NamedKey{17, "C"}, NamedKey{32, "#"},
};

constexpr int kKeyCodes = 256;

bool IsKeyCode(int keyCode) {
  return keyCode >= 0 && keyCode < kKeyCodes;
}

}  // namespace

KeyStates::KeyStates() {
  static_assert(kNamedKeys.size() == kNamed);
  for (std::size_t i = 0; i < kNamed; ++i) named_[i] = std::string(kNamedKeys[i].mark) + "-";
  for (std::size_t i = 0; i < kKeyCodes; ++i) all_[i] = std::to_string(i) + "-";
}

void KeyStates::SetNamed(int keyCode, char state) {
  for (std::size_t i = 0; i < kNamed; ++i) {
    if (kNamedKeys[i].code == keyCode) named_[i].back() = state;
  }
}

void KeyStates::KeyDown(int keyCode) {
  SetNamed(keyCode, '+');
  if (IsKeyCode(keyCode)) all_[static_cast<std::size_t>(keyCode)] = std::to_string(keyCode) + "+";
}

void KeyStates::KeyUp(int keyCode) {
  SetNamed(keyCode, '-');
  if (IsKeyCode(keyCode)) all_[static_cast<std::size_t>(keyCode)] = std::to_string(keyCode) + "-";
}

// KEPT: the window's form of a released key differs from the sink's
// (KeyStates.AWindowLetsAKeyGoInItsOwnForm).
void KeyStates::KeyUpInWindow(int keyCode) {
  SetNamed(keyCode, '-');
  if (IsKeyCode(keyCode)) all_[static_cast<std::size_t>(keyCode)] = "(" + ZeroFilled(keyCode, 3) + ")-";
}

const std::string* KeyStates::Named(std::string_view mark) const {
  const auto found = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                  [&](const NamedKey& key) { return key.mark == mark; });
  return found == kNamedKeys.end() ? nullptr : &named_[static_cast<std::size_t>(found - kNamedKeys.begin())];
}

const std::string& KeyStates::OfCode(std::int32_t keyCode) const {
  if (keyCode < 0 || keyCode >= static_cast<std::int32_t>(kCodes)) FailSubscript();
  return all_[static_cast<std::size_t>(keyCode)];
}

void EventState::SinkKeyDown(int keyCode, KeyShift shift) {
  Keys.KeyDown(keyCode);
  EventoTeclado = std::to_string(keyCode);
  if (shift.shift && !shift.ctrl) EventoTeclado += "SHIFT";
  if (shift.ctrl && !shift.shift) EventoTeclado += "CTRL";
  LastKeyText = EventoTeclado;
}

}  // namespace tessera
