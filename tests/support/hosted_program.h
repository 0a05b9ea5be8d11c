// A program on a real host.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "runtime/program_run.h"
#include "windows/form.h"
#include "windows/picture_commands.h"
#include "windows/window_model.h"

namespace tessera::test {

class HostedProgram {
 public:
  // `change` says what a test wants otherwise.
  HostedProgram(
      const Host& host, Display& display, const std::function<void(Services&)>& change = [](Services&) {});

  // The whole life of a program called TESTE, given in UTF-8 with LF line ends; its exit status.
  int Run(std::string_view editor0, std::string_view routines = {}, std::string_view projectStyleWord = {});

  // What the end of the process does for a document that the program left open.
  void EndPrinting() { program_.EndPrinting(); }

  // The background of a window, from values as a program writes them.
  void Fundo(Form& window, std::string_view value, StockNames stock = StockNames::Known,
             std::string_view line = {}, std::string_view column = {});

  // Its start alone, which leaves its windows open.
  RunOutcome Start(std::string_view editor0, std::string_view routines = {},
                   std::string_view projectStyleWord = {});
  RunOutcome Start(const EditorTexts& editors) { return program_.Start(editors, {}); }

  // What the program left in a variable.
  std::string Read(std::string_view name) { return run.variables.VarRead(name).ToText(); }

 private:
  ProgramRun program_;

 public:
  tessera::Run& run = program_.run;
  ChosenPrinter& chosenPrinter = program_.chosenPrinter;
  CommandTable& commands = program_.commands;
  Janela& janela = program_.janela();
  const WallpaperCommand& wallpaper = program_.wallpaper();
};

}  // namespace tessera::test
