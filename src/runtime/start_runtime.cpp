#include "runtime/start_runtime.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "image/image_reader.h"
#include "image/mapped_file.h"
#include "platform/termination.h"
#include "qt/boxes.h"
#include "qt/display_probe.h"
#include "qt/qt_author.h"
#include "qt/qt_host.h"
#include "qt/qt_stage.h"
#include "runtime/console_start.h"
#include "runtime/handover.h"
#include "runtime/own_folder.h"
#include "runtime/program_run.h"
#include "runtime/program_start.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr int kNoProgram = 1;

void Tell(const std::string& message) {
  std::cerr << "tessera-runtime: " << message << '\n';
}

std::string Describe(ImageProblem problem) {
  switch (problem) {
    case ImageProblem::CutFile:
      return "este arquivo está cortado: falta o seu fim, ou o programa que estava nele; copie-o de novo, ou "
             "grave-o de novo com tessera build";
    case ImageProblem::ChangedFile:
      return "este arquivo está danificado: o conteúdo não confere com a soma de verificação; copie-o de "
             "novo, "
             "ou grave-o de novo com tessera build";
    case ImageProblem::CutPackage:
      return "o programa dentro deste arquivo está cortado; grave-o de novo com tessera build";
    case ImageProblem::DamagedField:
      return "o programa dentro deste arquivo está danificado; grave-o de novo com tessera build";
    case ImageProblem::NoProgram:
    case ImageProblem::NoPackage:
      break;
  }
  return "o programa dentro deste arquivo está incompleto; grave-o de novo com tessera build";
}

// Starts this process anew, from its own file and with its own arguments. It does not return, unless the
// system has no room for it.
using Restart = std::function<void()>;

// Calls `use` with a host with windows, or answers why there is none. A display that is lost between the
// asking and the start is met anew by a process that knows of it.
template <typename Use>
std::string WithWindows(const Restart& restart, bool showsPages, Use use) {
  auto probe = std::make_unique<DisplayProbe>();
  if (!probe->problem().empty()) return probe->problem();
  QtHost host(
      [&] {
        setenv(kNoDisplayVariable, "1", 1);
        restart();
      },
      showsPages);
  probe.reset();
  use(host);
  return {};
}

// Whether the program speaks of that at all.
bool SpeaksOf(std::string_view word, const EditorTexts& editors) {
  return std::any_of(editors.begin(), editors.end(),
                     [word](const std::string& text) { return Contains(Upper(text), word); });
}

bool ShowsPages(const EditorTexts& editors) {
  return SpeaksOf("NAVEGADOR", editors);
}

int RunStart(const ProgramStart& start, const Restart& restart) {
  termination::Install(false);
  int status = 0;
  const std::string noDisplay = WithWindows(restart, ShowsPages(start.program.EditorText), [&](QtHost& host) {
    // A finished program is silent; a program that is being written tells where it failed.
    if (!start.isFinished)
      host.TellPlaces([&](std::string_view text) { return FilePlace(start.files, text); },
                      isatty(STDERR_FILENO) != 0);
    reports::ReportHost silent;  // its windows show all that there is to tell
    const auto tellFailure = [&host](std::string_view what, std::string_view position,
                                     std::string_view description) {
      host.TellFailure(what, position, description);
    };
    status = RunProgram(start, host.host(), host,
                        {.reports = silent, .media = host, .hiddenFailures = tellFailure});
  });
  if (noDisplay.empty()) return status;
  Tell(noDisplay + "; o programa roda no terminal");
  return RunOnConsole(start);
}

// Where there is no display, the windows stand on one that nobody sees.
int RunScripted(const ProgramStart& start, const Restart& restart) {
  if (!DisplayProbe().problem().empty()) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  int status = 0;
  const std::string noDisplay = WithWindows(restart, false, [&](QtHost& host) {
    QtStage stage(host);
    status = RunOnStage(start, stage);
  });
  if (noDisplay.empty()) return status;
  Tell(noDisplay);
  return kNoProgram;
}

// A person needs windows that can be seen.
int RunForAuthor(const ProgramStart& start, const Restart& restart) {
  int status = 0;
  const std::string noDisplay = WithWindows(restart, ShowsPages(start.program.EditorText), [&](QtHost& host) {
    QtStage stage(host, QtStage::Led::ByPerson);
    QtAuthor author(host, SpeaksOf("MOUSE", start.program.EditorText));
    status = RunRecorded(start, stage, author);
  });
  if (noDisplay.empty()) return status;
  Tell(noDisplay + "; um roteiro só se grava com janelas");
  return kNoProgram;
}

// A file whose program cannot be read: the person may have no terminal, so a box tells it as well.
int TellDamage(ImageProblem problem, const Restart& restart) {
  const std::string message = Describe(problem);
  const std::string noDisplay = WithWindows(restart, false, [&](QtHost& host) {
    Tell(message);
    host.ShowBox({.text = FromUtf8Lossy(message), .title = "Tessera", .icon = BoxIcon::Critical});
  });
  if (!noDisplay.empty()) Tell(message);
  return kNoProgram;
}

int ShowNotice(const Restart& restart) {
  if (!WithWindows(restart, false, [](QtHost&) { ShowMsgExec(); }).empty()) Tell(kRuntimeNotice);
  return kNoProgram;
}

}  // namespace

int StartRuntime(int argc, char** argv) {
  const std::optional<MappedFile> image = MappedFile::Open(kOwnExecutable);
  if (!image) {
    Tell("o próprio arquivo não pode ser lido");
    return kNoProgram;
  }
  const Restart restart = [argv] { execv(kOwnExecutable, argv); };
  auto read = ReadProgram(image->bytes());
  if (PackedProgram* program = std::get_if<PackedProgram>(&read)) {
    return RunStart({std::move(*program), OwnFolder(), CommandLineOf({argv + 1, argv + argc}), true},
                    restart);
  }
  const ImageProblem problem = std::get<ImageProblem>(read);
  if (problem != ImageProblem::NoProgram) return TellDamage(problem, restart);
  if (const std::optional<ProgramStart> left = TakeHandover(argc, argv)) {
    const Restart anew = [&left] { BecomeRuntime(kOwnExecutable, *left); };
    if (!left->recorded.empty()) return RunForAuthor(*left, anew);
    return left->scripted ? RunScripted(*left, anew) : RunStart(*left, anew);
  }
  return ShowNotice(restart);
}

}  // namespace tessera
