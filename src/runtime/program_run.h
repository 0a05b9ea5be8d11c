// `ProgramRun` is one program with all that it runs on: the run, the engine, the command groups of every
// room, and the windows where there is a display. It is the one place that knows all rooms: it lists the
// groups and fills the doors by which a low room calls a high one. Both programs and all tests run programs
// through it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "commands/command_table.h"
#include "commands/dialog_commands.h"
#include "commands/file_commands.h"
#include "commands/machine_commands.h"
#include "engine/engine.h"
#include "media/media.h"
#include "platform/editors.h"
#include "recorddb/record_database.h"
#include "reports/paper.h"
#include "runtime/program_start.h"
#include "runtime/services.h"
#include "sql/sql_commands.h"
#include "sql/sql_provider.h"
#include "system/ftp_commands.h"
#include "system/p2p_commands.h"
#include "values/run.h"
#include "windows/janela.h"
#include "windows/wallpaper_command.h"

namespace tessera {

class ProgramRun {
 public:
  // The services outlive it.
  ProgramRun(const ProgramStart& start, const Services& services);
  ~ProgramRun();
  ProgramRun(const ProgramRun&) = delete;
  ProgramRun& operator=(const ProgramRun&) = delete;

  // The whole life of a program with windows: start, then events until the main window is closed. The exit
  // status of the process: 0, 1 for a program that was refused or abandoned, or the host's own.
  int Live(const EditorTexts& editors, std::string_view projectStyleWord);

  // Runs the program's text to its end; its windows stay. Left by `ProcessEnd` where the program closes its
  // main window, and, without a display, by the failure that no guard of the program takes.
  RunOutcome Start(const EditorTexts& editors, std::string_view projectStyleWord);

  // Sends the document that the program has printed and not ended.
  void EndPrinting();

  // The main window and what stands beside it; only with a display.
  Janela& janela();
  const WallpaperCommand& wallpaper() const;

  tessera::Run run;
  ChosenPrinter chosenPrinter;
  CommandTable commands;
  Engine engine;

 private:
  struct Windowed;

  void DeclareBuiltins();
  RunOutcome StartWithoutWindows(const EditorTexts& editors);

  UserFolders folders_;
  std::string commandLine_;
  Display* display_;
  reports::ReportHost silent_;  // of a host that makes nothing of reports
  reports::PaperServices paperServices_;
  media::MediaHost silentMedia_;  // of a host that plays nothing
  media::MediaServices mediaServices_;
  FileCommands files_;
  MachineCommands machine_;
  RecordDatabase database_;
  sql::ProviderPart sqlProvider_;
  sql::SqlCommands sql_;
  P2PCommands p2p_;
  FtpCommands ftp_;
  std::unique_ptr<Windowed> windowed_;
};

// The life of a program from its start on, on a host and its display; the exit status of the process.
int RunProgram(const ProgramStart& start, const Host& host, Display& display, const Listeners& listeners);

}  // namespace tessera
