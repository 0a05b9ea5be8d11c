// What a person does keys and pointer with, as the logic knows them.
#pragma once

namespace tessera {

// State of the modifier keys with a key event.
struct KeyShift {
  bool shift = false;
  bool ctrl = false;
};

enum class MouseButton { Left = 1, Right = 2 };

// A place of the screen, or of a window's client area, in pixels.
struct PointerPlace {
  double x = 0;
  double y = 0;
};

}  // namespace tessera
