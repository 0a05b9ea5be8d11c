// What the events of the two lists, `GrdLstB` of `Box` and the hidden `GrdLstA`, leave behind for the
// program.
#pragma once

#include <string_view>

#include "controls/box_rows.h"
#include "controls/key_code.h"
#include "windows/control.h"

namespace tessera {

class ObjectFrame;

class ListEvents {
 public:
  explicit ListEvents(ObjectFrame& frame) : frame_(frame) {}

  // `IndiceRef`, the cells of the cursor row in `name.Txt(n)`, `ValorObjeto`, and the pending text.
  void Click(const Control& list, const BoxRows& rows);
  void DoubleClick(const Control& list);
  // One of the two variables of the focus takes the list's name.
  void Focus(std::string_view variable, const Control& list);

 private:
  void TellPending(const Control& list, std::string_view event);

  ObjectFrame& frame_;
};

// A key that the list has told its owner of: Enter is a double click, Up and Down are clicks.
inline void TellListKey(ControlEvents& events, Control& list, int keyCode) {
  if (keyCode == key::kEnter) events.OnDoubleClick(list);
  if (keyCode == key::kUp || keyCode == key::kDown) events.OnClick(list);
}

}  // namespace tessera
