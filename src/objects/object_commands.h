// All families of objects of the language, by their commands, and the menus beside them.
#pragma once

#include "commands/command_table.h"
#include "objects/menu_sistema.h"
#include "objects/object_frame.h"

namespace tessera {

class Desktop;

// The object commands of a run; they live as long as it does.
class ObjectCommands {
 public:
  ObjectCommands(CommandTable& table, Run& run, WindowModel& windows, Desktop& desktop);

  // The families of other rooms join here.
  ObjectFrame& frame() { return frame_; }

 private:
  ObjectFrame frame_;
  MenuSistema menus_;
};

}  // namespace tessera
