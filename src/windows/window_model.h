// The windows of a run: the table of slots, the current window, the placement grid and the text cursor.
// Who opens and closes windows is told in janela.h; what prints on them in window_commands.h.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "windows/display.h"

namespace tessera {

inline constexpr std::string_view kMainWindowName = "Pai";

struct WindowSlot {
  Form* window = nullptr;
  std::string name;  // as the program wrote it; an empty name is a free slot
};

struct WindowModel {
  static constexpr std::size_t kSlots = 20;  // slot 0 is the main window's

  std::array<WindowSlot, kSlots> slots;
  Form* MainWindow = nullptr;
  // The window on which objects are made and prints go, and its name.
  Form* CurrentForm = nullptr;
  std::string CurrentWindowName;

  // Pixels of a line and of a column.
  std::int16_t TamLin = kTamLin;
  std::int16_t TamCol = kTamCol;
  // The text cursor.
  std::int16_t PrintColumnPixels = 0;
  std::int16_t PrintLinePixels = 0;

  static constexpr std::int16_t kTamLin = 14;
  static constexpr std::int16_t kTamCol = 8;

  // Empties the table, puts the main window into slot 0 and makes it the current one; grid and cursor start
  // anew.
  void Reset(Form& mainWindow);

  // The window of that name, blind to case; nothing where the table lacks it.
  Form* FindWindow(std::string_view name) const;
};

}  // namespace tessera
