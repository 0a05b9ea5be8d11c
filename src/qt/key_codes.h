// Key codes as programs know them.
#pragma once

#include "windows/input.h"

class QKeyEvent;

namespace tessera {

// The code of the key; 0 for a key that has none.
int KeyCodeOf(const QKeyEvent& event);

KeyShift ShiftOf(const QKeyEvent& event);

}  // namespace tessera
