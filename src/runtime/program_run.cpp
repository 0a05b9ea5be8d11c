#include "runtime/program_run.h"

#include <cstdint>

#include "commands/date_commands.h"
#include "commands/dialog_commands.h"
#include "commands/folder_commands.h"
#include "commands/number_commands.h"
#include "commands/system_commands.h"
#include "commands/text_commands.h"
#include "commands/validation_commands.h"
#include "image/image_reader.h"
#include "language/words.h"
#include "media/media_commands.h"
#include "objects/object_commands.h"
#include "prepare/linking.h"
#include "reports/print_commands.h"
#include "reports/report_commands.h"
#include "runtime/attentive_host.h"
#include "system/api_command.h"
#include "system/icon_commands.h"
#include "text/literal.h"
#include "values/builtin_variables.h"
#include "windows/display.h"
#include "windows/drawing_commands.h"
#include "windows/event_commands.h"
#include "windows/font_commands.h"
#include "windows/picture_commands.h"
#include "windows/transicao.h"
#include "windows/tray.h"
#include "windows/window_commands.h"

namespace tessera {

// The rooms that stand on a display.
struct ProgramRun::Windowed {
  Windowed(ProgramRun& program, Display& display, const PictureCodecFinder& findCodec)
      : janela(program.commands, program.run, program.engine, display, findCodec),
        objects(program.commands, program.run, janela.windows(), display),
        wallpaper(program.commands, program.run, display, janela.windows().pictures),
        transicao(program.commands, janela.windows()),
        tray(program.commands, janela.windows(), display),
        paper(program.run, janela.windows().pictures, program.paperServices_),
        reports(program.commands, program.run, paper, janela.windows(), display),
        prints(program.commands, program.run, paper),
        media(program.commands, program.run, objects.frame(), program.mediaServices_),
        api(program.commands, program.run, janela.windows()) {
    BindWindowCommands(program.commands, janela.windows());
    BindEventCommands(program.commands, janela.windows());
    BindDrawingCommands(program.commands, janela.windows());
    BindPictureCommands(program.commands, janela.windows());
    BindFontCommands(program.commands, display);
  }

  Janela janela;
  ObjectCommands objects;
  WallpaperCommand wallpaper;
  Transicao transicao;
  Tray tray;
  reports::Paper paper;
  reports::ReportCommands reports;
  reports::PrintCommands prints;
  media::MediaCommands media;
  ApiCommand api;
};

namespace {

constexpr int kLostLines = 1;

// OPEN: the program's folder is kept whole, however long: a path of this system is often longer than the 100
// characters that a fixed text would keep, and a cut path names no folder.
void TellProgram(Run& run, const ProgramStart& start, const Services& services) {
  run.ProgramFileName = start.program.name + ".TSC";
  run.ProgramFolderText = FolderText(start.folder) + "\\";
  run.RuntimeFolderText = run.ProgramFolderText;
  run.plain = start.plain;
  run.paths = PathMapping(run.host.files, start.folder.string(), services.dataFolder);
}

}  // namespace

ProgramRun::ProgramRun(const ProgramStart& start, const Services& services)
    : run(services.host, services.stack),
      commands(run),
      engine(run),
      folders_(services.folders),
      commandLine_(start.commandLine),
      display_(services.display),
      paperServices_{.host = services.reportHost == nullptr ? silent_ : *services.reportHost,
                     .chosen = chosenPrinter,
                     .findPainter = services.findPainter,
                     .printer = services.printer},
      mediaServices_{.host = services.mediaHost == nullptr ? silentMedia_ : *services.mediaHost,
                     .partFolders = services.partFolders,
                     .microphone = services.microphone,
                     .camera = services.camera},
      files_(commands, run),
      machine_(commands, run, services.machine),
      database_(commands, run, services.quickOrders),
      sqlProvider_(services.partFolders),
      sql_(commands, run, [this]() -> sql::SqlProvider& { return sqlProvider_.Provider(); }),
      p2p_(commands, run),
      ftp_(commands, run, services.partFolders, services.tellProgress) {
  TellProgram(run, start, services);
  if (services.hiddenFailures) {
    engine.onHiddenFailure = [this, tell = services.hiddenFailures](std::string_view what,
                                                                    const RunFailure& failure) {
      tell(what, SourcePositionText(run), failure.description());
    };
  }
  run.functionTable.Fill(WordNames());
  BindTextCommands(commands);
  BindNumberCommands(commands);
  BindDateCommands(commands);
  BindValidationCommands(commands);
  BindDialogCommands(commands, chosenPrinter);
  BindSystemCommands(commands);
  BindFolderCommands(commands);
  BindIconCommands(commands);
  if (display_ == nullptr) return;
  windowed_ = std::make_unique<Windowed>(*this, *display_, services.findCodec);
  windowed_->janela.StartAs(services.startForm);
}

ProgramRun::~ProgramRun() = default;

Janela& ProgramRun::janela() {
  return windowed_->janela;
}

const WallpaperCommand& ProgramRun::wallpaper() const {
  return windowed_->wallpaper;
}

void ProgramRun::EndPrinting() {
  if (windowed_) windowed_->paper.EndDocument();
}

int ProgramRun::Live(const EditorTexts& editors, std::string_view projectStyleWord) {
  DeclareBuiltins();
  return windowed_->janela.RunProgram(editors, projectStyleWord);
}

RunOutcome ProgramRun::Start(const EditorTexts& editors, std::string_view projectStyleWord) {
  DeclareBuiltins();
  return windowed_ ? windowed_->janela.Start(editors, projectStyleWord) : StartWithoutWindows(editors);
}

void ProgramRun::DeclareBuiltins() {
  const std::size_t fonts = display_ == nullptr ? 0 : display_->FontNames().size();
  DeclareBuiltinVariables(
      run, {.folders = folders_, .fontCount = static_cast<std::int32_t>(fonts), .commandLine = commandLine_});
}

RunOutcome ProgramRun::StartWithoutWindows(const EditorTexts& editors) {
  run.RunningFlag = true;
  const auto showCritical = [this](std::string_view text) { ShowCritical(run, text); };
  InstallProgram(run, PrepareProgram(editors, showCritical));
  const std::string problem = CheckBlocks(run.program.ProgramText->text());
  if (!problem.empty()) {
    showCritical(problem);
    return RunOutcome::Refused;
  }
  engine.RunStatements(run.program.ProgramText, 0);
  return RunOutcome::Ended;
}

int RunProgram(const ProgramStart& start, const Host& host, Display& display, const Listeners& listeners) {
  AttentiveHost attentive(host);
  ProgramRun program(start, UserServices(attentive.host(), &display, listeners, start));
  attentive.Attend(program.run);
  const int status =
      program.Live(start.program.EditorText, ScanProjectStyle(start.program.EditorText).ProjectStyleWord);
  program.EndPrinting();
  // The last lines are written, or it is told that they are lost.
  const auto lost = program.run.fileNumbers.FlushAll();
  if (!lost) return status;
  host.dialogs.ShowBox(
      {.text =
           std::string("Linhas gravadas pelo programa não estão no disco: "_w).append(lost->description()),
       .title = ProgramTitle(program.run),
       .icon = BoxIcon::Critical});
  return kLostLines;
}

}  // namespace tessera
