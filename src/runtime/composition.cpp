#include "runtime/composition.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "commands/command_table.h"
#include "commands/date_commands.h"
#include "commands/dialog_commands.h"
#include "commands/file_commands.h"
#include "commands/machine_commands.h"
#include "commands/number_commands.h"
#include "commands/system_commands.h"
#include "commands/text_commands.h"
#include "commands/validation_commands.h"
#include "engine/engine.h"
#include "image/image_reader.h"
#include "objects/object_commands.h"
#include "recorddb/record_database.h"
#include "values/run.h"
#include "windows/display.h"
#include "windows/drawing_commands.h"
#include "windows/event_commands.h"
#include "windows/font_commands.h"
#include "windows/janela.h"
#include "windows/picture_commands.h"
#include "windows/wallpaper_command.h"
#include "windows/window_commands.h"

namespace tessera {

namespace {

// OPEN: the program's folder is kept whole, however long: a path of this system is often longer than the 100
// characters that a fixed text would keep, and a cut path names no folder.
void TellProgram(Run& run, const ProgramStart& start) {
  run.ProgramFileName = start.program.name + ".TSC";
  run.ProgramFolderText = FolderText(start.folder) + "\\";
  run.RuntimeFolderText = run.ProgramFolderText;
  run.CommandLineText = start.commandLine;
  run.startForm = TakeStartForm();
  run.paths =
      PathMapping(start.folder.string(), SystemDataFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME")));
}

void FillDoors(Run& run, CommandTable& commands) {
  run.doors.CommandCall = [&commands](std::string_view name, std::string_view arguments) {
    return commands.CommandCall(name, arguments);
  };
  // A word without a room behind it does nothing, like every word without a handler.
  run.doors.SqlReadField = [](std::string_view, std::string_view, std::string_view) { return Value(); };
}

}  // namespace

int RunProgram(const ProgramStart& start, const Host& host, Display& display) {
  Run run(host);
  TellProgram(run, start);

  Engine engine(run);
  Janela janela(run, engine, display);
  FileCommands files(run);
  MachineCommands machine(run, MachineCommands::UserPlaces());
  WallpaperCommand wallpaper(run, display);
  CommandTable commands;
  const RecordDatabase database(run, commands);
  const ObjectCommands objects(commands, run, janela.windows(), display);
  FillDoors(run, commands);
  AddTextCommands(commands, run);
  AddNumberCommands(commands, run);
  AddDateCommands(commands, run);
  AddValidationCommands(commands, run);
  files.Register(commands);
  machine.Register(commands);
  AddDialogCommands(commands, run);
  AddSystemCommands(commands, run);
  janela.AddCommand(commands);
  AddWindowCommands(commands, run, janela.windows());
  AddEventCommands(commands, run, janela.windows());
  AddDrawingCommands(commands, run, janela.windows());
  AddPictureCommands(commands, run, janela.windows());
  AddFontCommands(commands, run, display);
  wallpaper.Register(commands);

  const ProjectStyle style = ScanProjectStyle(start.program.EditorText);
  return janela.RunProgram(start.program.EditorText, style.ProjectStyleWord);
}

}  // namespace tessera
