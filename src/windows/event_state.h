// What the events of a run's windows leave behind for the program to ask for: the pending texts, of which the
// last of each kind counts, and the states of keys and mouse buttons.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "windows/input.h"

namespace tessera {

// Key codes of the keys that the system itself knows.
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyPause = 19;
inline constexpr int kKeyF6 = 117;

// The states of the keys as texts: a mark and "-", or "+" while the key is down.
class KeyStates {
 public:
  KeyStates();

  void KeyDown(int keyCode);
  void KeyUp(int keyCode);
  // A window that sees the keys before its objects lets them go in a form of its own.
  void KeyUpInWindow(int keyCode);

  // The entry of a named key: E, D, A, B (the arrows), S (Shift), C (Ctrl), # (Space); nothing for others.
  const std::string* Named(std::string_view mark) const;
  // The entry of a key code. Failure 9 beyond the table.
  const std::string& OfCode(std::int32_t keyCode) const;

 private:
  void SetNamed(int keyCode, char state);

  static constexpr std::size_t kNamed = 7;
  static constexpr std::size_t kCodes = 257;  // the last one is no key's, and empty

  std::array<std::string, kNamed> named_;
  std::array<std::string, kCodes> all_;
};

struct EventState {
  // Pending texts: `Aguarde` reads the first two, `Evento` the others.
  std::string UltimoBotao;
  std::string EventoBox;
  std::string EventoTeclado;
  std::string EventoClique;
  std::string EventoRedim;
  std::string EventoBoxAlterado;
  std::string EventoGif;

  KeyStates Keys;
  std::string LastKeyText;  // the last key-down text until `TestaTecla("?")` takes it

  std::string MouseButtonsText = "00";  // left and right, "1" while down
  // The main window is dragged by its client area; where the button went down, in twips.
  bool WindowDragFlag = false;
  float WindowDragStartX = 0;
  float WindowDragStartY = 0;

  // The key sink's part of a key event: the tables and the pending text.
  void SinkKeyDown(int keyCode, KeyShift shift);
};

}  // namespace tessera
