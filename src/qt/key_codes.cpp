#include "qt/key_codes.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace tessera {

namespace {

struct KeyRow {
  int key;
  int code;
};

constexpr std::array kKeys = {
    KeyRow{Qt::Key_Backspace, 8},   KeyRow{Qt::Key_Tab, 9},       KeyRow{Qt::Key_Backtab, 9},
    KeyRow{Qt::Key_Clear, 12},      KeyRow{Qt::Key_Return, 13},   KeyRow{Qt::Key_Enter, 13},
    KeyRow{Qt::Key_Shift, 16},      KeyRow{Qt::Key_Control, 17},  KeyRow{Qt::Key_Alt, 18},
    KeyRow{Qt::Key_Pause, 19},      KeyRow{Qt::Key_CapsLock, 20}, KeyRow{Qt::Key_Escape, 27},
    KeyRow{Qt::Key_Space, 32},      KeyRow{Qt::Key_PageUp, 33},   KeyRow{Qt::Key_PageDown, 34},
    KeyRow{Qt::Key_End, 35},        KeyRow{Qt::Key_Home, 36},     KeyRow{Qt::Key_Left, 37},
    KeyRow{Qt::Key_Up, 38},         KeyRow{Qt::Key_Right, 39},    KeyRow{Qt::Key_Down, 40},
    KeyRow{Qt::Key_Print, 44},      KeyRow{Qt::Key_Insert, 45},   KeyRow{Qt::Key_Delete, 46},
    KeyRow{Qt::Key_Menu, 93},       KeyRow{Qt::Key_NumLock, 144}, KeyRow{Qt::Key_ScrollLock, 145},
    KeyRow{Qt::Key_Semicolon, 186}, KeyRow{Qt::Key_Equal, 187},   KeyRow{Qt::Key_Plus, 187},
    KeyRow{Qt::Key_Comma, 188},     KeyRow{Qt::Key_Minus, 189},   KeyRow{Qt::Key_Period, 190},
    KeyRow{Qt::Key_Slash, 191},
};

constexpr int kFirstFunctionKey = 112;
constexpr int kNumpad0 = 96;

}  // namespace

int KeyCodeOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_0 && key <= Qt::Key_9) {
    return event.modifiers().testFlag(Qt::KeypadModifier) ? kNumpad0 + key - Qt::Key_0 : key;
  }
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kFirstFunctionKey + key - Qt::Key_F1;
  const auto row = std::find_if(kKeys.begin(), kKeys.end(), [&](const KeyRow& r) { return r.key == key; });
  return row == kKeys.end() ? 0 : row->code;
}

KeyShift ShiftOf(const QKeyEvent& event) {
  return {.shift = event.modifiers().testFlag(Qt::ShiftModifier),
          .ctrl = event.modifiers().testFlag(Qt::ControlModifier)};
}

}  // namespace tessera
