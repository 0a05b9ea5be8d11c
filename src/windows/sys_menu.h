// The system menu of a window: what a person does with the window itself, on its title or by `ShowSysMenu`.
#pragma once

#include <string_view>
#include <vector>

#include "windows/form.h"

namespace tessera {

enum class SysMenuAct { Restore, Move, Size, Minimise, Maximise, Close };

struct SysMenuEntry {
  SysMenuAct act;
  std::string_view label;  // program text, "&" before the key that chooses it
  bool enabled;
};

// The entries as the window stands; none for a window without a control box. With `AutoSysMenu` the entries
// of buttons that the title lacks, and of a frame that keeps its size, are disabled.
std::vector<SysMenuEntry> SysMenuOf(const Form& form);

}  // namespace tessera
