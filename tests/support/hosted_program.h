// A program on a real host: run, engine, main window and the commands that windows and boxes need, wired as
// the composition root wires them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commands/command_table.h"
#include "engine/engine.h"
#include "objects/object_commands.h"
#include "platform/host.h"
#include "values/run.h"
#include "windows/display.h"
#include "windows/form.h"
#include "windows/janela.h"
#include "windows/wallpaper_command.h"

namespace tessera::test {

class HostedProgram {
 public:
  HostedProgram(const Host& host, Display& display);

  // The whole life of a program called TESTE, given in UTF-8 with LF line ends; its exit status.
  int Run(std::string_view editor0, std::string_view routines = {}, std::string_view projectStyleWord = {});

  tessera::Run run;
  CommandTable commands;
  Engine engine;
  Janela janela;
  ObjectCommands objects;
  WallpaperCommand wallpaper;
};

}  // namespace tessera::test
