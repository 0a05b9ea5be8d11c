#include "support/hosted_program.h"

#include "commands/dialog_commands.h"
#include "commands/system_commands.h"
#include "commands/text_commands.h"
#include "support/core_program.h"
#include "windows/drawing_commands.h"
#include "windows/event_commands.h"
#include "windows/font_commands.h"
#include "windows/picture_commands.h"
#include "windows/window_commands.h"

namespace tessera::test {

HostedProgram::HostedProgram(const Host& host, Display& display)
    : run(host),
      engine(run),
      janela(run, engine, display),
      objects(commands, run, janela.windows(), display),
      wallpaper(run, display) {
  run.ProgramFileName = "TESTE.TSC";
  run.ProgramFolderText = "/programas/teste\\";
  run.RuntimeFolderText = "/programas\\";
  run.CommandLineText = "um dois";
  run.doors.CommandCall = [this](std::string_view name, std::string_view arguments) {
    return commands.CommandCall(name, arguments);
  };
  janela.AddCommand(commands);
  AddWindowCommands(commands, run, janela.windows());
  AddEventCommands(commands, run, janela.windows());
  AddDrawingCommands(commands, run, janela.windows());
  AddPictureCommands(commands, run, janela.windows());
  AddFontCommands(commands, run, display);
  wallpaper.Register(commands);
  AddDialogCommands(commands, run);
  AddSystemCommands(commands, run);
  AddTextCommands(commands, run);
}

int HostedProgram::Run(std::string_view editor0, std::string_view routines,
                       std::string_view projectStyleWord) {
  EditorTexts editors;
  editors[0] = FromSource(editor0);
  editors[1] = FromSource(routines);
  return janela.RunProgram(editors, projectStyleWord);
}

}  // namespace tessera::test
