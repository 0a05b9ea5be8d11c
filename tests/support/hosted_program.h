// A program on a real host.
#pragma once

#include <string_view>

#include "platform/host.h"
#include "runtime/program_run.h"
#include "windows/form.h"
#include "windows/janela.h"

namespace tessera::test {

class HostedProgram {
 public:
  HostedProgram(const Host& host, Display& display);

  // The whole life of a program called TESTE, given in UTF-8 with LF line ends; its exit status.
  int Run(std::string_view editor0, std::string_view routines = {}, std::string_view projectStyleWord = {});

  // Its start alone, which leaves its windows open.
  RunOutcome Start(const EditorTexts& editors, std::string_view projectStyleWord);

 private:
  ProgramRun program_;

 public:
  tessera::Run& run = program_.run;
  CommandTable& commands = program_.commands;
  Janela& janela = program_.janela();
  const WallpaperCommand& wallpaper = program_.wallpaper();
};

}  // namespace tessera::test
